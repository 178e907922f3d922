#include "tray/tray_window.h"

#include "base/failure_policy.h"
#include "tray/tray_message.h"

namespace nerolith::tray {
namespace {

constexpr const char* kTip = "Nerolith";
constexpr const char* kIconIsIn = "Initialized...";
constexpr const char* kIconIsOut = "Uninitialized...";

}  // namespace

TrayWindow::TrayWindow(forms::Form3& form, platform::NotificationIcon& area, TrayTarget target)
    : form_(form), target_(std::move(target)), functions_(area) {
  area.offerMenu(form_.mnuFile);
  subscribePanel();
  subscribeMenu();
}

void TrayWindow::subscribePanel() {
  on(form_.cmdAdd.click, [this] {
    addIcon(kTip);
    form_.lblMessage.setCaption(kIconIsIn);
  });
  on(form_.cmdDelete.click, [this] {
    removeIcon();
    form_.lblMessage.setCaption(kIconIsOut);
  });
  on(form_.cmdClose.click, [this] { unload(); });
  on(form_.form.unload, [this] { loaded_ = false; });
  on(form_.picTray.mouseMove, [this](float across, float) { picTray_MouseMove(across); });
}

void TrayWindow::subscribeMenu() {
  on(form_.mnuPlayNext.click, [this] { target_.speelvolgendeknop(); });
  on(form_.mnuMessage.click, [this] { maximise(); });
  on(form_.mnuExit.click, [this] { target_.form.close(); });
}

void TrayWindow::load() {
  if (loaded_) return;
  loaded_ = true;
  form_.lblMessage.setCaption(kIconIsOut);
  form_.form.load();
}

void TrayWindow::addIcon(const std::string& tip) {
  load();
  functions_.add(form_.picTray, tip, target_.form);
}

void TrayWindow::removeIcon() { functions_.remove(form_.picTray); }

void TrayWindow::picTray_MouseMove(float across) {
  if (asksForMenu(across)) form_.form.popUpMenu(form_.mnuFile);
}

void TrayWindow::maximise() {
  base::endQuietly([this] {
    target_.closeSettings();
    target_.form.setVisible(true);
    target_.form.bringForward();
    target_.List1.setFocus();
  });
}

}  // namespace nerolith::tray
