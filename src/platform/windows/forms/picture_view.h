// The product's icon in a form.
#pragma once

#include "controls/picture_box.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// The icon in a recess. Every move of the mouse that its window hears of is the picture box's:
/// also those that the shell sends for the icon in the notification area, whose place is a message.
class PictureView final : public ControlView {
 public:
  PictureView(FormGround& ground, controls::PictureBox& picture);
  Extent extent() const override;

 protected:
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  controls::PictureBox& picture_;
};

}  // namespace nerolith::windows_forms
