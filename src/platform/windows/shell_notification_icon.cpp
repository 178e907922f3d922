#include "platform/windows/shell_notification_icon.h"

#include "platform/windows/notify_record.h"

namespace nerolith::windows {

using platform::NotifyMessage;
using platform::NotifyRecord;

static_assert(static_cast<DWORD>(NotifyMessage::Add) == NIM_ADD);
static_assert(static_cast<DWORD>(NotifyMessage::Delete) == NIM_DELETE);
static_assert(std::tuple_size_v<decltype(NotifyRecord::tip)> == kNotifyTipSize);

bool ShellNotificationIcon::tell(NotifyMessage message, const NotifyRecord& record) {
  NOTIFYICONDATAA data = toldToTheShell(record, record.window ? windowOf_(*record.window) : nullptr,
                                        record.icon ? iconOf_(*record.icon) : nullptr);
  return data.hWnd && Shell_NotifyIconA(static_cast<DWORD>(message), &data) != FALSE;
}

bool ShellNotificationIcon::notify(NotifyMessage message, const NotifyRecord& record) {
  const bool adding = message == NotifyMessage::Add;
  const bool done = tell(message, record);
  if (adding && (done || !isAdded_)) {
    added_ = record;
    isAdded_ = done;
  }
  if (!adding) isAdded_ = false;
  shownChanged.raise();
  return done;
}

/// The shell may be gone: what it was told is then shown by nobody.
bool ShellNotificationIcon::shown() const {
  return isAdded_ && FindWindowW(L"Shell_TrayWnd", nullptr) != nullptr;
}

void ShellNotificationIcon::taskBarCreated() {
  if (!isAdded_) return;
  tell(NotifyMessage::Add, added_);
  shownChanged.raise();
}

}  // namespace nerolith::windows
