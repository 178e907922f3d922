// Message boxes and file dialogs of the Windows program.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/dialogs.h"

struct HWND__;

namespace nerolith::windows {

/// Each belongs to the window that `owner` names at that moment, which is blocked meanwhile; null
/// leaves the choice to the dialog. File dialogs begin in `folder()` and leave the process's
/// current folder alone. COM has to be in use on the thread that calls (see com_apartment.h).
class WindowsDialogs : public platform::Dialogs {
 public:
  WindowsDialogs(std::function<HWND__*()> owner, std::function<std::string()> folder)
      : owner_(std::move(owner)), folder_(std::move(folder)) {}

  platform::Answer showMessage(const platform::Message& message) override;
  /// Fail when the system cannot show its dialog.
  std::optional<std::string> openFile(const platform::FileQuestion& question) override;
  std::optional<std::string> saveFile(const platform::FileQuestion& question) override;

 private:
  std::optional<std::string> ask(const platform::FileQuestion& question, bool save);

  std::function<HWND__*()> owner_;
  std::function<std::string()> folder_;
};

}  // namespace nerolith::windows
