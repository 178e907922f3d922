// The interfaces of the system's media transport controls, as Windows 8 and later lay them out. The
// compiler's own headers do not have them.
#pragma once

#include <windows.h>
// After windows.h, which they need.
#include <eventtoken.h>
#include <hstring.h>
#include <inspectable.h>

namespace nerolith::windows::abi {

inline constexpr const wchar_t* kControlsClass = L"Windows.Media.SystemMediaTransportControls";
inline constexpr const wchar_t* kTimelineClass =
    L"Windows.Media.SystemMediaTransportControlsTimelineProperties";

inline constexpr GUID kControlsForWindow = {
    0xddb0472d, 0xc911, 0x4a1f, {0x86, 0xd9, 0xdc, 0x3d, 0x71, 0xa9, 0x5f, 0x5a}};
inline constexpr GUID kControls = {
    0x99fa3ff4, 0x1742, 0x42a6, {0x90, 0x2e, 0x08, 0x7d, 0x41, 0xf9, 0x65, 0xec}};
inline constexpr GUID kControls2 = {
    0xea98d2f6, 0x7f3c, 0x4af2, {0xa5, 0x86, 0x72, 0x88, 0x98, 0x08, 0xef, 0xb1}};
inline constexpr GUID kTimeline = {
    0x5125316a, 0xc3a2, 0x475b, {0x85, 0x07, 0x93, 0x53, 0x4d, 0xc8, 0x8f, 0x15}};
inline constexpr GUID kButtonPressed = {
    0xb7f47116, 0xa56f, 0x4dc8, {0x9e, 0x11, 0x92, 0x03, 0x1f, 0x4a, 0x87, 0xc2}};
inline constexpr GUID kPositionRequested = {
    0xb4493f88, 0xeb28, 0x4961, {0x9c, 0x14, 0x33, 0x5e, 0x44, 0xf3, 0xe1, 0x25}};
/// TypedEventHandler of the controls and these arguments.
inline constexpr GUID kButtonHandler = {
    0x0557e996, 0x7b23, 0x5bae, {0xaa, 0x81, 0xea, 0x0d, 0x67, 0x11, 0x43, 0xa4}};
inline constexpr GUID kPositionHandler = {
    0x44e34f15, 0xbdc0, 0x50a7, {0xac, 0xe4, 0x39, 0xe9, 0x1f, 0xb7, 0x53, 0xf1}};
inline constexpr GUID kAgileObject = {
    0x94ea2b94, 0xe9cc, 0x49e0, {0xc0, 0xff, 0xee, 0x64, 0xca, 0x8f, 0x5b, 0x90}};

enum class PlaybackStatus : int { Closed, Changing, Stopped, Playing, Paused };
enum class PlaybackType : int { Unknown, Music, Video, Image };
enum class AutoRepeat : int { None, Track, List };
enum class Button : int {
  Play,
  Pause,
  Stop,
  Record,
  FastForward,
  Rewind,
  Next,
  Previous,
  ChannelUp,
  ChannelDown
};
using Truth = BYTE;
using Ticks = INT64;  // 100 ns

/// Derived from IUnknown alone, as all delegates are.
struct Handler : IUnknown {
  virtual HRESULT WINAPI Invoke(IInspectable* sender, IInspectable* arguments) = 0;
};

struct ButtonPressed : IInspectable {
  virtual HRESULT WINAPI get_Button(Button* value) = 0;
};

struct PositionRequested : IInspectable {
  virtual HRESULT WINAPI get_RequestedPlaybackPosition(Ticks* value) = 0;
};

struct Music : IInspectable {
  virtual HRESULT WINAPI get_Title(HSTRING* value) = 0;
  virtual HRESULT WINAPI put_Title(HSTRING value) = 0;
  virtual HRESULT WINAPI get_AlbumArtist(HSTRING* value) = 0;
  virtual HRESULT WINAPI put_AlbumArtist(HSTRING value) = 0;
  virtual HRESULT WINAPI get_Artist(HSTRING* value) = 0;
  virtual HRESULT WINAPI put_Artist(HSTRING value) = 0;
};

struct DisplayUpdater : IInspectable {
  virtual HRESULT WINAPI get_Type(PlaybackType* value) = 0;
  virtual HRESULT WINAPI put_Type(PlaybackType value) = 0;
  virtual HRESULT WINAPI get_AppMediaId(HSTRING* value) = 0;
  virtual HRESULT WINAPI put_AppMediaId(HSTRING value) = 0;
  virtual HRESULT WINAPI get_Thumbnail(IInspectable** value) = 0;
  virtual HRESULT WINAPI put_Thumbnail(IInspectable* value) = 0;
  virtual HRESULT WINAPI get_MusicProperties(Music** value) = 0;
  virtual HRESULT WINAPI get_VideoProperties(IInspectable** value) = 0;
  virtual HRESULT WINAPI get_ImageProperties(IInspectable** value) = 0;
  virtual HRESULT WINAPI CopyFromFileAsync(PlaybackType, IInspectable*, IInspectable**) = 0;
  virtual HRESULT WINAPI ClearAll() = 0;
  virtual HRESULT WINAPI Update() = 0;
};

struct Controls : IInspectable {
  virtual HRESULT WINAPI get_PlaybackStatus(PlaybackStatus* value) = 0;
  virtual HRESULT WINAPI put_PlaybackStatus(PlaybackStatus value) = 0;
  virtual HRESULT WINAPI get_DisplayUpdater(DisplayUpdater** value) = 0;
  virtual HRESULT WINAPI get_SoundLevel(int* value) = 0;
  virtual HRESULT WINAPI get_IsEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsPlayEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsPlayEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsStopEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsStopEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsPauseEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsPauseEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsRecordEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsRecordEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsFastForwardEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsFastForwardEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsRewindEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsRewindEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsPreviousEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsPreviousEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsNextEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsNextEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsChannelUpEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsChannelUpEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_IsChannelDownEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_IsChannelDownEnabled(Truth value) = 0;
  virtual HRESULT WINAPI add_ButtonPressed(Handler*, EventRegistrationToken* token) = 0;
  virtual HRESULT WINAPI remove_ButtonPressed(EventRegistrationToken token) = 0;
  virtual HRESULT WINAPI add_PropertyChanged(Handler*, EventRegistrationToken* token) = 0;
  virtual HRESULT WINAPI remove_PropertyChanged(EventRegistrationToken token) = 0;
};

struct Timeline : IInspectable {
  virtual HRESULT WINAPI get_StartTime(Ticks* value) = 0;
  virtual HRESULT WINAPI put_StartTime(Ticks value) = 0;
  virtual HRESULT WINAPI get_EndTime(Ticks* value) = 0;
  virtual HRESULT WINAPI put_EndTime(Ticks value) = 0;
  virtual HRESULT WINAPI get_MinSeekTime(Ticks* value) = 0;
  virtual HRESULT WINAPI put_MinSeekTime(Ticks value) = 0;
  virtual HRESULT WINAPI get_MaxSeekTime(Ticks* value) = 0;
  virtual HRESULT WINAPI put_MaxSeekTime(Ticks value) = 0;
  virtual HRESULT WINAPI get_Position(Ticks* value) = 0;
  virtual HRESULT WINAPI put_Position(Ticks value) = 0;
};

struct Controls2 : IInspectable {
  virtual HRESULT WINAPI get_AutoRepeatMode(AutoRepeat* value) = 0;
  virtual HRESULT WINAPI put_AutoRepeatMode(AutoRepeat value) = 0;
  virtual HRESULT WINAPI get_ShuffleEnabled(Truth* value) = 0;
  virtual HRESULT WINAPI put_ShuffleEnabled(Truth value) = 0;
  virtual HRESULT WINAPI get_PlaybackRate(double* value) = 0;
  virtual HRESULT WINAPI put_PlaybackRate(double value) = 0;
  virtual HRESULT WINAPI UpdateTimelineProperties(Timeline* value) = 0;
  virtual HRESULT WINAPI add_PlaybackPositionChangeRequested(Handler*,
                                                             EventRegistrationToken* token) = 0;
  virtual HRESULT WINAPI remove_PlaybackPositionChangeRequested(EventRegistrationToken token) = 0;
};

struct ControlsForWindow : IInspectable {
  virtual HRESULT WINAPI GetForWindow(HWND window, REFIID wanted, void** found) = 0;
};

}  // namespace nerolith::windows::abi
