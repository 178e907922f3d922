#include "platform/windows/shell_notification_icon.h"

#include "platform/windows/notify_record.h"

namespace nerolith::windows {

using platform::NotifyMessage;
using platform::NotifyRecord;

static_assert(static_cast<DWORD>(NotifyMessage::Add) == NIM_ADD);
static_assert(static_cast<DWORD>(NotifyMessage::Delete) == NIM_DELETE);
static_assert(std::tuple_size_v<decltype(NotifyRecord::tip)> == kNotifyTipSize);

bool ShellNotificationIcon::systemTaskBarThere() {
  return FindWindowW(L"Shell_TrayWnd", nullptr) != nullptr;
}

bool ShellNotificationIcon::tell(DWORD message, const NotifyRecord& record) {
  NOTIFYICONDATAA data = toldToTheShell(record, record.window ? windowOf_(*record.window) : nullptr,
                                        record.icon ? iconOf_(*record.icon) : nullptr);
  return data.hWnd && Shell_NotifyIconA(message, &data) != FALSE;
}

/// The shell refuses an icon that it has, and may be too busy to answer though it took it. It
/// changes none that it does not have.
bool ShellNotificationIcon::add() {
  const bool done = tell(NIM_ADD, *wanted_);
  isAdded_ = done || tell(NIM_MODIFY, *wanted_);
  return done;
}

bool ShellNotificationIcon::notify(NotifyMessage message, const NotifyRecord& record) {
  bool done = false;
  if (message == NotifyMessage::Add) {
    wanted_ = record;
    done = add();
  } else {
    wanted_.reset();
    isAdded_ = false;
    done = tell(NIM_DELETE, record);
  }
  follow();
  return done;
}

/// The shell may be gone: what it was told is then shown by nobody.
bool ShellNotificationIcon::shown() const { return isAdded_ && taskBarThere_(); }

void ShellNotificationIcon::taskBarCreated() {
  if (!wanted_) return;
  add();
  follow();
}

void ShellNotificationIcon::look() {
  if (shown() != wasShown_) follow();
}

void ShellNotificationIcon::follow() {
  wasShown_ = shown();
  shownChanged.raise();
}

}  // namespace nerolith::windows
