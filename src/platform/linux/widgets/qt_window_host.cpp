#include "platform/linux/widgets/qt_window_host.h"

#include "platform/linux/widgets/form_timer.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

struct QtWindowHost::Hosted {
  Hosted(const QtWindowHost& host, controls::Form& form) : host(host), form(form) {
    for (controls::Timer* timer : form.timers())
      timers.push_back(std::make_unique<FormTimer>(*timer));
    shown = form.changed.subscribe([this] {
      if (this->form.visible()) quietly([this] { makeWindow(); });
    });
    loaded = form.loadRequested.subscribe([this] { quietly([this] { makeWindow(); }); });
    if (form.visible()) makeWindow();
  }

  void makeWindow() {
    if (window) return;
    const FormWindow* owner = form.owner() ? host.windowOf(*form.owner()) : nullptr;
    window = std::make_unique<FormWindow>(form, owner);
  }

  const QtWindowHost& host;
  controls::Form& form;
  std::unique_ptr<FormWindow> window;
  std::vector<std::unique_ptr<FormTimer>> timers;
  base::Subscription shown, loaded;
};

QtWindowHost::QtWindowHost() = default;
QtWindowHost::~QtWindowHost() = default;

void QtWindowHost::add(controls::Form& form) {
  forms_[&form] = std::make_unique<Hosted>(*this, form);
}

void QtWindowHost::remove(controls::Form& form) { forms_.erase(&form); }

FormWindow* QtWindowHost::windowOf(const controls::Form& form) const {
  const auto found = forms_.find(&form);
  return found == forms_.end() ? nullptr : found->second->window.get();
}

}  // namespace nerolith::widgets
