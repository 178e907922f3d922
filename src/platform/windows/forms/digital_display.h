// The large time.
#pragma once

#include "controls/label.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// Seven-segment digits in the label's fore colour; the glass behind them turns light where that
/// colour could not be read on dark glass. A left click is the label's; the space bar and the menu
/// key do what the mouse buttons do.
class DigitalDisplay final : public ControlView {
 public:
  DigitalDisplay(FormGround& ground, controls::Label& label);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  void press(controls::MouseButton button);
  void clicked(LPARAM where);
  LRESULT keyDown(WPARAM key);

  controls::Label& label_;
};

}  // namespace nerolith::windows_forms
