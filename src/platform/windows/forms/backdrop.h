// What lies behind all controls of a form.
#pragma once

#include <memory>

#include "controls/picture.h"
#include "platform/windows/forms/form_layout.h"

namespace nerolith::windows_forms {

/// The panel (the theme's, or the user's picture, as large as covers the window) with the recesses
/// of the layout, painted once and kept until something of it changes.
class Backdrop {
 public:
  /// Keeps a copy of the pixels. Empty: the theme's panel.
  void setPicture(const controls::Picture& picture);
  /// What the user reads best on the panel.
  Ink ink() const { return ink_; }

  void forget() { painted_.reset(); }
  /// Painted anew where it was forgotten or has another size.
  const Canvas& painted(int width, int height, const FormLayout& layout, const Theme& theme);

 private:
  void paintPicture(Canvas& canvas) const;

  std::unique_ptr<Canvas> picture_;
  std::unique_ptr<Canvas> painted_;
  Ink ink_ = ink::kPlain;
};

}  // namespace nerolith::windows_forms
