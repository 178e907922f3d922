#include "program_fixture.h"

namespace nerolith::app {
namespace {

class CommandLineRun : public ProgramTest {
 protected:
  CommandLineRun() {
    storeEarlierRun("3");
    addSongs("C:\\Music", 3);
    addSongs("D:\\music", 2);
    machine.files.addFile("D:\\music\\z.mp3", {.duration = 30});
  }
};

TEST_F(CommandLineRun, AQuestionMarkShowsTheUsageTextAndEndsTheProgram) {
  machine.dialogs.answer(platform::Answer::Ok);
  start("?");
  EXPECT_EQ(machine.dialogs.lastMessage().text, "Velmarion.exe [filename] [1,2,3]");
  EXPECT_TRUE(machine.quitAsked());
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

TEST_F(CommandLineRun, TwoAloneStartsInAutoNextWithNoFile) {
  start("2");
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\");
  EXPECT_EQ(playing(), "a.mp3");
}

TEST_F(CommandLineRun, OneAloneStartsNothing) {
  start("1");
  EXPECT_TRUE(form().Option1.value());
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  EXPECT_EQ(form().List1.listIndex(), 0);
}

TEST_F(CommandLineRun, APathOpensItsFolderAndPlaysTheFileInTheGivenMode) {
  start("d:\\music\\z.mp3,3");
  EXPECT_TRUE(form().Option3.value());
  EXPECT_EQ(playing(), "z.mp3");
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

TEST_F(CommandLineRun, APathWithoutAModePlaysInSingle) {
  start("D:\\music\\z.mp3");
  EXPECT_TRUE(form().Option1.value());
  EXPECT_EQ(playing(), "z.mp3");
}

TEST_F(CommandLineRun, ANameWithoutAFolderLeavesTheFolder) {
  start("b.mp3,2");
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\");
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(CommandLineRun, AFileThatIsNotListedSelectsTheFirstAndInSinglePlaysNothing) {
  start("D:\\music\\missing.mp3");
  EXPECT_EQ(form().List1.listIndex(), 0);
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

TEST_F(CommandLineRun, AFileThatIsNotListedStartsAtTheTopInAutoNext) {
  start("D:\\music\\missing.mp3,2");
  EXPECT_EQ(playing(), "a.mp3");
  EXPECT_EQ(form().Text2.text(), "D:\\music\\");
}

TEST_F(CommandLineRun, AFolderIsOpenedWithOrWithoutItsLastSeparator) {
  for (const char* text : {"D:\\music\\,2", "D:\\music,2"}) {
    start(text);
    EXPECT_EQ(form().Text2.text(), "D:\\music\\") << text;
    EXPECT_EQ(form().List1.count(), 3) << text;
    EXPECT_EQ(playing(), "a.mp3") << text;
    program.reset();
  }
}

TEST_F(CommandLineRun, ARelativePathCountsFromWhereTheProgramWasStarted) {
  addSongs("C:\\Music\\Evening", 2);
  machine.files.setCurrentDirectory("C:\\Music");
  start("Evening\\b.mp3");
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\Evening\\");
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(CommandLineRun, OddTextsEndInAUsablePlayer) {
  for (const char* text :
       {",3", "4", ",", ",,,,", "Q:\\nowhere\\a.mp3,2", "\\", "   ", "\xFF\xFE"}) {
    start(text);
    EXPECT_TRUE(form().form.visible()) << text;
    form().List1.userActivate(1);
    EXPECT_EQ(machine.decks.audibleGraphs() > 0, true) << text;
    machine.advance(1s);
    program.reset();
  }
}

TEST_F(CommandLineRun, AFileOnTheCommandLineKeepsTheRememberedFolder) {
  start("D:\\music\\z.mp3");
  machine.clearTrace();
  form().form.close();
  EXPECT_EQ(machine.trace({Door::Settings}).find("Path/path"), std::string::npos);
  EXPECT_EQ(*machine.settings.stored("Velmarion", "Path", "path"), "C:\\Music");
}

}  // namespace
}  // namespace nerolith::app
