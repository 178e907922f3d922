// A narrow scroll bar without arrows.
#pragma once

#include <QScrollBar>

namespace nerolith::widgets {

class SlimScrollBar : public QScrollBar {
 public:
  explicit SlimScrollBar(QWidget* parent);
  QSize sizeHint() const override { return {12, 40}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QRectF thumb() const;
  void moveThumb(qreal top);

  qreal grip_ = -1;  // where in the thumb it was taken; below 0: it is not held
};

}  // namespace nerolith::widgets
