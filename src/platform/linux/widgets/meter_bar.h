// The meter of the recording level.
#pragma once

#include <QProgressBar>

#include "controls/progress_bar.h"

namespace nerolith::widgets {

/// A row of small lights, each in the colour of its place on the bar.
class MeterBar : public QProgressBar {
 public:
  MeterBar(controls::ProgressBar& bar, QWidget* parent);
  QSize sizeHint() const override { return {200, 18}; }
  QSize minimumSizeHint() const override { return {60, 12}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();
  int lights() const;
  int litLights() const;

  controls::ProgressBar& bar_;
  int shown_ = -1;  // lights that are lit on the screen
};

}  // namespace nerolith::widgets
