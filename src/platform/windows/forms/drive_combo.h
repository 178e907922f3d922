// The drives.
#pragma once

#include "controls/file_lists.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A drop-down list of the system, drawn dark. A press on the arrow drops it; a press on the words
/// is the control's focus event (which opens the folders), every time.
class DriveCombo final : public ControlView {
 public:
  DriveCombo(FormGround& ground, controls::DriveListBox& drives);

  Extent extent() const override;
  void place(const RECT& area) override;
  void themeChanged() override;
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  int chosen() const;
  void choose();
  LRESULT draw(const DRAWITEMSTRUCT& item);
  std::optional<LRESULT> pressed(LPARAM where);

  controls::DriveListBox& drives_;
  std::vector<controls::DriveEntry> listed_;
  Brush dropGround_;
};

}  // namespace nerolith::windows_forms
