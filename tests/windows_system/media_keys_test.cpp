#include "platform/windows/media_keys.h"

#include <gtest/gtest.h>

#include "windows_system/heard_commands.h"

namespace nerolith::windows {
namespace {

LPARAM appCommand(int command) { return MAKELPARAM(0, command); }

void press(BYTE key) {
  keybd_event(key, 0, 0, 0);
  keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

bool arrives(const HeardCommands& player, const std::string& wanted) {
  for (int i = 0; i < 200 && player.heard != wanted; ++i, Sleep(10)) letMessagesArrive();
  return player.heard == wanted;
}

TEST(MediaKeys, InFrontTheWindowsMessagesReachThePlayerOnce) {
  HeardCommands player;
  MediaKeys keys([] { return true; });
  EXPECT_FALSE(keys.onMessage(WM_APPCOMMAND, appCommand(APPCOMMAND_MEDIA_STOP)));
  keys.open(player);
  for (const int command :
       {APPCOMMAND_MEDIA_PLAY_PAUSE, APPCOMMAND_MEDIA_PLAY, APPCOMMAND_MEDIA_PAUSE,
        APPCOMMAND_MEDIA_STOP, APPCOMMAND_MEDIA_NEXTTRACK})
    EXPECT_EQ(keys.onMessage(WM_APPCOMMAND, appCommand(command)), TRUE) << command;
  EXPECT_EQ(player.heard, "playOrPause play pause stop next ");
}

TEST(MediaKeys, WhatThePlayerDoesNotKnowPassesBy) {
  HeardCommands player;
  MediaKeys keys([] { return true; });
  keys.open(player);
  EXPECT_FALSE(keys.onMessage(WM_APPCOMMAND, appCommand(APPCOMMAND_MEDIA_PREVIOUSTRACK)));
  EXPECT_FALSE(keys.onMessage(WM_APPCOMMAND, appCommand(APPCOMMAND_VOLUME_UP)));
  EXPECT_FALSE(keys.onMessage(WM_COMMAND, appCommand(APPCOMMAND_MEDIA_STOP)));
  EXPECT_EQ(player.heard, "");
}

TEST(MediaKeys, TheKeysThemselvesReachThePlayerWhereNobodyElseDeliversThem) {
  HeardCommands player;
  MediaKeys keys([] { return false; });
  keys.open(player);
  press(VK_MEDIA_NEXT_TRACK);
  EXPECT_TRUE(arrives(player, "next "));
  press(VK_MEDIA_PLAY_PAUSE);
  EXPECT_TRUE(arrives(player, "next playOrPause "));
  press(VK_MEDIA_STOP);
  EXPECT_TRUE(arrives(player, "next playOrPause stop "));
}

/// Whether another program could have the key.
bool isFree(UINT key) {
  const bool mine = RegisterHotKey(nullptr, 1, MOD_NOREPEAT, key) != FALSE;
  if (mine) UnregisterHotKey(nullptr, 1);
  return mine;
}

TEST(MediaKeys, AreLeftToTheSystemThatDeliversThemAndGivenBackAtTheEnd) {
  HeardCommands player;
  {
    MediaKeys keys([] { return true; });
    keys.open(player);
    EXPECT_TRUE(isFree(VK_MEDIA_STOP));
  }
  {
    MediaKeys keys([] { return false; });
    keys.open(player);
    EXPECT_FALSE(isFree(VK_MEDIA_STOP));
    keys.close();
    EXPECT_TRUE(isFree(VK_MEDIA_STOP));
  }
}

TEST(MediaKeys, AKeyThatAnotherProgramHasStaysWithIt) {
  ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_NOREPEAT, VK_MEDIA_STOP));
  HeardCommands player;
  MediaKeys keys([] { return false; });
  keys.open(player);
  press(VK_MEDIA_NEXT_TRACK);
  EXPECT_TRUE(arrives(player, "next "));
  press(VK_MEDIA_STOP);
  letMessagesArrive();
  EXPECT_EQ(player.heard, "next ");
  UnregisterHotKey(nullptr, 1);
}

}  // namespace
}  // namespace nerolith::windows
