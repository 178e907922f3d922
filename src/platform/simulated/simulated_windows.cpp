#include "platform/simulated/simulated_windows.h"

#include <algorithm>
#include <type_traits>
#include <variant>

namespace nerolith::platform::simulated {

struct SimulatedWindows::Hosted {
  controls::Form* form;
  bool wasVisible = false;
  std::vector<controls::Control*> controls;
  std::vector<base::Subscription> subscriptions;
  /// Gone when the form is taken back: what was posted for it finds out.
  std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

SimulatedWindows::SimulatedWindows(Timeline& timeline, Doorway& doorway)
    : timeline_(timeline), doorway_(doorway) {}

SimulatedWindows::~SimulatedWindows() = default;

void SimulatedWindows::add(controls::Form& form) {
  doorway_.note({Door::Windows, "windows", "add", form.caption()});
  hosted_.push_back(std::make_unique<Hosted>());
  Hosted& hosted = *hosted_.back();
  hosted.form = &form;
  for (controls::Timer* timer : form.timers()) timeline_.add(*timer);
  follow(hosted, form);
  follow(hosted, form.layout());
  for (const controls::Overlay& overlay : form.overlays()) follow(hosted, overlay.control);

  const auto whenShown = [this, &hosted] {
    const bool shown = hosted.form->visible() && !hosted.wasVisible;
    hosted.wasVisible = hosted.form->visible();
    if (shown) activateLater(*hosted.form);
  };
  hosted.subscriptions.push_back(form.changed.subscribe(whenShown));
  hosted.subscriptions.push_back(form.forwardRequested.subscribe([this, &form] {
    doorway_.note({Door::Windows, "windows", "forward", form.caption()});
    activateLater(form);
  }));
  hosted.subscriptions.push_back(form.popUpRequested.subscribe([this](const auto& menu) {
    doorway_.note({Door::Windows, "windows", "popUp", menu.caption()});
    lastMenu_ = &menu;
  }));
  whenShown();
}

void SimulatedWindows::remove(controls::Form& form) {
  doorway_.note({Door::Windows, "windows", "remove", form.caption()});
  for (controls::Timer* timer : form.timers()) timeline_.drop(*timer);
  std::erase_if(hosted_, [&](const std::unique_ptr<Hosted>& hosted) {
    if (hosted->form != &form) return false;
    const auto& controls = hosted->controls;
    if (std::find(controls.begin(), controls.end(), focused_) != controls.end()) focused_ = nullptr;
    return true;
  });
}

void SimulatedWindows::focus(controls::Control& control) {
  if (focused_ == &control || !control.visible() || !control.enabled()) return;
  controls::Control* before = focused_;
  focused_ = &control;
  if (before) before->lostFocus.raise();
  if (focused_ == &control) control.gotFocus.raise();
}

void SimulatedWindows::activateLater(controls::Form& form) {
  for (const auto& hosted : hosted_) {
    if (hosted->form != &form) continue;
    timeline_.post([&form, alive = std::weak_ptr<bool>(hosted->alive)] {
      if (!alive.expired() && form.visible()) form.activate.raise();
    });
  }
}

void SimulatedWindows::follow(Hosted& hosted, controls::Control& control) {
  hosted.controls.push_back(&control);
  hosted.subscriptions.push_back(
      control.focusRequested.subscribe([this, &control] { focus(control); }));
}

void SimulatedWindows::follow(Hosted& hosted, const controls::PlacedControl& placed) {
  std::visit(
      [&](const auto& control) {
        using Placed = std::decay_t<decltype(control)>;
        if constexpr (std::is_pointer_v<Placed>) {
          if (control) follow(hosted, *control);
        } else if constexpr (requires { control.button; }) {
          if (control.button) follow(hosted, *control.button);
        }
      },
      placed);
}

void SimulatedWindows::follow(Hosted& hosted, const controls::Box& box) {
  follow(hosted, box.control);
  for (const controls::Box& child : box.children) follow(hosted, child);
}

}  // namespace nerolith::platform::simulated
