#include "platform/linux/widgets/control_binding.h"

#include <QEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QWidget>
#include <optional>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {
namespace {

std::optional<controls::MouseButton> buttonOf(const QEvent* event) {
  switch (static_cast<const QMouseEvent*>(event)->button()) {
    case Qt::LeftButton:
      return controls::MouseButton::Left;
    case Qt::RightButton:
      return controls::MouseButton::Right;
    case Qt::MiddleButton:
      return controls::MouseButton::Middle;
    default:
      return std::nullopt;
  }
}

bool byMenu(const QEvent* event) {
  return static_cast<const QFocusEvent*>(event)->reason() == Qt::PopupFocusReason;
}

bool byWindow(const QEvent* event) {
  return static_cast<const QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason;
}

}  // namespace

ControlBinding::ControlBinding(QWidget& widget, controls::Control& control,
                               std::function<void()> refresh)
    : QObject(&widget),
      widget_(widget),
      mouseSource_(&widget),
      control_(control),
      refresh_(std::move(refresh)) {
  widget_.installEventFilter(this);
  widget_.setMouseTracking(true);
  follow(control_);
  subscriptions_.push_back(control_.focusRequested.subscribe(
      [this] { quietly([this] { widget_.setFocus(Qt::OtherFocusReason); }); }));
  bringInLine();
}

void ControlBinding::setGate(std::function<bool()> gate) {
  gate_ = std::move(gate);
  bringInLine();
}

void ControlBinding::watchMouse(QWidget& source) {
  mouseSource_ = &source;
  source.installEventFilter(this);
  source.setMouseTracking(true);
}

void ControlBinding::follow(controls::Control& other) {
  subscriptions_.push_back(other.changed.subscribe([this] { quietly([this] { bringInLine(); }); }));
}

void ControlBinding::bringInLine() {
  const bool enabled = control_.enabled() && (!gate_ || gate_());
  if (widget_.isEnabled() != enabled) widget_.setEnabled(enabled);
  // Some controls change ten times a second, their words hardly ever.
  if (tip_ != control_.toolTip()) {
    tip_ = control_.toolTip();
    widget_.setToolTip(QString::fromStdString(tip_));
  }
  if (name_ != control_.accessibleName() && !control_.accessibleName().empty()) {
    name_ = control_.accessibleName();
    widget_.setAccessibleName(QString::fromStdString(name_));
  }
  if (refresh_) refresh_();
  if (shown_ != control_.visible()) {
    shown_ = control_.visible();
    widget_.setVisible(shown_);
  }
}

bool ControlBinding::eventFilter(QObject* watched, QEvent* event) {
  const bool mouse =
      event->type() == QEvent::MouseMove ||
      (event->type() >= QEvent::MouseButtonPress && event->type() <= QEvent::MouseButtonDblClick);
  if (mouse && watched != mouseSource_) return false;
  quietly([this, watched, event] {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        if (const auto button = buttonOf(event)) pressed(*button);
        break;
      case QEvent::MouseButtonRelease:
        if (const auto button = buttonOf(event)) released(*button);
        break;
      case QEvent::MouseMove:
        control_.mouseMoved.raise();
        break;
      case QEvent::FocusIn:
        if (watched == &widget_ && !byMenu(event) && !byWindow(event)) control_.gotFocus.raise();
        break;
      case QEvent::FocusOut:
        if (watched == &widget_ && !byMenu(event)) control_.lostFocus.raise();
        break;
      default:
        break;
    }
  });
  return false;
}

void ControlBinding::pressed(controls::MouseButton button) {
  if (!widget_.isEnabled()) return;
  held_ |= static_cast<unsigned>(button);
  control_.mouseDown.raise(button);
}

void ControlBinding::released(controls::MouseButton button) {
  if (!(held_ & static_cast<unsigned>(button))) return;
  held_ &= ~static_cast<unsigned>(button);
  control_.mouseUp.raise(button);
}

}  // namespace nerolith::widgets
