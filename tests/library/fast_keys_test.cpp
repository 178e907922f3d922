#include "library/fast_keys.h"

#include "library/browser_window.h"

namespace nerolith::library {
namespace {

using controls::Key;

struct Keys : BrowserWindow {
  settings::LiveSettings live;
  FastKeys keys{form.form, form.Option3, songs, live, '\\'};

  void SetUp() override {
    songs.refill({"Abba.mp3", "abc.mp3", "Bach.mp3", "\xC3\x89tude.mp3"});
    form.Option3.setValue(true);
    live.keyTexts = {"ab", "B", "", "\xC3\xA9", "zz", "", "", "", "", "abc"};
  }
  void press(int number, bool shift = false, bool alt = false, bool control = false) {
    const auto key = static_cast<Key>(static_cast<int>(Key::F1) + number - 1);
    form.form.keyDown.raise({.key = key, .shift = shift, .control = control, .alt = alt});
  }
  std::string selected() {
    std::string marks;
    for (int i = 0; i < form.List1.count(); ++i) marks += form.List1.selected(i) ? 'x' : '-';
    return marks;
  }
};

TEST_F(Keys, SelectTheEntriesThatBeginWithTheirTextWhateverTheCase) {
  press(1);
  EXPECT_EQ(selected(), "xx--");
  press(4);
  EXPECT_EQ(selected(), "---x");
  press(10);
  EXPECT_EQ(selected(), "-x--");
}

TEST_F(Keys, ShiftAddsToTheSelectionInsteadOfReplacingIt) {
  press(2);
  press(1, true);
  EXPECT_EQ(selected(), "xxx-");
}

TEST_F(Keys, ATextThatNothingBeginsWithLeavesNothingSelected) {
  press(1);
  press(5);
  EXPECT_EQ(selected(), "----");
}

TEST_F(Keys, AnEmptyTextSelectsNothingAndKeepsWhatIsSelected) {
  press(1);
  press(3);
  EXPECT_EQ(selected(), "xx--");
}

TEST_F(Keys, WorkWhileRandomIsChosenOnly) {
  form.Option2.setValue(true);
  press(1);
  EXPECT_EQ(selected(), "----");
}

TEST_F(Keys, LeaveCombinationsWithAltAndControlToTheSystem) {
  press(1, false, true);
  press(1, false, false, true);
  press(0);
  press(11);
  EXPECT_EQ(selected(), "----");
}

TEST_F(Keys, GoByTheFileNameOfAPath) {
  importPlaylist({"C:\\b\\abc.mp3", "C:\\abc\\b.mp3"});
  press(1);
  EXPECT_EQ(selected(), "x-");
}

TEST_F(Keys, KeepTheCurrentPosition) {
  form.List1.setListIndex(2);
  press(1);
  EXPECT_EQ(form.List1.listIndex(), 2);
}

}  // namespace
}  // namespace nerolith::library
