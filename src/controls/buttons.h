// Push buttons, option buttons and check boxes.
#pragma once

#include <vector>

#include "controls/control.h"

namespace nerolith::controls {

/// "&" in the caption marks the access key. Setting a property from code raises no event.
class CommandButton : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  base::Signal<> click;

  /// The user's press, by mouse or key; nothing while disabled.
  void userClick() {
    if (enabled()) click.raise();
  }

 private:
  std::string caption_;
};

/// One of a group of which at most one is on. Turning one on, by code or by the user, raises its
/// click and turns the others off; turning one off, or on when it is on, raises nothing.
class OptionButton : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  bool value() const { return value_; }
  void setValue(bool value);
  void userClick() {
    if (enabled()) setValue(true);
  }

  base::Signal<> click;

  /// Makes the buttons one group; each knows the others from then on.
  static void group(const std::vector<OptionButton*>& buttons);

 private:
  std::string caption_;
  std::vector<OptionButton*> others_;
  bool value_ = false;
};

/// 0 off, 1 on, 2 grey. Setting another value, by code or by the user, raises click.
class CheckBox : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  int value() const { return value_; }
  void setValue(int value) {
    if (assign(value_, value)) click.raise();
  }
  void userClick() {
    if (enabled()) setValue(value_ == 0 ? 1 : 0);
  }

  base::Signal<> click;

 private:
  std::string caption_;
  int value_ = 0;
};

}  // namespace nerolith::controls
