// Round lamps: one that only shines, and one with a word beside it that can be switched.
#pragma once

#include <QCheckBox>
#include <QWidget>

#include "controls/layout.h"

namespace nerolith::widgets {

/// Shines in the label's back colour.
class LampView : public QWidget {
 public:
  LampView(controls::Label& label, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  controls::Label& label_;
};

/// Looks like a lamp with its word, is a check box to keyboard and screen reader. It never switches
/// itself: a click goes to the words, and the lamp follows what the player makes of it.
class LampSwitchView : public QCheckBox {
 public:
  LampSwitchView(const controls::LampSwitch& parts, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void nextCheckState() override {}
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  void refresh();

  controls::LampSwitch parts_;
};

}  // namespace nerolith::widgets
