// A window, as data.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/keys.h"
#include "controls/layout.h"
#include "controls/menu.h"
#include "controls/picture.h"
#include "controls/timer.h"

namespace nerolith::controls {

/// Base of every form: what a window has besides its controls. Shown and hidden by setVisible; a
/// window host renders it. Life of a form: made hidden -> visible -> activated (each time it comes
/// to the front) -> unload when the user or code closes it.
class Form : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  /// Background of the panel; empty: the renderer's own.
  const Picture& picture() const { return picture_; }
  void setPicture(Picture picture) {
    picture_ = std::move(picture);
    changed.raise();
  }

  const Box& layout() const { return layout_; }
  void setLayout(Box layout) { layout_ = std::move(layout); }

  /// One that cannot be resized is as large as its layout wants. Like the owner, settled before
  /// the form is first shown.
  bool resizable() const { return resizable_; }
  void setResizable(bool resizable) { resizable_ = resizable; }

  /// The window that this one belongs to: it opens over the owner's middle and stays in front of
  /// it. The owner outlives it; none: a window of its own.
  const Form* owner() const { return owner_; }
  void setOwner(const Form& owner) { owner_ = &owner; }

  /// Opens at its owner's side instead of over its middle.
  bool besideOwner() const { return besideOwner_; }
  void setBesideOwner(bool beside) { besideOwner_ = beside; }

  /// Controls that float over the layout while they are visible, below their anchor.
  const std::vector<Overlay>& overlays() const { return overlays_; }
  void addOverlay(Overlay overlay) { overlays_.push_back(overlay); }

  /// Timers that run while the form lives, shown or not.
  const std::vector<Timer*>& timers() const { return timers_; }
  void addTimer(Timer& timer) { timers_.push_back(&timer); }

  /// Closes the form, by the window's close button or from code: raises unload, then hides it.
  void close() {
    unload.raise();
    setVisible(false);
  }
  /// Makes the window without showing it, for what works out of sight: a tray icon, its menu.
  void load() { loadRequested.raise(); }
  /// Brings the window to the front and gives it the focus.
  void bringForward() { forwardRequested.raise(); }
  /// Puts the window at the side of its owner's, once for each place that the owner takes: what the
  /// user does with this window in between is left alone. Nothing while either is not shown.
  void placeBesideOwner() { besideRequested.raise(); }
  /// Leaves the window to the task bar.
  void minimise() { minimiseRequested.raise(); }
  /// Pops `menu` up at the mouse position, or, opened by a key, below the focused control.
  void popUpMenu(const MenuItem& menu) { popUpRequested.raise(menu); }

  base::Signal<> activate;
  base::Signal<> unload;
  /// The window sees keys before its controls. Return of the key to the control is not stopped.
  base::Signal<KeyPress> keyDown;

  /// Files of the desktop are dragged over the window, given by their full paths: whether they may
  /// be dropped on it, which the mouse shows. Asked when they come in; empty: nothing may.
  std::function<bool(const std::vector<std::string>& paths)> takesFiles;
  /// They were dropped. Raised when the desktop's drag is over, so that it may take its time.
  base::Signal<const std::vector<std::string>&> filesDropped;
  bool wouldTake(const std::vector<std::string>& paths) const {
    return enabled() && !paths.empty() && takesFiles && takesFiles(paths);
  }

  /// For window hosts.
  base::Signal<> loadRequested;
  base::Signal<> forwardRequested;
  base::Signal<> besideRequested;
  base::Signal<> minimiseRequested;
  base::Signal<const MenuItem&> popUpRequested;

 private:
  std::string caption_;
  Picture picture_;
  Box layout_;
  std::vector<Overlay> overlays_;
  std::vector<Timer*> timers_;
  const Form* owner_ = nullptr;
  bool resizable_ = true;
  bool besideOwner_ = false;
};

}  // namespace nerolith::controls
