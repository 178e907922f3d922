// The folders below the drive.
#pragma once

#include "controls/file_lists.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A list box of the system, drawn dark: the way from the root to the current folder, each step
/// further in, then the folders in it. Double click or Enter opens an entry, Escape closes the
/// list, a click is the control's click.
class FolderPopup final : public ControlView {
 public:
  FolderPopup(FormGround& ground, controls::DirListBox& folders);

  Extent extent() const override;
  void themeChanged() override;
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;

 protected:
  void refresh() override;
  void paint(Canvas&) override {}  // the class paints, row by row
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  int rows() const;
  std::string nameAt(std::size_t row) const;
  std::string pathAt(std::size_t row) const;
  void open();
  bool keyDown(WPARAM key);
  LRESULT draw(const DRAWITEMSTRUCT& item) const;
  void paintFrame();

  controls::DirListBox& folders_;
  std::vector<std::string> listed_;
  Brush fill_;
};

}  // namespace nerolith::windows_forms
