// What a form's window gives to the views of its controls.
#pragma once

#include <windows.h>

#include <string>

#include "platform/windows/forms/theme.h"

namespace nerolith::windows_forms {

/// Everything on the user-interface thread; outlives the views.
class FormGround {
 public:
  virtual HWND window() const = 0;
  virtual const Theme& theme() const = 0;
  /// What the user reads best on the panel: it may be a light picture.
  virtual Ink panelInk() const = 0;
  /// The panel as it lies behind the child window `view`, onto the whole canvas.
  virtual void paintBehind(HWND view, Canvas& canvas) = 0;
  /// A control needs another size, came or went: the layout follows soon.
  virtual void layoutChanged() = 0;
  /// A recess around a control, drawn by the panel, looks different now.
  virtual void panelChanged() = 0;
  /// An empty text takes the tooltip away.
  virtual void setToolTip(HWND view, const std::wstring& text) = 0;

 protected:
  ~FormGround() = default;
};

}  // namespace nerolith::windows_forms
