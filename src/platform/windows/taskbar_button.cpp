#include "platform/windows/taskbar_button.h"

#include <shobjidl.h>

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace nerolith::windows {
namespace {

using platform::MediaCommands;
using platform::MediaStatus;
using platform::PlayState;

constexpr int kWhole = 500;  // more than a taskbar button has pixels

struct Key {
  Glyph glyph;
  const wchar_t* tip;
  void (MediaCommands::*command)();
};
// Their ids are their places. Going back does not exist in this player.
constexpr std::array<Key, 4> kKeys = {{{Glyph::Play, L"Play", &MediaCommands::play},
                                       {Glyph::Pause, L"Pause", &MediaCommands::pause},
                                       {Glyph::Next, L"Play Next", &MediaCommands::next},
                                       {Glyph::Stop, L"Stop", &MediaCommands::stop}}};

std::array<bool, 4> usableKeys(const MediaStatus& status) {
  return {status.canPlay && status.state != PlayState::Playing,
          status.canPause && status.state == PlayState::Playing, status.canGoNext,
          status.state != PlayState::Stopped};
}

int progressOf(const MediaStatus& status) {
  if (status.length <= 0) return 0;
  return static_cast<int>(
      std::lround(kWhole * std::clamp(status.position / status.length, 0.0, 1.0)));
}

TBPFLAG flagOf(PlayState state) {
  if (state == PlayState::Playing) return TBPF_NORMAL;
  return state == PlayState::Paused ? TBPF_PAUSED : TBPF_NOPROGRESS;
}

}  // namespace

void TaskbarButton::systemTaskbar(ComPointer<ITaskbarList3>& found) {
  if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                              found.outVoid())))
    found.reset();
}

TaskbarButton::TaskbarButton(FindTaskbar find)
    : find_(std::move(find)), buttonMade_(RegisterWindowMessageW(L"TaskbarButtonCreated")) {}

TaskbarButton::~TaskbarButton() { close(); }

std::optional<LRESULT> TaskbarButton::onMessage(HWND window, UINT message, WPARAM first) {
  if (message == buttonMade_) {
    window_ = window;
    buttonThere_ = true;
    dress();
  }
  if (message == WM_COMMAND && HIWORD(first) == THBN_CLICKED) return pressed(LOWORD(first));
  return std::nullopt;
}

std::optional<LRESULT> TaskbarButton::pressed(std::size_t key) {
  if (!commands_ || key >= kKeys.size()) return std::nullopt;
  (commands_->*kKeys[key].command)();
  return 0;
}

void TaskbarButton::open(MediaCommands& commands) {
  commands_ = &commands;
  dress();
}

void TaskbarButton::dress() {
  if (!commands_ || !buttonThere_) return;
  if (!taskbar_) {
    find_(taskbar_);
    if (!taskbar_ || FAILED(taskbar_->HrInit())) return taskbar_.reset();
    for (std::size_t i = 0; i < kKeys.size(); ++i)
      icons_[i] = glyphIcon(kKeys[i].glyph, GetSystemMetrics(SM_CXSMICON));
  }
  tellKeys(true);
  tellProgress();
}

void TaskbarButton::tellKeys(bool anew) {
  std::array<THUMBBUTTON, kKeys.size()> buttons{};
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    THUMBBUTTON& button = buttons[i];
    button.dwMask = THB_ICON | THB_TOOLTIP | THB_FLAGS;
    button.iId = static_cast<UINT>(i);
    button.hIcon = icons_[i].get();
    std::wcsncpy(button.szTip, kKeys[i].tip, std::size(button.szTip) - 1);
    button.dwFlags = enabled_[i] ? THBF_ENABLED : THBF_DISABLED;
  }
  if (anew)
    taskbar_->ThumbBarAddButtons(window_, static_cast<UINT>(buttons.size()), buttons.data());
  else
    taskbar_->ThumbBarUpdateButtons(window_, static_cast<UINT>(buttons.size()), buttons.data());
}

void TaskbarButton::tellProgress() {
  if (state_ != PlayState::Stopped)
    taskbar_->SetProgressValue(window_, static_cast<ULONGLONG>(progress_), kWhole);
  taskbar_->SetProgressState(window_, flagOf(state_));
}

void TaskbarButton::show(const MediaStatus& status) {
  const std::array<bool, kKeys.size()> usable = usableKeys(status);
  const int progress = progressOf(status);
  const bool otherKeys = usable != enabled_;
  const bool otherProgress = status.state != state_ || progress != progress_;
  enabled_ = usable;
  state_ = status.state;
  progress_ = progress;
  if (!taskbar_) return;
  if (otherKeys) tellKeys(false);
  if (otherProgress) tellProgress();
}

void TaskbarButton::close() {
  commands_ = nullptr;
  if (taskbar_) taskbar_->SetProgressState(window_, TBPF_NOPROGRESS);
  taskbar_.reset();
}

}  // namespace nerolith::windows
