#include "platform/windows/forms/win32_event_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace nerolith::windows_forms {
namespace {

/// A message loop that knows nothing of the queue, as the one of a message box.
void runForeignLoop(const bool& until) {
  const UINT_PTR limit = SetTimer(nullptr, 0, 5000, nullptr);
  MSG message;
  while (!until && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_TIMER && message.wParam == limit) break;
    DispatchMessageW(&message);
  }
  KillTimer(nullptr, limit);
}

TEST(EventQueue, CallsThatWaitRunWhileTheFirstHasAMessageBoxOpen) {
  Win32EventQueue queue;
  bool second = false;
  bool seenInside = false;
  queue.post([&] {
    runForeignLoop(second);
    seenInside = second;
    queue.quit();
  });
  queue.post([&] { second = true; });
  queue.run();
  EXPECT_TRUE(seenInside);
}

TEST(EventQueue, CallsThatWaitRunBehindAMessageBoxThatTheAlarmOpened) {
  Win32EventQueue queue;
  bool last = false;
  bool seenInside = false;
  queue.post([&] {
    // This loop lets the alarm run the next call, which has a loop of its own.
    runForeignLoop(last);
    queue.quit();
  });
  queue.post([&] {
    runForeignLoop(last);
    seenInside = last;
  });
  queue.post([&] { last = true; });
  queue.run();
  EXPECT_TRUE(seenInside);
}

}  // namespace
}  // namespace nerolith::windows_forms
