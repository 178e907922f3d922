// The system's transport controls, played by the test: Wine 8 has none. Writes down each call.
#pragma once

#include <windows.h>

#include <sstream>
#include <string>

#include "platform/windows/transport_controls.h"

namespace nerolith::windows {

/// Lives with the fake that it belongs to, whatever its callers count.
template <typename Interface>
struct Inspectable : Interface {
  HRESULT WINAPI QueryInterface(REFIID, void** found) override {
    AddRef();
    return give(found, this);
  }
  ULONG WINAPI AddRef() override { return ++references; }
  ULONG WINAPI Release() override { return --references; }
  HRESULT WINAPI GetIids(ULONG*, IID**) override { return E_NOTIMPL; }
  HRESULT WINAPI GetRuntimeClassName(HSTRING*) override { return E_NOTIMPL; }
  HRESULT WINAPI GetTrustLevel(TrustLevel*) override { return E_NOTIMPL; }
  ULONG references = 0;
  virtual ~Inspectable() = default;
};

/// As a call answers that hands something out.
template <typename Place, typename Value>
HRESULT give(Place* place, Value value) {
  *place = value;
  return S_OK;
}

class FakeTransport {
 public:
  std::ostringstream trace;
  HWND window = nullptr;
  bool hasTimeline = true;

  std::string told() {
    const std::string text = trace.str();
    trace.str("");
    return text;
  }
  void press(abi::Button button) {
    Pressed arguments;
    arguments.button = button;
    controls.buttons->Invoke(nullptr, &arguments);
  }
  void seek(abi::Ticks position) {
    Requested arguments;
    arguments.position = position;
    controls2.positions->Invoke(nullptr, &arguments);
  }
  ULONG references() const {
    return controls.references + controls2.references + display.references + music.references +
           timeline.references + factory.references;
  }

  struct Pressed final : Inspectable<abi::ButtonPressed> {
    abi::Button button{};
    HRESULT WINAPI get_Button(abi::Button* value) override { return give(value, button); }
  };
  struct Requested final : Inspectable<abi::PositionRequested> {
    abi::Ticks position = 0;
    HRESULT WINAPI get_RequestedPlaybackPosition(abi::Ticks* value) override {
      return give(value, position);
    }
  };

  HRESULT say(const char* what, long long value) {
    trace << what << ' ' << value << " | ";
    return S_OK;
  }

// Getters that the player does not use, and setters that write down what they are told.
#define NEROLITH_UNUSED_GET(name, type) \
  HRESULT WINAPI get_##name(type*) override { return E_NOTIMPL; }
#define NEROLITH_TOLD(name, type)                          \
  NEROLITH_UNUSED_GET(name, type)                          \
  HRESULT WINAPI put_##name(type value) override {         \
    return fake.say(#name, static_cast<long long>(value)); \
  }
#define NEROLITH_TEXT(name)                                                                        \
  NEROLITH_UNUSED_GET(name, HSTRING)                                                               \
  HRESULT WINAPI put_##name(HSTRING value) override {                                              \
    fake.trace << #name << " '" << reinterpret_cast<const std::string*>(value)->c_str() << "' | "; \
    return S_OK;                                                                                   \
  }

  struct Music final : Inspectable<abi::Music> {
    explicit Music(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    NEROLITH_TEXT(Title)
    NEROLITH_TEXT(AlbumArtist)
    NEROLITH_TEXT(Artist)
  };
  struct Display final : Inspectable<abi::DisplayUpdater> {
    explicit Display(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    NEROLITH_TOLD(Type, abi::PlaybackType)
    NEROLITH_TEXT(AppMediaId)
    NEROLITH_UNUSED_GET(Thumbnail, IInspectable*)
    HRESULT WINAPI put_Thumbnail(IInspectable*) override { return E_NOTIMPL; }
    HRESULT WINAPI get_MusicProperties(abi::Music** value) override {
      fake.music.AddRef();
      return give(value, &fake.music);
    }
    NEROLITH_UNUSED_GET(VideoProperties, IInspectable*)
    NEROLITH_UNUSED_GET(ImageProperties, IInspectable*)
    HRESULT WINAPI CopyFromFileAsync(abi::PlaybackType, IInspectable*, IInspectable**) override {
      return E_NOTIMPL;
    }
    HRESULT WINAPI ClearAll() override { return wrote("ClearAll | "); }
    HRESULT WINAPI Update() override { return wrote("Update | "); }
    HRESULT wrote(const char* call) {
      fake.trace << call;
      return S_OK;
    }
  };
  struct Controls final : Inspectable<abi::Controls> {
    explicit Controls(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    abi::Handler* buttons = nullptr;
    HRESULT WINAPI QueryInterface(REFIID wanted, void** found) override {
      if (!IsEqualGUID(wanted, abi::kControls2)) return E_NOINTERFACE;
      fake.controls2.AddRef();
      return give(found, static_cast<abi::Controls2*>(&fake.controls2));
    }
    NEROLITH_TOLD(PlaybackStatus, abi::PlaybackStatus)
    HRESULT WINAPI get_DisplayUpdater(abi::DisplayUpdater** value) override {
      fake.display.AddRef();
      return give(value, &fake.display);
    }
    NEROLITH_UNUSED_GET(SoundLevel, int)
    NEROLITH_TOLD(IsEnabled, abi::Truth)
    NEROLITH_TOLD(IsPlayEnabled, abi::Truth)
    NEROLITH_TOLD(IsStopEnabled, abi::Truth)
    NEROLITH_TOLD(IsPauseEnabled, abi::Truth)
    NEROLITH_TOLD(IsRecordEnabled, abi::Truth)
    NEROLITH_TOLD(IsFastForwardEnabled, abi::Truth)
    NEROLITH_TOLD(IsRewindEnabled, abi::Truth)
    NEROLITH_TOLD(IsPreviousEnabled, abi::Truth)
    NEROLITH_TOLD(IsNextEnabled, abi::Truth)
    NEROLITH_TOLD(IsChannelUpEnabled, abi::Truth)
    NEROLITH_TOLD(IsChannelDownEnabled, abi::Truth)
    HRESULT WINAPI add_ButtonPressed(abi::Handler* handler, EventRegistrationToken* t) override;
    HRESULT WINAPI remove_ButtonPressed(EventRegistrationToken token) override;
    HRESULT WINAPI add_PropertyChanged(abi::Handler*, EventRegistrationToken*) override {
      return E_NOTIMPL;
    }
    HRESULT WINAPI remove_PropertyChanged(EventRegistrationToken) override { return E_NOTIMPL; }
  };
  struct Controls2 final : Inspectable<abi::Controls2> {
    explicit Controls2(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    abi::Handler* positions = nullptr;
    NEROLITH_TOLD(AutoRepeatMode, abi::AutoRepeat)
    NEROLITH_TOLD(ShuffleEnabled, abi::Truth)
    NEROLITH_TOLD(PlaybackRate, double)
    HRESULT WINAPI UpdateTimelineProperties(abi::Timeline* value) override;
    HRESULT WINAPI add_PlaybackPositionChangeRequested(abi::Handler* handler,
                                                       EventRegistrationToken* token) override;
    HRESULT WINAPI remove_PlaybackPositionChangeRequested(EventRegistrationToken) override;
  };
  struct Timeline final : Inspectable<abi::Timeline> {
    explicit Timeline(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    NEROLITH_TOLD(StartTime, abi::Ticks)
    NEROLITH_TOLD(EndTime, abi::Ticks)
    NEROLITH_TOLD(MinSeekTime, abi::Ticks)
    NEROLITH_TOLD(MaxSeekTime, abi::Ticks)
    NEROLITH_TOLD(Position, abi::Ticks)
  };
#undef NEROLITH_UNUSED_GET
#undef NEROLITH_TOLD
#undef NEROLITH_TEXT
  struct Factory final : Inspectable<abi::ControlsForWindow> {
    explicit Factory(FakeTransport& owner) : fake(owner) {}
    FakeTransport& fake;
    HRESULT WINAPI GetForWindow(HWND window, REFIID wanted, void** found) override;
  };

  Controls controls{*this};
  Controls2 controls2{*this};
  Display display{*this};
  Music music{*this};
  Timeline timeline{*this};
  Factory factory{*this};

  /// The runtime's calls, answered by the fake made last.
  static RuntimeCalls calls();
  FakeTransport();
  ~FakeTransport();
};

}  // namespace nerolith::windows
