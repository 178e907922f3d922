// The meter of the recording level.
#pragma once

#include <QImage>

#include "platform/linux/widgets/bar_view.h"
#include "platform/linux/widgets/panel.h"

namespace nerolith::widgets {

/// A row of small lights, each in the colour of its place on the bar. Within a panel it paints the
/// panel's ground, too: so with each light that changes the window need not be painted behind it,
/// and the light comes straight out of a picture that was painted once.
class MeterBar : public BarView {
 public:
  MeterBar(controls::ProgressBar& bar, QWidget* parent);
  QSize sizeHint() const override { return {200, 18}; }
  QSize minimumSizeHint() const override { return {60, 12}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void moveEvent(QMoveEvent*) override { settle(); }
  void resizeEvent(QResizeEvent*) override { settle(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();
  void settle();
  bool showStraight(const QRect& changed);
  void paintLights(QPainter& painter, const QRect& area, int lit) const;
  int lights() const;
  int litLights() const;

  Panel* panel_;
  int shown_ = 0;       // lights that are lit on the screen
  QImage dark_, full_;  // all of it, with none and with all of them lit; null until needed
};

}  // namespace nerolith::widgets
