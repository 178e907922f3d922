// What every widget shares with its control.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"

class QWidget;

namespace nerolith::widgets {

/// Keeps visible, enabled, tooltip and accessible name of a widget in line with its control, passes
/// on focus and mouse, and calls `refresh` after each change of the control. Lives as a child of
/// the widget and ends with it; the control must outlive it. Mouse events are raised before the
/// widget sees them, so that a press comes before the click it leads to.
class ControlBinding : public QObject {
 public:
  ControlBinding(QWidget& widget, controls::Control& control, std::function<void()> refresh);

  /// A further condition for the widget to be enabled (asked at every change).
  void setGate(std::function<bool()> gate);
  /// The mouse is taken from `source` instead: lists have a viewport.
  void watchMouse(QWidget& source);
  /// A further control whose changes lead to `refresh`.
  void follow(controls::Control& other);
  void bringInLine();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void pressed(controls::MouseButton button);
  void released(controls::MouseButton button);

  QWidget& widget_;
  QObject* mouseSource_;
  controls::Control& control_;
  std::function<void()> refresh_;
  std::function<bool()> gate_;
  std::vector<base::Subscription> subscriptions_;
  std::string tip_, name_;  // as the widget has them
  bool shown_ = true;
  unsigned held_ = 0;
};

}  // namespace nerolith::widgets
