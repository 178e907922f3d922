// A menu of a window, popped up or in a bar.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"

namespace nerolith::controls {

/// One entry: an action, a submenu (it has items) or a separator (its caption is "-").
/// Key hints are part of the caption, as written.
class MenuItem : public Control {
 public:
  MenuItem() = default;
  explicit MenuItem(std::string caption) : caption_(std::move(caption)) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  /// The items of a submenu, owned by the form.
  const std::vector<MenuItem*>& items() const { return items_; }
  void setItems(std::vector<MenuItem*> items) { items_ = std::move(items); }

  bool separator() const { return caption_ == "-"; }

  base::Signal<> click;

  void userClick() {
    if (enabled()) click.raise();
  }

 private:
  std::string caption_;
  std::vector<MenuItem*> items_;
};

}  // namespace nerolith::controls
