// Where in the song the player is.
#pragma once

#include "controls/scroll_bar.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A trackbar of the system (so that a screen reader knows range and position) with its own look
/// and feel: the thumb is dragged, a click beside it moves it there, keys step.
class PositionSlider final : public ControlView {
 public:
  PositionSlider(FormGround& ground, controls::ScrollBar& bar);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  Area track(int width, int height) const;
  double thumbCentre(const Area& line) const;
  int valueAt(int x) const;
  void pressed(int x);
  void dragged(int x);
  void released();
  void keyDown(WPARAM key);
  void wheel(int turned);
  void paintTrack(Canvas& canvas, const Area& line, double thumb) const;
  void paintMark(Canvas& canvas, const Area& line, const Ink& amber) const;

  controls::ScrollBar& bar_;
  bool dragging_ = false;
};

}  // namespace nerolith::windows_forms
