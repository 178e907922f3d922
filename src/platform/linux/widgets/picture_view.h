// The product's icon in a form.
#pragma once

#include <QWidget>

#include "controls/picture_box.h"

namespace nerolith::widgets {

/// The icon in a recess. The mouse moving over it is the picture box's, in pixels of the form.
class PictureView : public QWidget {
 public:
  PictureView(controls::PictureBox& picture, QWidget* parent);
  QSize sizeHint() const override { return {48, 48}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  controls::PictureBox& picture_;
};

}  // namespace nerolith::widgets
