// Finds the player that runs already, and hands over to it what this start was asked for.
#pragma once

#include <windows.h>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/first_instance.h"
#include "platform/windows/handles.h"
#include "platform/windows/message_window.h"

namespace nerolith::windows {

/// A request as one block of memory, and back; nothing comes back from a block that is none.
std::wstring packed(const platform::StartRequest& request);
std::optional<platform::StartRequest> unpacked(const wchar_t* text, std::size_t length);

/// The first run owns a mutex of the user's desktop, and has a window for the requests of later
/// ones. The system frees both however the process ends.
class WindowsFirstInstance final : public platform::FirstInstance {
 public:
  /// Runs with the same name find each other.
  explicit WindowsFirstInstance(
      std::wstring name = L"Quendrel.Nerolith",
      std::chrono::milliseconds patience = std::chrono::milliseconds(5000));
  ~WindowsFirstInstance() override;
  WindowsFirstInstance(const WindowsFirstInstance&) = delete;
  WindowsFirstInstance& operator=(const WindowsFirstInstance&) = delete;

  bool claim(const platform::StartRequest& request) override;
  void listen(std::function<void(const platform::StartRequest&)> laterStart) override;

 private:
  enum class Handed { Taken, FirstIsGone, NoAnswer };

  Handed handOver(const platform::StartRequest& request);
  bool takenByAWindow(const std::wstring& text, std::chrono::milliseconds longest) const;
  bool becomeFirst(DWORD longest);
  void openDoor();
  std::optional<LRESULT> onMessage(UINT message, LPARAM second);
  LRESULT take(const COPYDATASTRUCT& data);
  void pass();

  std::wstring name_;
  std::chrono::milliseconds patience_;
  SystemHandle mutex_;
  bool owned_ = false;
  std::unique_ptr<MessageWindow> door_;
  std::deque<platform::StartRequest> waiting_;
  std::function<void(const platform::StartRequest&)> laterStart_;
};

}  // namespace nerolith::windows
