#include "platform/windows/windows_first_instance.h"

#include <optional>
#include <utility>

#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

using std::chrono::milliseconds;

constexpr UINT kPass = WM_APP;
constexpr ULONG_PTR kStart = 0x4E45524F;
constexpr LRESULT kTaken = 0x4E45524F;
constexpr milliseconds kPause{20};

}  // namespace

std::wstring packed(const platform::StartRequest& request) {
  return wideText(request.directory) + L'\0' + wideText(request.commandLine) + L'\0';
}

std::optional<platform::StartRequest> unpacked(const wchar_t* text, std::size_t length) {
  const std::wstring_view all(text, length);
  const std::size_t middle = all.find(L'\0');
  if (middle == all.npos || all.find(L'\0', middle + 1) != length - 1) return std::nullopt;
  return platform::StartRequest{utf8Text(all.substr(0, middle)),
                                utf8Text(all.substr(middle + 1, length - middle - 2))};
}

WindowsFirstInstance::WindowsFirstInstance(std::wstring name, milliseconds patience)
    : name_(std::move(name)), patience_(patience) {}

WindowsFirstInstance::~WindowsFirstInstance() {
  door_.reset();
  if (owned_) ReleaseMutex(mutex_.get());
}

bool WindowsFirstInstance::claim(const platform::StartRequest& request) {
  mutex_ = SystemHandle(CreateMutexW(nullptr, FALSE, (L"Local\\" + name_).c_str()));
  const bool alone = !mutex_ || becomeFirst(0);
  if (!alone && handOver(request) == Handed::Taken) return false;
  openDoor();
  return true;
}

/// The mutex of a process that ended without giving it back is free, too.
bool WindowsFirstInstance::becomeFirst(DWORD longest) {
  const DWORD answer = WaitForSingleObject(mutex_.get(), longest);
  owned_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
  return owned_;
}

/// A first run that is still starting has no window yet; one that is ending has none any more.
WindowsFirstInstance::Handed WindowsFirstInstance::handOver(const platform::StartRequest& request) {
  const std::wstring text = packed(request);
  const auto until = std::chrono::steady_clock::now() + patience_;
  for (;;) {
    const auto left =
        std::chrono::duration_cast<milliseconds>(until - std::chrono::steady_clock::now());
    if (left <= milliseconds::zero()) return Handed::NoAnswer;
    if (takenByAWindow(text, left)) return Handed::Taken;
    if (becomeFirst(static_cast<DWORD>(kPause.count()))) return Handed::FirstIsGone;
  }
}

bool WindowsFirstInstance::takenByAWindow(const std::wstring& text, milliseconds longest) const {
  COPYDATASTRUCT data{kStart, static_cast<DWORD>(text.size() * sizeof(wchar_t)),
                      const_cast<wchar_t*>(text.data())};
  for (HWND door = nullptr;
       (door = FindWindowExW(HWND_MESSAGE, door, name_.c_str(), nullptr)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(door, &process);
    // The one that the user has just started may come to the front, and may hand that on.
    AllowSetForegroundWindow(process);
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(door, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                            static_cast<UINT>(longest.count()), &answer) &&
        static_cast<LRESULT>(answer) == kTaken)
      return true;
  }
  return false;
}

void WindowsFirstInstance::openDoor() {
  door_ = std::make_unique<MessageWindow>(
      name_.c_str(),
      [this](UINT message, WPARAM, LPARAM second) { return onMessage(message, second); });
}

std::optional<LRESULT> WindowsFirstInstance::onMessage(UINT message, LPARAM second) {
  if (message == WM_COPYDATA) return take(*reinterpret_cast<const COPYDATASTRUCT*>(second));
  if (message != kPass) return std::nullopt;
  pass();
  return 0;
}

/// The other run waits for the answer: what it asks for is done afterwards.
LRESULT WindowsFirstInstance::take(const COPYDATASTRUCT& data) {
  if (data.dwData != kStart || !data.lpData) return 0;
  auto request = unpacked(static_cast<const wchar_t*>(data.lpData), data.cbData / sizeof(wchar_t));
  if (!request) return 0;
  waiting_.push_back(std::move(*request));
  if (laterStart_) PostMessageW(door_->handle(), kPass, 0, 0);
  return kTaken;
}

void WindowsFirstInstance::pass() {
  if (waiting_.empty() || !laterStart_) return;
  const platform::StartRequest request = std::move(waiting_.front());
  waiting_.pop_front();
  laterStart_(request);
}

void WindowsFirstInstance::listen(std::function<void(const platform::StartRequest&)> laterStart) {
  laterStart_ = std::move(laterStart);
  for (std::size_t i = 0; door_ && i < waiting_.size(); ++i)
    PostMessageW(door_->handle(), kPass, 0, 0);
}

}  // namespace nerolith::windows
