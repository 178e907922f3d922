// A small key of the caption strip: hide, close.
#pragma once

#include <QPushButton>

#include "controls/label.h"

namespace nerolith::widgets {

/// The label's caption is the sign on the key.
class CaptionKey : public QPushButton {
 public:
  CaptionKey(controls::Label& label, QWidget* parent);

  QSize sizeHint() const override { return {30, 24}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace nerolith::widgets
