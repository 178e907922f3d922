#include "app/tray_work.h"

#include <utility>

namespace nerolith::app {

TrayWork::TrayWork(const platform::Machine& machine, forms::MainForm& mainForm,
                   player::Player& player, settings::SettingsWindow& settings)
    : machine_(machine),
      window_(form_, machine.icon,
              {mainForm.form, mainForm.List1, [&player] { player.speelvolgendeknop(); },
               [&settings] { settings.closeIfOpen(); }}) {
  machine_.windows.add(form_.form);
  shownChanged_ = machine_.icon.shownChanged.subscribe([this] {
    if (added_ && !present()) lost.raise();
  });
}

TrayWork::~TrayWork() {
  if (added_) TrayWork::remove();
  machine_.windows.remove(form_.form);
}

void TrayWork::load() {
  if (!ended_) window_.load();
}

void TrayWork::add(const std::string& tip) {
  if (ended_ || std::exchange(addWaits_, true)) return;
  machine_.events.post([this, tip, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) addNow(tip);
  });
}

void TrayWork::addNow(const std::string& tip) {
  if (!std::exchange(addWaits_, false)) return;
  added_ = true;
  window_.addIcon(tip);
}

void TrayWork::remove() {
  addWaits_ = false;
  added_ = false;
  window_.removeIcon();
}

void TrayWork::end() {
  ended_ = true;
  addWaits_ = false;
  window_.unload();
}

}  // namespace nerolith::app
