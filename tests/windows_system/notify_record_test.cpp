#include "platform/windows/notify_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace nerolith::windows {
namespace {

// A 32-bit build is compiled with the size of its own (see scripts/compile_32bit.sh).
TEST(NotifyRecord, EachBuildTellsTheSizeOfItsOwnRecord) {
  EXPECT_EQ(kNotifyRecordSize, sizeof(void*) == 4 ? 88u : 104u);
}

TEST(NotifyRecord, TellsTheShellWhatThePlayerFilledIn) {
  platform::NotifyRecord record{.id = 100, .flags = 7, .callbackMessage = 512};
  std::string("Nerolith").copy(record.tip.data(), record.tip.size() - 1);
  const auto window = reinterpret_cast<HWND>(0x1234);
  const auto icon = reinterpret_cast<HICON>(0x5678);
  const NOTIFYICONDATAA told = toldToTheShell(record, window, icon);
  EXPECT_EQ(told.cbSize, kNotifyRecordSize);
  EXPECT_EQ(told.hWnd, window);
  EXPECT_EQ(told.hIcon, icon);
  EXPECT_EQ(told.uID, 100U);
  EXPECT_EQ(told.uFlags, 7U);
  EXPECT_EQ(told.uCallbackMessage, 512U);
  EXPECT_STREQ(told.szTip, "Nerolith");
}

TEST(NotifyRecord, ATipAsLongAsThereIsRoomForArrivesWhole) {
  platform::NotifyRecord record{};
  std::fill_n(record.tip.begin(), record.tip.size() - 1, 'x');
  EXPECT_EQ(std::string(toldToTheShell(record, nullptr, nullptr).szTip), std::string(63, 'x'));
}

}  // namespace
}  // namespace nerolith::windows
