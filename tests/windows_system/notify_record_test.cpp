#include "platform/windows/notify_record.h"

#include <gtest/gtest.h>

namespace nerolith::windows {
namespace {

// A 32-bit build is compiled with the size of its own (see scripts/compile_32bit.sh).
TEST(NotifyRecord, EachBuildTellsTheSizeOfItsOwnRecord) {
  EXPECT_EQ(kNotifyRecordSize, sizeof(void*) == 4 ? 88u : 104u);
}

}  // namespace
}  // namespace nerolith::windows
