// A slim bar that fills from the left.
#pragma once

#include <QProgressBar>

#include "controls/progress_bar.h"

namespace nerolith::widgets {

/// Green while it is well filled, amber below the middle: a deck that fades away is seen at once.
class LevelBar : public QProgressBar {
 public:
  LevelBar(controls::ProgressBar& bar, QWidget* parent);
  QSize sizeHint() const override { return {88, 5}; }
  QSize minimumSizeHint() const override { return {24, 5}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();
  /// How much of it is filled, 0..1.
  qreal share() const;

  controls::ProgressBar& bar_;
  // As it is on the screen: device pixels filled, and in which colour.
  int lit_ = -1;
  bool amber_ = false;
};

}  // namespace nerolith::widgets
