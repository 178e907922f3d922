// The player's button in the taskbar: how far the song is, and four keys under the thumbnail.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <optional>

#include "platform/media_controls.h"
#include "platform/windows/handles.h"
#include "platform/windows/media_glyphs.h"

struct ITaskbarList3;

namespace nerolith::windows {

/// The system tells the window each time it has made a button for it, and again when the taskbar
/// was started anew; only then can anything be put on it. Windows 7 and later have this.
class TaskbarButton final : public platform::MediaControls {
 public:
  /// Leaves it empty where the system has no taskbar.
  using FindTaskbar = std::function<void(ComPointer<ITaskbarList3>& found)>;
  static void systemTaskbar(ComPointer<ITaskbarList3>& found);

  explicit TaskbarButton(FindTaskbar find = &systemTaskbar);
  ~TaskbarButton() override;
  TaskbarButton(const TaskbarButton&) = delete;
  TaskbarButton& operator=(const TaskbarButton&) = delete;

  /// A message of the player's window.
  std::optional<LRESULT> onMessage(HWND window, UINT message, WPARAM first);

  void open(platform::MediaCommands& commands) override;
  void show(const platform::MediaStatus& status) override;
  void seeked(double) override {}
  void close() override;

 private:
  void dress();
  void tellKeys(bool anew);
  void tellProgress();
  std::optional<LRESULT> pressed(std::size_t key);

  FindTaskbar find_;
  UINT buttonMade_;
  HWND window_ = nullptr;
  platform::MediaCommands* commands_ = nullptr;
  ComPointer<ITaskbarList3> taskbar_;
  std::array<Icon, 4> icons_;
  std::array<bool, 4> enabled_{};
  platform::PlayState state_ = platform::PlayState::Stopped;
  int progress_ = 0;  // in parts of kWhole
  bool buttonThere_ = false;
};

}  // namespace nerolith::windows
