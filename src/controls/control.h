// What every control of a window has.
#pragma once

#include <string>
#include <utility>

#include "base/signal.h"

namespace nerolith::controls {

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

/// A model of one control: plain properties that the parts read and write, and events. A renderer
/// shows it, and turns what the user does into the model's `user...` calls. Setting a property to
/// the value it has does nothing. All on the user-interface thread.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible); }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled); }

  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string text) { assign(toolTip_, std::move(text)); }

  /// What a screen reader calls the control; empty: its caption.
  const std::string& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::string name) { assign(accessibleName_, std::move(name)); }

  /// Asks for the keyboard focus. `gotFocus` is raised by the renderer when it arrives.
  void setFocus() { focusRequested.raise(); }

  /// A property that can be seen changed; renderers repaint.
  base::Signal<> changed;
  base::Signal<> focusRequested;

  /// The user moved the keyboard here from another control of the window. Not raised when it comes
  /// back with the whole window.
  base::Signal<> gotFocus;
  /// The keyboard went to another control or to another window; a menu is neither.
  base::Signal<> lostFocus;
  base::Signal<> mouseMoved;
  base::Signal<MouseButton> mouseDown;
  base::Signal<MouseButton> mouseUp;

 protected:
  ~Control() = default;

  /// Sets `field`, tells the renderer; false when it had the value already.
  template <typename T>
  bool assign(T& field, T value) {
    if (field == value) return false;
    field = std::move(value);
    changed.raise();
    return true;
  }

 private:
  std::string toolTip_;
  std::string accessibleName_;
  bool visible_ = true;
  bool enabled_ = true;
};

}  // namespace nerolith::controls
