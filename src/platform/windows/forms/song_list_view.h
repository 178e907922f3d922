// The song list.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "controls/list_box.h"
#include "platform/windows/forms/control_view.h"
#include "platform/windows/forms/slim_scroll_bar.h"

namespace nerolith::windows_forms {

/// A list view of the system whose entries stay with the list box (owner data): it asks for the
/// rows in sight, so that 100,000 entries cost nothing. Selection and current position live in the
/// list box alone and are drawn and answered from there. Click, Ctrl+click, Shift+click, dragging
/// and the arrow keys work as lists do everywhere: plain moves select what they reach, Shift
/// extends from where the last plain move ended, Ctrl moves without selecting.
class SongListView final : public ControlView {
 public:
  SongListView(FormGround& ground, controls::ListBox& list);
  ~SongListView() override;

  Extent extent() const override;
  void place(const RECT& area) override;
  void paintOnPanel(Canvas& canvas, const Area& area) const override;
  void themeChanged() override;
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;
  POINT menuPlace() const override;

 protected:
  void refresh() override { repaint(); }
  void paint(Canvas&) override {}  // the class paints, row by row
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  void followItems();
  void followSelection();
  int rowAt(LPARAM where, bool nearest) const;
  void reach(int row, bool shift, bool control);
  void selectRange(int from, int to);
  void toggle(int row);
  bool moveByKey(WPARAM key);
  bool keyDown(WPARAM key);
  void typed(wchar_t sign);
  void letGo(LPARAM where, controls::MouseButton button);
  void drawHint(HDC target);
  void search(wchar_t sign);
  void pressed(LPARAM where, WPARAM held);
  void swept(LPARAM where);
  void activated(LPARAM where);
  LRESULT describe(LVITEMW& item) const;
  LRESULT drawn(const NMLVCUSTOMDRAW& draw);
  void drawRow(HDC target, int row);

  static constexpr int kNowhere = -2;

  controls::ListBox& list_;
  std::unique_ptr<SlimScrollBar> bar_;
  HIMAGELIST rowHeight_ = nullptr;
  std::wstring sought_;
  DWORD soughtAt_ = 0;
  int anchor_ = 0;
  int current_ = -1;
  int pressedRow_ = kNowhere;  // where the button went down that is to be let go there
  bool sweeping_ = false;
  mutable std::wstring answered_;  // the text last handed to the class
};

}  // namespace nerolith::windows_forms
