// A large push button of the faceplate, with the lamp that glows in it.
#pragma once

#include <QPushButton>

#include "controls/layout.h"

namespace nerolith::widgets {

/// Caption, access key and enabled state come from the command button; presses, releases and clicks
/// go to the face, in this order, and a click by key or by a screen reader goes there too.
class FaceButtonView : public QPushButton {
 public:
  FaceButtonView(const controls::FaceButton& parts, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();
  QColor lampColour() const;

  controls::FaceButton parts_;
};

}  // namespace nerolith::widgets
