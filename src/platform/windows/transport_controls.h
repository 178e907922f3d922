// The system's media transport controls: the player on the lock screen and beside the volume, the
// media keys, the buttons of a headset. Windows 10 and later have them.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "platform/media_controls.h"
#include "platform/windows/handles.h"
#include "platform/windows/message_window.h"
#include "platform/windows/transport_controls_abi.h"

namespace nerolith::windows {

/// The calls of the Windows Runtime that this needs; null where the system has none.
struct RuntimeCalls {
  HRESULT(WINAPI* factory)(HSTRING, REFIID, void**) = nullptr;
  HRESULT(WINAPI* activate)(HSTRING, IInspectable**) = nullptr;
  HRESULT(WINAPI* makeText)(const wchar_t*, UINT32, HSTRING*) = nullptr;
  HRESULT(WINAPI* dropText)(HSTRING) = nullptr;

  bool complete() const { return factory && activate && makeText && dropText; }
  static RuntimeCalls ofTheSystem();
};

/// Asks the system for its controls when it is opened, for the window that the player has then. The
/// thread has entered its COM apartment.
class TransportControls final : public platform::MediaControls {
 public:
  explicit TransportControls(std::function<HWND()> window,
                             std::function<RuntimeCalls()> calls = &RuntimeCalls::ofTheSystem)
      : window_(std::move(window)), findCalls_(std::move(calls)) {}
  ~TransportControls() override { close(); }
  TransportControls(const TransportControls&) = delete;
  TransportControls& operator=(const TransportControls&) = delete;

  /// Whether the system has them; known once they are open.
  bool present() const { return static_cast<bool>(controls_); }

  void open(platform::MediaCommands& commands) override;
  void show(const platform::MediaStatus& status) override;
  void seeked(double position) override;
  void close() override;

 private:
  class Text;

  bool findControls();
  void findTimeline();
  void listen();
  std::optional<LRESULT> onRequest(UINT message, WPARAM first, LPARAM second);
  void pressed(abi::Button button);
  void tellState();
  void tellButtons();
  void tellSong();
  void tellModes();
  void tellTimeline();

  std::function<HWND()> window_;
  std::function<RuntimeCalls()> findCalls_;
  RuntimeCalls calls_;
  platform::MediaCommands* commands_ = nullptr;
  std::unique_ptr<MessageWindow> requests_;
  ComPointer<abi::Controls> controls_;
  ComPointer<abi::Controls2> controls2_;
  ComPointer<abi::DisplayUpdater> display_;
  ComPointer<abi::Timeline> timeline_;
  EventRegistrationToken buttonToken_{}, positionToken_{};
  bool hearsButtons_ = false, hearsPositions_ = false;
  platform::MediaStatus status_;
  bool shown_ = false;
  double toldPosition_ = 0;
};

}  // namespace nerolith::windows
