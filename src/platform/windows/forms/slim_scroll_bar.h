// A slim dark scroll bar beside a list.
#pragma once

#include "platform/windows/forms/form_ground.h"
#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// Shows and moves the vertical position of a list view of the system, whose own scroll bar is kept
/// out of sight. The list outlives the bar.
class SlimScrollBar : public Window {
 public:
  SlimScrollBar(FormGround& ground, HWND list);

  void place(const RECT& area);
  /// The list scrolled or has another length.
  void follow();

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  SCROLLINFO position() const;
  Area thumb() const;
  bool needed() const;
  void pressed(int y);
  void dragged(int y);
  void released();
  void scrollTo(int row);
  void paint();

  FormGround& ground_;
  HWND list_;
  SCROLLINFO shown_{};
  double grip_ = -1;
};

}  // namespace nerolith::windows_forms
