#include "platform/windows/transport_controls.h"

#include <cmath>
#include <string>
#include <utility>

#include "platform/windows/media_request.h"
#include "platform/windows/system_call.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

using platform::MediaStatus;
using platform::PlayState;

/// The system counts on by itself, and wants to be told again once in a while.
constexpr double kTimelineAge = 5;

abi::Ticks ticks(double seconds) { return static_cast<abi::Ticks>(std::llround(seconds * 1e7)); }

abi::PlaybackStatus statusOf(PlayState state) {
  if (state == PlayState::Playing) return abi::PlaybackStatus::Playing;
  return state == PlayState::Paused ? abi::PlaybackStatus::Paused : abi::PlaybackStatus::Stopped;
}

abi::AutoRepeat repeatOf(platform::Repeat repeat) {
  if (repeat == platform::Repeat::Song) return abi::AutoRepeat::Track;
  return repeat == platform::Repeat::List ? abi::AutoRepeat::List : abi::AutoRepeat::None;
}

abi::Truth truth(bool value) { return value ? 1 : 0; }

bool sameButtons(const MediaStatus& one, const MediaStatus& other) {
  return one.canPlay == other.canPlay && one.canPause == other.canPause &&
         one.canGoNext == other.canGoNext && one.state == other.state;
}

}  // namespace

RuntimeCalls RuntimeCalls::ofTheSystem() {
  RuntimeCalls calls;
  const HMODULE runtime = LoadLibraryExW(L"combase.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  findCall(runtime, "RoGetActivationFactory", calls.factory);
  findCall(runtime, "RoActivateInstance", calls.activate);
  findCall(runtime, "WindowsCreateString", calls.makeText);
  findCall(runtime, "WindowsDeleteString", calls.dropText);
  return calls;
}

/// A text of the runtime.
class TransportControls::Text {
 public:
  Text(const RuntimeCalls& calls, const std::wstring& words) : calls_(calls) {
    calls_.makeText(words.c_str(), static_cast<UINT32>(words.size()), &text_);
  }
  ~Text() { calls_.dropText(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  HSTRING get() const { return text_; }

 private:
  const RuntimeCalls& calls_;
  HSTRING text_ = nullptr;
};

void TransportControls::open(platform::MediaCommands& commands) {
  close();
  calls_ = findCalls_();
  if (!calls_.complete() || !findControls()) return;
  commands_ = &commands;
  findTimeline();
  listen();
  controls_->put_IsPreviousEnabled(truth(false));
  controls_->put_IsEnabled(truth(true));
}

bool TransportControls::findControls() {
  ComPointer<abi::ControlsForWindow> forWindow;
  const Text name(calls_, abi::kControlsClass);
  if (FAILED(calls_.factory(name.get(), abi::kControlsForWindow, forWindow.outVoid())) ||
      FAILED(forWindow->GetForWindow(window_(), abi::kControls, controls_.outVoid())))
    controls_.reset();
  else if (FAILED(controls_->get_DisplayUpdater(display_.out())))
    display_.reset();
  return present();
}

/// A system that has the controls may still have no timeline.
void TransportControls::findTimeline() {
  ComPointer<IInspectable> made;
  const Text name(calls_, abi::kTimelineClass);
  if (FAILED(controls_->QueryInterface(abi::kControls2, controls2_.outVoid()))) return;
  if (FAILED(calls_.activate(name.get(), made.out())) || !made ||
      FAILED(made->QueryInterface(abi::kTimeline, timeline_.outVoid())))
    timeline_.reset();
}

void TransportControls::listen() {
  requests_ = std::make_unique<MessageWindow>(L"Nerolith.MediaRequests",
                                              [this](UINT message, WPARAM first, LPARAM second) {
                                                return onRequest(message, first, second);
                                              });
  abi::Handler* const buttons = newButtonHandler(requests_->handle());
  hearsButtons_ = SUCCEEDED(controls_->add_ButtonPressed(buttons, &buttonToken_));
  buttons->Release();
  if (!controls2_) return;
  abi::Handler* const positions = newPositionHandler(requests_->handle());
  hearsPositions_ =
      SUCCEEDED(controls2_->add_PlaybackPositionChangeRequested(positions, &positionToken_));
  positions->Release();
}

std::optional<LRESULT> TransportControls::onRequest(UINT message, WPARAM first, LPARAM second) {
  if (!commands_ || (message != kButtonRequest && message != kPositionRequest)) return std::nullopt;
  if (message == kButtonRequest)
    pressed(static_cast<abi::Button>(first));
  else
    commands_->seekTo(static_cast<double>(second) / 1000);
  return 0;
}

void TransportControls::pressed(abi::Button button) {
  if (button == abi::Button::Play) commands_->play();
  if (button == abi::Button::Pause) commands_->pause();
  if (button == abi::Button::Stop) commands_->stop();
  if (button == abi::Button::Next) commands_->next();
}

void TransportControls::show(const MediaStatus& now) {
  if (!controls_) return;
  const bool first = !std::exchange(shown_, true);
  const MediaStatus before = std::exchange(status_, now);
  const bool otherState = first || before.state != now.state;
  const bool otherSong = first || before.song != now.song || before.title != now.title;
  if (otherState) tellState();
  if (first || !sameButtons(before, now)) tellButtons();
  if (otherSong) tellSong();
  if (first || before.repeat != now.repeat || before.shuffle != now.shuffle) tellModes();
  if (otherSong || otherState || before.length != now.length ||
      std::abs(now.position - toldPosition_) >= kTimelineAge)
    tellTimeline();
}

void TransportControls::seeked(double position) {
  if (!controls_) return;
  status_.position = position;
  tellTimeline();
}

void TransportControls::tellState() { controls_->put_PlaybackStatus(statusOf(status_.state)); }

void TransportControls::tellButtons() {
  controls_->put_IsPlayEnabled(truth(status_.canPlay));
  controls_->put_IsPauseEnabled(truth(status_.canPause));
  controls_->put_IsNextEnabled(truth(status_.canGoNext));
  controls_->put_IsStopEnabled(truth(status_.state != PlayState::Stopped));
}

void TransportControls::tellSong() {
  if (!display_) return;
  display_->ClearAll();
  display_->put_Type(abi::PlaybackType::Music);
  ComPointer<abi::Music> music;
  if (SUCCEEDED(display_->get_MusicProperties(music.out())) && music) {
    const Text title(calls_, wideText(status_.title));
    music->put_Title(title.get());
  }
  display_->Update();
}

void TransportControls::tellModes() {
  if (!controls2_) return;
  controls2_->put_AutoRepeatMode(repeatOf(status_.repeat));
  controls2_->put_ShuffleEnabled(truth(status_.shuffle));
}

void TransportControls::tellTimeline() {
  toldPosition_ = status_.position;
  if (!controls2_ || !timeline_) return;
  timeline_->put_StartTime(0);
  timeline_->put_EndTime(ticks(status_.length));
  timeline_->put_MinSeekTime(status_.canSeek ? 0 : ticks(status_.position));
  timeline_->put_MaxSeekTime(ticks(status_.canSeek ? status_.length : status_.position));
  timeline_->put_Position(ticks(status_.position));
  controls2_->UpdateTimelineProperties(timeline_.get());
}

void TransportControls::close() {
  commands_ = nullptr;
  if (controls_) {
    if (std::exchange(hearsButtons_, false)) controls_->remove_ButtonPressed(buttonToken_);
    if (std::exchange(hearsPositions_, false))
      controls2_->remove_PlaybackPositionChangeRequested(positionToken_);
    controls_->put_IsEnabled(truth(false));
  }
  timeline_.reset();
  display_.reset();
  controls2_.reset();
  controls_.reset();
  requests_.reset();
  shown_ = false;
}

}  // namespace nerolith::windows
