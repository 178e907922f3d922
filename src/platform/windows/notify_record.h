// The record that tells the shell of the player's icon, in its first form.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstddef>

#include "platform/notification_icon.h"

namespace nerolith::windows {

/// The size that goes into the record. The player was drawn up as a 32-bit program, where the
/// record of single-byte text has 88 bytes; this program is wider and says the size of its own
/// record, or the shell would take its handles for text.
inline constexpr DWORD kNotifyRecordSize = NOTIFYICONDATAA_V1_SIZE;

/// Characters of the tip, with the zero at its end.
inline constexpr std::size_t kNotifyTipSize = 64;

static_assert(sizeof(void*) != 4 || kNotifyRecordSize == 88);
static_assert(sizeof(void*) != 8 || kNotifyRecordSize == 104);
static_assert(kNotifyRecordSize == offsetof(NOTIFYICONDATAA, szTip) + kNotifyTipSize);

/// What the shell is told, with the handles of the picture box's window and of the form's icon.
inline NOTIFYICONDATAA toldToTheShell(const platform::NotifyRecord& record, HWND window,
                                      HICON icon) {
  NOTIFYICONDATAA data{};
  data.cbSize = kNotifyRecordSize;
  data.hWnd = window;
  data.uID = record.id;
  data.uFlags = record.flags;
  data.uCallbackMessage = record.callbackMessage;
  data.hIcon = icon;
  std::copy(record.tip.begin(), record.tip.end(), data.szTip);
  return data;
}

}  // namespace nerolith::windows
