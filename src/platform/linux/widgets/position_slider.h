// The position in the song.
#pragma once

#include <QSlider>

#include "controls/echo_guard.h"
#include "controls/scroll_bar.h"

namespace nerolith::widgets {

/// Dragging the thumb drags the bar, letting go releases it; a click on the track moves there, and
/// so do the keys. The end mark stands above the track's end.
class PositionSlider : public QSlider {
 public:
  PositionSlider(controls::ScrollBar& bar, QWidget* parent);

  QSize sizeHint() const override { return {240, 30}; }
  QSize minimumSizeHint() const override { return {120, 30}; }

  /// Where the thumb stands, and the value under a place of the track, in widget coordinates.
  qreal thumbCentre() const;
  int valueAt(qreal x) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void refresh();
  void byKeyOrWheel(int value);
  QRectF track() const;

  controls::ScrollBar& bar_;
  controls::EchoGuard echo_;
  bool dragging_ = false;
};

}  // namespace nerolith::widgets
