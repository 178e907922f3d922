// What the bars that fill have in common.
#pragma once

#include <QWidget>

#include "controls/progress_bar.h"

namespace nerolith::widgets {

/// A screen reader is told the value as that of a progress bar. Not the toolkit's own: that one
/// paints itself anew, at once and as a whole, with each percent that it is told.
class BarView : public QWidget {
 public:
  /// How much of it is filled, in whole percent.
  int value() const;

 protected:
  BarView(controls::ProgressBar& bar, QWidget* parent) : QWidget(parent), bar_(bar) {}

  const controls::ProgressBar& bar() const { return bar_; }
  /// How much of it is filled, 0..1.
  qreal share() const;
  /// Tells a screen reader, if one listens. After each change of the bar.
  void tellValue();

 private:
  controls::ProgressBar& bar_;
  int told_ = 0;
};

}  // namespace nerolith::widgets
