// A box that is seen.
#pragma once

#include <QWidget>

#include "controls/layout.h"

namespace nerolith::widgets {

/// Dark glass, a recess, a plate, or nothing but a fixed size around what lies in it.
class Panel : public QWidget {
 public:
  Panel(controls::Look look, QWidget* parent) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  controls::Look look_;
};

}  // namespace nerolith::widgets
