#include "platform/windows/forms/form_timer.h"

#include "platform/windows/forms/quietly.h"

namespace nerolith::windows_forms {
namespace {

constexpr UINT_PTR kTick = 1;

}  // namespace

FormTimer::FormTimer(controls::Timer& timer) : timer_(timer) {
  create({plainClass(), 0, 0, HWND_MESSAGE});
  subscription_ = timer_.changed.subscribe([this] { follow(); });
  follow();
}

void FormTimer::follow() {
  if (timer_.enabled())
    SetTimer(handle(), kTick, static_cast<UINT>(timer_.interval().count()), nullptr);
  else
    KillTimer(handle(), kTick);
}

void FormTimer::tick() {
  if (ticking_ || !timer_.enabled()) return;
  ticking_ = true;
  quietly([this] { timer_.tick.raise(); });
  ticking_ = false;
}

std::optional<LRESULT> FormTimer::onMessage(UINT message, WPARAM first, LPARAM) {
  if (message == WM_TIMER && first == kTick) {
    tick();
    return 0;
  }
  return std::nullopt;
}

}  // namespace nerolith::windows_forms
