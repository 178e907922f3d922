// A line of text.
#pragma once

#include "controls/text_box.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// An edit field of the system in a recess of the panel; in a well it is shown and can be copied
/// from, not edited. Stands on the box's back colour where it has one.
class TextLine final : public ControlView {
 public:
  TextLine(FormGround& ground, controls::TextBox& box, controls::Look look);

  Extent extent() const override;
  void place(const RECT& area) override;
  void paintOnPanel(Canvas& canvas, const Area& area) const override;
  void themeChanged() override;
  void tabbedTo() override;
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  std::wstring shownText() const;
  Ink ground() const;
  void edited();

  controls::TextBox& box_;
  Brush well_;
  Ink painted_ = ink::kWell;  // what the brush is made of
  bool readOnly_;
};

}  // namespace nerolith::windows_forms
