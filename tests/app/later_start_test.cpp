#include "program_fixture.h"

namespace nerolith::app {
namespace {

class LaterStart : public ProgramTest {
 protected:
  LaterStart() {
    storeEarlierRun("3");
    addSongs("C:\\Music", 3);
    addSongs("D:\\music", 2);
    addSongs("D:\\music\\Evening", 2);
    start("1");
    machine.files.setCurrentDirectory("C:\\Music");
  }

  void startAgain(const std::string& commandLine, const std::string& directory = "D:\\music") {
    machine.clearTrace();
    program->takeOver({directory, commandLine});
    machine.advance(0ms);
  }
};

TEST_F(LaterStart, WithoutACommandLineOnlyBringsTheWindowBack) {
  form().form.setVisible(false);
  startAgain("");
  EXPECT_TRUE(form().form.visible());
  EXPECT_NE(machine.trace({Door::Windows}).find("windows.forward Nerolith"), std::string::npos);
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  EXPECT_TRUE(form().Option1.value());
}

TEST_F(LaterStart, PlaysTheFileThatItNames) {
  startAgain("D:\\music\\b.mp3");
  EXPECT_EQ(form().Text2.text(), "D:\\music\\");
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(LaterStart, MixesFromTheSongThatPlays) {
  form().List1.userActivate(0);
  machine.advance(3s);
  startAgain("D:\\music\\b.mp3");
  EXPECT_EQ(machine.decks.audibleGraphs(), 2);
}

TEST_F(LaterStart, RelativeNamesCountFromItsOwnFolder) {
  startAgain("Evening\\b.mp3");
  EXPECT_EQ(form().Text2.text(), "D:\\music\\Evening\\");
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(LaterStart, SoDoesABareNameThatIsThere) {
  startAgain("b.mp3");
  EXPECT_EQ(form().Text2.text(), "D:\\music\\");
  EXPECT_EQ(playing(), "b.mp3");
  startAgain("Evening,2");
  EXPECT_EQ(form().Text2.text(), "D:\\music\\Evening\\");
  EXPECT_TRUE(form().Option2.value());
}

TEST_F(LaterStart, ABareNameThatIsNotThereIsLookedForInTheList) {
  startAgain("c.mp3");
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\");
  EXPECT_EQ(playing(), "c.mp3");
}

TEST_F(LaterStart, ImportsAPlaylist) {
  startAgain("best.m3u");
  EXPECT_EQ(playlists.remembered, "D:\\music\\best.m3u");
}

TEST_F(LaterStart, AModeAloneStartsInIt) {
  startAgain("2");
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(playing(), "a.mp3");
}

TEST_F(LaterStart, AQuestionAboutTheUsageDoesNotEndThePlayer) {
  startAgain("?");
  EXPECT_FALSE(machine.quitAsked());
}

TEST_F(LaterStart, ANameWithACommaIsTakenWhole) {
  machine.files.addFile("D:\\music\\rise, and fall.mp3", {.duration = 30});
  startAgain("D:\\music\\rise, and fall.mp3");
  EXPECT_EQ(playing(), "rise, and fall.mp3");
}

// As the desktop's file browser names it.
TEST_F(LaterStart, SoIsAFolderWithAComma) {
  machine.files.addFile("D:\\Rock, and more\\x.mp3");
  startAgain("D:\\Rock, and more");
  EXPECT_EQ(form().Text2.text(), "D:\\Rock, and more\\");
  EXPECT_EQ(form().List1.count(), 1);
}

TEST_F(LaterStart, AFileKeepsTheRememberedFolderAndALaterModeDoesNotChangeThat) {
  startAgain("D:\\music\\b.mp3");
  startAgain("2");
  form().form.close();
  EXPECT_EQ(*machine.settings.stored("Velmarion", "Path", "path"), "C:\\Music");
}

TEST_F(LaterStart, AfterTheCloseNothingHappens) {
  form().form.close();
  startAgain("D:\\music\\b.mp3");
  EXPECT_FALSE(form().form.visible());
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

}  // namespace
}  // namespace nerolith::app
