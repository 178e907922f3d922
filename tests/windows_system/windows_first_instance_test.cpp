#include "platform/windows/windows_first_instance.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "windows_system/heard_commands.h"

namespace nerolith::windows {
namespace {

using platform::StartRequest;
using std::chrono::milliseconds;

// Runs of other tests, and a player that runs, have other names.
std::wstring ownName() { return L"Nerolith.Test." + std::to_wstring(GetCurrentProcessId()); }

/// A later start on a thread of its own, as a mutex belongs to a thread; this one goes on handling
/// its messages.
bool laterStartClaims(const StartRequest& request, milliseconds patience = milliseconds(5000),
                      bool messagesArrive = true) {
  std::atomic<bool> done = false, first = false;
  std::thread later([&] {
    WindowsFirstInstance instance(ownName(), patience);
    first = instance.claim(request);
    done = true;
  });
  while (!done) {
    if (messagesArrive) letMessagesArrive();
    Sleep(2);
  }
  later.join();
  return first;
}

TEST(FirstInstance, ARequestSurvivesThePacking) {
  for (const StartRequest& request :
       {StartRequest{"C:\\Music", "D:\\\xC3\x89t\xC3\xA9\\a b.mp3,3"}, StartRequest{"", ""}}) {
    const std::wstring text = packed(request);
    EXPECT_EQ(unpacked(text.data(), text.size()), request);
  }
}

TEST(FirstInstance, ABlockThatIsNoRequestIsTakenForNone) {
  const std::wstring text = packed({"C:\\Music", "a.mp3"});
  for (std::size_t length = 0; length < text.size(); ++length)
    EXPECT_FALSE(unpacked(text.data(), length)) << length;
  const std::wstring three = text + L"b" + L'\0';
  EXPECT_FALSE(unpacked(three.data(), three.size()));
}

TEST(FirstInstance, TheFirstIsThePlayerAndLaterOnesHandOver) {
  WindowsFirstInstance first(ownName());
  ASSERT_TRUE(first.claim({"C:\\", ""}));
  std::vector<StartRequest> heard;
  first.listen([&](const StartRequest& request) { heard.push_back(request); });
  EXPECT_FALSE(laterStartClaims({"D:\\Here", "song.mp3,2"}));
  EXPECT_FALSE(laterStartClaims({"E:\\", ""}));
  letMessagesArrive();
  EXPECT_EQ(heard, (std::vector<StartRequest>{{"D:\\Here", "song.mp3,2"}, {"E:\\", ""}}));
}

TEST(FirstInstance, WhatCameBeforeThePlayerListensIsNotLost) {
  WindowsFirstInstance first(ownName());
  ASSERT_TRUE(first.claim({"C:\\", ""}));
  EXPECT_FALSE(laterStartClaims({"C:\\", "1"}));
  EXPECT_FALSE(laterStartClaims({"C:\\", "2"}));
  std::string heard;
  first.listen([&](const StartRequest& request) { heard += request.commandLine; });
  EXPECT_EQ(heard, "") << "each is an event of its own";
  letMessagesArrive();
  EXPECT_EQ(heard, "12");
}

TEST(FirstInstance, OnceTheFirstIsGoneTheNextIsThePlayer) {
  {
    WindowsFirstInstance first(ownName());
    ASSERT_TRUE(first.claim({"C:\\", ""}));
  }
  EXPECT_TRUE(laterStartClaims({"C:\\", "2"}));
}

TEST(FirstInstance, AFirstThatDoesNotAnswerIsNotWaitedForLongerThanItsTime) {
  WindowsFirstInstance first(ownName());
  ASSERT_TRUE(first.claim({"C:\\", ""}));
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_TRUE(laterStartClaims({"C:\\", "2"}, milliseconds(300), false));
  const auto taken = std::chrono::steady_clock::now() - begun;
  EXPECT_GE(taken, milliseconds(280));
  EXPECT_LT(taken, milliseconds(3000));
}

// Two starts in one moment: the other run has its place but not yet its window.
TEST(FirstInstance, AFirstThatIsStillStartingIsWaitedFor) {
  const SystemHandle place(CreateMutexW(nullptr, TRUE, (L"Local\\" + ownName()).c_str()));
  std::unique_ptr<MessageWindow> window;
  const auto begun = GetTickCount64();
  std::atomic<bool> done = false, first = true;
  std::thread later([&] {
    WindowsFirstInstance instance(ownName());
    first = instance.claim({"C:\\", "2"});
    done = true;
  });
  bool asked = false;
  while (!done) {
    if (!window && GetTickCount64() - begun > 200)
      window = std::make_unique<MessageWindow>(
          ownName().c_str(), [&](UINT message, WPARAM, LPARAM data) -> std::optional<LRESULT> {
            if (message != WM_COPYDATA) return std::nullopt;
            asked = true;
            return static_cast<LRESULT>(reinterpret_cast<const COPYDATASTRUCT*>(data)->dwData);
          });
    letMessagesArrive();
    Sleep(2);
  }
  later.join();
  EXPECT_TRUE(asked);
  EXPECT_FALSE(first);
  ReleaseMutex(place.get());
}

TEST(FirstInstance, AnEndingOneIsSucceeded) {
  auto first = std::make_unique<WindowsFirstInstance>(ownName());
  ASSERT_TRUE(first->claim({"C:\\", ""}));
  std::atomic<bool> done = false, claimed = false;
  std::thread later([&] {
    WindowsFirstInstance instance(ownName());
    claimed = instance.claim({"C:\\", "2"});
    done = true;
  });
  Sleep(100);  // it waits for an answer that the ending one does not give
  first.reset();
  later.join();
  EXPECT_TRUE(claimed);
}

TEST(FirstInstance, OtherDataIsNotTakenForARequest) {
  WindowsFirstInstance first(ownName());
  ASSERT_TRUE(first.claim({"C:\\", ""}));
  bool heard = false;
  first.listen([&](const StartRequest&) { heard = true; });
  const HWND door = FindWindowExW(HWND_MESSAGE, nullptr, ownName().c_str(), nullptr);
  ASSERT_TRUE(door);
  wchar_t rubbish[] = L"rubbish";
  COPYDATASTRUCT foreign{1, sizeof rubbish, rubbish}, broken{0x4E45524F, 7, rubbish},
      empty{0x4E45524F, 0, nullptr};
  for (COPYDATASTRUCT* data : {&foreign, &broken, &empty})
    EXPECT_EQ(SendMessageW(door, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(data)), 0);
  letMessagesArrive();
  EXPECT_FALSE(heard);
}

}  // namespace
}  // namespace nerolith::windows
