// Files dragged over a window from the desktop.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <oleidl.h>

#include <string>
#include <vector>

#include "controls/form.h"

namespace nerolith::windows_forms {

/// The full paths of what is dragged, in order; none when it is not files.
std::vector<std::string> draggedFiles(IDataObject& data);

/// Asks the form whether it takes what is dragged over its window, shows the answer at the mouse,
/// and keeps what is dropped until the window is told with a message of its own: the program the
/// files come from waits for the drop to be over. Files are never taken as moved, which would make
/// their owner delete them. Where the thread has no OLE, the window takes nothing.
class FileDrop {
 public:
  FileDrop(HWND window, UINT message, controls::Form& form);
  ~FileDrop();
  FileDrop(const FileDrop&) = delete;
  FileDrop& operator=(const FileDrop&) = delete;

  /// The message has come: raises the form's event.
  void handOver();

 private:
  class Target;

  HWND window_;
  UINT message_;
  controls::Form& form_;
  Target* target_;
  std::vector<std::string> dropped_;
};

}  // namespace nerolith::windows_forms
