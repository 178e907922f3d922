// A slim bar that fills from the left.
#pragma once

#include "controls/layout.h"
#include "platform/linux/widgets/bar_view.h"

namespace nerolith::widgets {

/// The level of a deck is green while it is well filled, amber below the middle: a fade is seen at
/// once. Work that goes on is green from its beginning.
class LevelBar : public BarView {
 public:
  LevelBar(controls::ProgressBar& bar, controls::Look look, QWidget* parent);
  QSize sizeHint() const override { return {88, 5}; }
  QSize minimumSizeHint() const override { return {24, 5}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();
  bool low() const { return level_ && share() < 0.5; }

  bool level_;
  // As it is on the screen: device pixels filled, and in which colour.
  int lit_ = -1;
  bool amber_ = false;
};

}  // namespace nerolith::widgets
