#include "platform/windows/forms/spoken_name.h"

#include <gtest/gtest.h>

namespace nerolith::windows_forms {
namespace {

TEST(SpokenName, AFigureIsCalledByItsNameAndWhatItShows) {
  EXPECT_EQ(spokenWords(L"Time", L"03:12"), L"Time 03:12");
  EXPECT_EQ(spokenWords(L"Folder", L""), L"Folder");
  EXPECT_EQ(spokenWords(L"", L"selected"), L"selected");
  EXPECT_EQ(spokenWords(L"", L""), L"");
}

TEST(SpokenName, MayBeToldAndTakenBackWhereNobodyListens) {
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_TRUE(window);
  {
    SpokenName name;
    name.tell(window, L"Time 00:01");
    name.tell(window, L"Time 00:02");
    name.tell(nullptr, L"nothing");
  }
  DestroyWindow(window);
  SpokenName gone;
  gone.tell(window, L"a window that is no more");
}

}  // namespace
}  // namespace nerolith::windows_forms
