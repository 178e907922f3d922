// A text of the faceplate.
#pragma once

#include "controls/label.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// Shows a label's caption, shortened with an ellipsis where the room does not suffice (the whole
/// text is then the tooltip). A left click is the label's click. `onGlass` picks the ink.
class LabelView final : public ControlView {
 public:
  LabelView(FormGround& ground, controls::Label& label, controls::Look look, bool onGlass);

  Extent extent() const override;
  void place(const RECT& area) override;

 protected:
  void refresh() override;
  std::wstring toolTip() const override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  Ink inkNow() const;
  std::wstring words() const;
  void clicked(LPARAM where);

  controls::Label& label_;
  controls::Look look_;
  bool onGlass_;
  bool pressed_ = false;
  SIZE measured_{};
};

}  // namespace nerolith::windows_forms
