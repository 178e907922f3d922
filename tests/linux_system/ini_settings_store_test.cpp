#include "platform/linux/system/ini_settings_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "linux_system/scratch_folder.h"
#include "platform/failure.h"
#include "platform/linux/system/key_file_text.h"

namespace nerolith::system {
namespace {

using namespace std::string_literals;

class IniSettings : public ::testing::Test {
 protected:
  std::string text() const { return scratch.contents("settings.ini"); }
  void setText(const std::string& bytes) const { scratch.addFile("settings.ini", bytes); }
  std::optional<std::string> setting() { return store.read("App", "Setting", "setting"); }
  void write(const std::string& value) { store.write("App", "Setting", "setting", value); }

  ScratchFolder scratch;
  std::string file = scratch.path("settings.ini");
  IniSettingsStore store{file};
};

TEST_F(IniSettings, AreOneGroupForEachApplicationAndSection) {
  store.write("Microsoft Visual Basic AddIns", "Setting", "fadem", "10");
  store.write("Nerolith", "Setting", "key0", "a\nb");
  EXPECT_EQ(
      text(),
      "[Microsoft Visual Basic AddIns/Setting]\nfadem=10\n\n[Nerolith/Setting]\nkey0=a\\nb\n");
}

TEST_F(IniSettings, KeepWhatOthersPutThere) {
  const std::string before = "# my notes\n\n[Other]\nunknown=1\n\n[App/Setting]\n# why 3\n";
  setText(before + "setting=3\nstrange key=x\n");
  write("2");
  write("1");
  EXPECT_EQ(text(), before + "setting=1\nstrange key=x\n");
  EXPECT_EQ(store.trouble(), "");
}

TEST_F(IniSettings, SeeWhatTheUserChangesInTheFile) {
  write("2");
  setText("[App/Setting]\nsetting=1\nnew=yes\n");
  EXPECT_EQ(setting(), "1");
  write("3");
  EXPECT_EQ(store.read("App", "Setting", "new"), "yes");
  std::filesystem::remove(file);
  EXPECT_EQ(setting(), std::nullopt);
}

TEST_F(IniSettings, AnEmptyFileIsAnEmptyStore) {
  setText("");
  EXPECT_EQ(setting(), std::nullopt);
  write("1");
  EXPECT_EQ(text(), "[App/Setting]\nsetting=1\n");
  EXPECT_EQ(store.trouble(), "");
}

TEST_F(IniSettings, NumbersOfAnySizeAreTexts) {
  const std::string huge(5000, '9');
  setText("[App/Setting]\nsetting=" + huge + "\n");
  EXPECT_EQ(setting(), huge);
}

TEST_F(IniSettings, HoldBytesThatAreNoText) {
  const std::string bytes = "/music/\xFF\xFE\x01\x00 \xC3\xA9\xC3"s;
  write(bytes);
  EXPECT_EQ(IniSettingsStore(file).read("App", "Setting", "setting"), bytes);
  EXPECT_EQ(text(), "[App/Setting]\nsetting=/music/\\xff\\xfe\\x01\\x00 \xC3\xA9\\xc3\n");
}

TEST_F(IniSettings, NamesMayHoldAnything) {
  const std::string odd = " a/b=c[d]\n\xFF ";
  store.write(odd, "S/T", odd, "1");
  store.write("x", "", "", "2");
  IniSettingsStore again(file);
  EXPECT_EQ(again.read(odd, "S/T", odd), "1");
  EXPECT_EQ(again.read("x", "", ""), "2");
  EXPECT_EQ(again.trouble(), "");
}

TEST_F(IniSettings, GarbageIsSetAsideAndToldOnce) {
  const std::string garbage =
      "\x7F"
      "ELF\0\xFF no settings"s;
  setText(garbage);
  EXPECT_EQ(setting(), std::nullopt);
  EXPECT_EQ(scratch.contents("settings.ini.damaged-1"), garbage);
  EXPECT_FALSE(scratch.exists("settings.ini"));
  EXPECT_EQ(store.trouble(), "The settings in " + file +
                                 " could not be read. They were set aside as " + file +
                                 ".damaged-1; the player starts with its own.");
  EXPECT_EQ(store.trouble(), "");
  write("2");
  EXPECT_EQ(setting(), "2");
}

TEST_F(IniSettings, WhatWasSetAsideIsNeverOverwritten) {
  for (const char* bytes : {"first", "second", "third"}) {
    setText(bytes);
    EXPECT_EQ(setting(), std::nullopt);
  }
  EXPECT_EQ(scratch.contents("settings.ini.damaged-1"), "first");
  EXPECT_EQ(scratch.contents("settings.ini.damaged-2"), "second");
  EXPECT_EQ(scratch.contents("settings.ini.damaged-3"), "third");
}

TEST_F(IniSettings, EveryKindOfDamageIsSetAside) {
  for (const std::string& bytes :
       {std::string("key=before any group\n"), std::string("[App/Setting\nsetting=1\n"),
        std::string("[App/Setting]\nno sign\n"), "[App/Setting]\nsetting=1\n\0x=2\n"s,
        std::string((1 << 20) + 1, '#')}) {
    setText(bytes);
    EXPECT_EQ(setting(), std::nullopt) << bytes.substr(0, 40);
    EXPECT_NE(store.trouble(), "") << bytes.substr(0, 40);
  }
}

TEST_F(IniSettings, AFolderOrAPipeInThePlaceIsSetAside) {
  std::filesystem::create_directory(file);
  write("1");
  EXPECT_TRUE(std::filesystem::is_directory(file + ".damaged-1"));
  std::filesystem::remove(file);
  mkfifo(file.c_str(), 0644);
  EXPECT_EQ(setting(), std::nullopt);
  EXPECT_TRUE(scratch.exists("settings.ini.damaged-2"));
}

TEST_F(IniSettings, ANewFileIsTheUsersOwnAndAnOldOneKeepsItsRights) {
  const auto mode = [&] {
    struct stat status;
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
  };
  write("1");
  EXPECT_EQ(mode(), 0600u);
  chmod(file.c_str(), 0644);
  write("2");
  EXPECT_EQ(mode(), 0644u);
}

TEST_F(IniSettings, ALinkIsFollowed) {
  scratch.addFile("dotfiles/velmarion.ini", "[App/Setting]\nsetting=1\n");
  std::filesystem::create_symlink("dotfiles/velmarion.ini", file);
  write("2");
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(scratch.contents("dotfiles/velmarion.ini"), "[App/Setting]\nsetting=2\n");
}

TEST_F(IniSettings, LeaveNoOtherFileBehindAndDoNotWriteWhatIsThere) {
  write("1");
  const auto before = std::filesystem::last_write_time(file);
  struct stat first, second;
  stat(file.c_str(), &first);
  write("1");
  stat(file.c_str(), &second);
  EXPECT_EQ(first.st_ino, second.st_ino);
  EXPECT_EQ(std::filesystem::last_write_time(file), before);
  int entries = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(scratch.path()))
    ++entries;
  EXPECT_EQ(entries, 1);
}

TEST_F(IniSettings, RefuseToOutgrowTheirFile) {
  write("1");
  EXPECT_THROW(write(std::string(2 << 20, 'x')), platform::Failure);
  EXPECT_EQ(setting(), "1");
}

TEST_F(IniSettings, AFileThatMayNotBeReadIsLeftAlone) {
  setText("[App/Setting]\nsetting=1\n");
  chmod(file.c_str(), 0000);
  chmod(scratch.path().c_str(), 0777);
  EXPECT_EXIT(
      {
        becomeNobody();
        int failures = 0;
        std::string why;
        try {
          setting();
        } catch (const platform::Failure& failure) {
          ++failures;
          why = failure.what();
        }
        try {
          write("2");
        } catch (const platform::Failure&) {
          ++failures;
        }
        _exit(failures == 2 && why == file + ": Permission denied" ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
  chmod(file.c_str(), 0644);
  EXPECT_EQ(text(), "[App/Setting]\nsetting=1\n");
  EXPECT_FALSE(scratch.exists("settings.ini.damaged-1"));
}

TEST_F(IniSettings, AFailedWriteKeepsTheTextBefore) {
  setText("[App/Setting]\nsetting=1\n");
  chmod(file.c_str(), 0644);
  chmod(scratch.path().c_str(), 0555);
  EXPECT_EXIT(
      {
        becomeNobody();
        try {
          write("2");
        } catch (const platform::Failure& failure) {
          const bool clear =
              std::string(failure.what()).find("Permission denied") != std::string::npos;
          _exit(clear && setting() == "1" ? 0 : 1);
        }
        _exit(2);
      },
      ::testing::ExitedWithCode(0), "");
  EXPECT_EQ(text(), "[App/Setting]\nsetting=1\n");
}

TEST_F(IniSettings, DamageThatCannotBeSetAsideIsNotOverwritten) {
  setText("garbage");
  chmod(file.c_str(), 0666);
  chmod(scratch.path().c_str(), 0555);
  EXPECT_EXIT(
      {
        becomeNobody();
        try {
          write("2");
        } catch (const platform::Failure& failure) {
          _exit(std::string(failure.what()).find("not be set aside") != std::string::npos ? 0 : 1);
        }
        _exit(2);
      },
      ::testing::ExitedWithCode(0), "");
  EXPECT_EQ(text(), "garbage");
}

TEST_F(IniSettings, AFolderThatCannotBeMadeIsAFailure) {
  scratch.addFile("occupied");
  IniSettingsStore blocked(scratch.path("occupied/velmarion/settings.ini"));
  EXPECT_EQ(blocked.read("App", "Setting", "setting"), std::nullopt);
  EXPECT_THROW(blocked.write("App", "Setting", "setting", "1"), platform::Failure);
}

TEST(KeyFileText, EscapesWhatALineCannotHoldAndNothingElse) {
  EXPECT_EQ(escapedValue("plain [text]=;#"), "plain [text]=;#");
  EXPECT_EQ(escapedValue(" a b "), "\\sa b\\s");
  EXPECT_EQ(escapedValue("\\x41"), "\\\\x41");
  EXPECT_EQ(unescapedValue("\\q\\x4\\xZZ\\"), "\\q\\x4\\xZZ\\");
}

TEST(KeyFileText, EveryByteComesBack) {
  std::string all;
  for (int first = 0; first < 256; ++first)
    for (int second = 0; second < 256; ++second) {
      const std::string text{static_cast<char>(first), static_cast<char>(second)};
      EXPECT_EQ(unescapedValue(escapedValue(text)), text);
      all += text;
    }
  EXPECT_EQ(unescapedValue(escapedValue(all)), all);
}

}  // namespace
}  // namespace nerolith::system
