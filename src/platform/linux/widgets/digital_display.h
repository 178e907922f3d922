// The large time.
#pragma once

#include <QColor>
#include <QLabel>
#include <QString>

#include "controls/label.h"

namespace nerolith::widgets {

/// Digits of seven glowing bars in the label's fore colour; the glass behind them turns light where
/// the colour would drown in the dark. Clicked with either mouse button; with the keyboard, the
/// space bar is the left button and the menu key the right one.
class DigitalDisplay : public QLabel {
 public:
  DigitalDisplay(controls::Label& label, QWidget* parent);

  QSize sizeHint() const override { return {200, 76}; }
  QSize minimumSizeHint() const override { return {120, 76}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void refresh();
  bool onLightGlass() const;
  /// Where the digits are.
  QRectF room() const;
  void press(controls::MouseButton button);

  controls::Label& label_;
  /// What was last told to the screen.
  QString text_;
  QColor colour_;
};

}  // namespace nerolith::widgets
