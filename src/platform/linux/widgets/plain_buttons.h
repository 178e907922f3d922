// Push buttons, option buttons and check boxes of the ordinary kind.
#pragma once

#include <QCheckBox>
#include <QPushButton>

#include "controls/buttons.h"

namespace nerolith::widgets {

/// A raised key in the player's colours, pressed by Enter as well as by the space bar.
class PlainKey : public QPushButton {
 public:
  PlainKey(const QString& caption, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

/// A small recess with a tick in it, and its words.
class TickBox : public QCheckBox {
 public:
  explicit TickBox(QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

/// Each makes the toolkit's own widget, bound both ways; the caller's `parent` owns it. A model
/// decides alone what its value is: after a click the widget shows what the model says.
QWidget* makePushButton(controls::CommandButton& button, QWidget* parent);
QWidget* makeOptionButton(controls::OptionButton& button, QWidget* parent);
QWidget* makeCheckBox(controls::CheckBox& box, QWidget* parent);

}  // namespace nerolith::widgets
