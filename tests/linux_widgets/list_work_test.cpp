// The whole player in its real windows: the menu, what it does to the list, and the question.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QShortcutEvent>
#include <QTimer>

#include "app/program.h"
#include "platform/linux/widgets/face_button.h"
#include "platform/linux/widgets/qt_dialogs.h"
#include "platform/linux/widgets/song_list_view.h"
#include "platform/simulated/simulated_machine.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

using namespace std::chrono_literals;

class PlayerOnScreen : public testing::Test {
 protected:
  void SetUp() override {
    machine.files.addFolder("/music");
    machine.files.setCurrentDirectory("/music");
    for (const char* name : {"amber", "blue", "copper", "dawn", "ebb"})
      machine.files.addFile("/music/" + std::string(name) + ".mp3", {.duration = 200});
    machine.settings.set("Microsoft Visual Basic AddIns", "Setting", "color", "10");
    machine.settings.set("Microsoft Visual Basic AddIns", "Setting", "setting", "1");
    machine.clock.setReadingTime(1ms);
    const platform::Machine m = machine.doors();
    program = std::make_unique<app::Program>(platform::Machine{
        m.graphs, m.files, m.settings, dialogs, m.pictures, m.clock, m.events, host, m.bytes,
        m.encoding, m.capture, m.tone, m.output, m.media, m.power, m.icon});
    program->start("");
    machine.advance(0ms);
    window = host.windowOf(program->mainForm().form);
    ASSERT_NE(window, nullptr);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, 2000));
  }
  void TearDown() override {
    closeMenus();
    program.reset();
  }

  forms::MainForm& form() { return program->mainForm(); }
  QMenu* menu() const { return dynamic_cast<QMenu*>(QApplication::activePopupWidget()); }
  void closeMenus() {
    while (QWidget* open = QApplication::activePopupWidget()) open->close();
    QCoreApplication::processEvents();
  }
  SongListView& list() { return *findWidget<SongListView>(*window); }

  /// Down to an item by the arrow keys, then Enter; the first word may name a submenu.
  void choose(const QStringList& path) {
    QTest::keyClick(list().viewport(), Qt::Key_Menu);
    for (const QString& word : path) {
      ASSERT_NE(menu(), nullptr) << word.toStdString();
      for (int step = 0; step < 20; ++step) {
        const QAction* here = menu()->activeAction();
        if (here && here->text() == word) break;
        QTest::keyClick(menu(), Qt::Key_Down);
      }
      QTest::keyClick(menu(), word == path.back() ? Qt::Key_Return : Qt::Key_Right);
    }
    QCoreApplication::processEvents();
  }
  void select(std::vector<int> positions) {
    form().List1.deselectAll();
    for (const int position : positions) form().List1.setSelected(position, true);
  }
  /// What is selected, by first letters.
  std::string selected() {
    std::string letters;
    for (int i = 0; i < form().List1.count(); ++i)
      if (form().List1.selected(i)) letters += form().List1.item(i).front();
    return letters;
  }
  /// Does `act` to the question once it is on the screen.
  void whenAsked(std::function<void(QDialog&)> act) {
    QTimer::singleShot(50, window, [act] {
      auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
  }
  void removeWithQuestion(std::function<void(QDialog&)> act) {
    machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
    whenAsked(std::move(act));
    QTest::keyClick(list().viewport(), Qt::Key_Delete);
  }
  static void save(QWidget& what, const QString& name) {
    const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
    const QDir folder(asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                      : asked);
    ASSERT_TRUE(folder.mkpath("."));
    EXPECT_TRUE(what.grab().save(folder.filePath(name)));
  }

  platform::simulated::SimulatedMachine machine{'/'};
  QtDialogs dialogs;
  QtWindowHost host;
  std::unique_ptr<app::Program> program;
  FormWindow* window = nullptr;
};

QAction* itemOf(const QMenu& menu, const QString& caption) {
  for (QAction* action : menu.actions())
    if (action->text() == caption && action->isVisible()) return action;
  return nullptr;
}

std::string captionsOf(const QAction& submenu) {
  QStringList captions;
  for (const QAction* action : submenu.menu()->actions()) captions << action->text();
  return captions.join('|').toStdString();
}

TEST_F(PlayerOnScreen, TheMenuOpensByEveryWayToIt) {
  QTest::mousePress(list().viewport(), Qt::RightButton, {}, QPoint(60, 10));
  EXPECT_NE(menu(), nullptr);
  closeMenus();
  QTest::keyClick(list().viewport(), Qt::Key_Menu);
  EXPECT_NE(menu(), nullptr);
  closeMenus();
  auto* options =
      findWidget<FaceButtonView>(*window, [](auto& w) { return w.text() == "&Options"; });
  QTest::mouseClick(options, Qt::LeftButton);
  EXPECT_NE(menu(), nullptr);
  closeMenus();
  EXPECT_EQ(options->shortcut(), QKeySequence(Qt::ALT | Qt::Key_O));
  QShortcutEvent altO(options->shortcut(), 0);
  QApplication::sendEvent(options, &altO);
  EXPECT_NE(menu(), nullptr);
  closeMenus();
  program->mainForm().Label8[5].userClick();
  EXPECT_NE(menu(), nullptr);
}

TEST_F(PlayerOnScreen, ItsCaptionsStandToTheLetter) {
  QTest::keyClick(list().viewport(), Qt::Key_Menu);
  ASSERT_NE(menu(), nullptr);
  QAction* functions = itemOf(*menu(), "Selection functions");
  ASSERT_NE(functions, nullptr);
  EXPECT_NE(itemOf(*menu(), "Settings"), nullptr);
  EXPECT_EQ(captionsOf(*functions),
            "Select unplayed files|Tag selected as played|Tag selected as unplayed|"
            "Remove selected from list    (Del)|Total selected playtime");
  QAction* actions = itemOf(*menu(), "Playlist actions");
  ASSERT_NE(actions, nullptr);
  EXPECT_EQ(captionsOf(*actions),
            "Add file(s) to last opened playlist  (alt-Q)|"
            "Import Playlistfiles                         (alt-I)|"
            "Add selected file(s) to playlist       (alt-A)|"
            "Clear playlist file                            (alt-C)|"
            "Update Playlistfile                         (alt-U)");
}

TEST_F(PlayerOnScreen, TheSelectionFunctionsWorkThroughTheMenu) {
  const QString functions = "Selection functions";
  select({1, 3});
  choose({functions, "Tag selected as played"});
  choose({functions, "Select unplayed files"});
  EXPECT_EQ(selected(), "ace");
  select({3});
  choose({functions, "Tag selected as unplayed"});
  choose({functions, "Select unplayed files"});
  EXPECT_EQ(selected(), "acde");
  select({1, 2});
  choose({functions, "Total selected playtime"});
  EXPECT_EQ(form().Label4.caption(), "06:50");  // twice 200 s, and the lead of 10 s at the end
  choose({functions, "Remove selected from list    (Del)"});
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"amber.mp3", "dawn.mp3", "ebb.mp3"}));
}

TEST_F(PlayerOnScreen, SettingsOpensItsWindow) {
  choose({"Settings"});
  EXPECT_TRUE(host.windowOf(program->settingsForm().form)->isVisible());
}

TEST_F(PlayerOnScreen, DelRemovesWithoutAQuestionWhileMarkingIsOff) {
  select({0, 4});
  QTest::keyClick(list().viewport(), Qt::Key_Delete);
  EXPECT_EQ(form().List1.count(), 3);
}

TEST_F(PlayerOnScreen, TheQuestionStandsToTheLetterAndEnterAnswersNo) {
  select({0, 4});
  QString said, preset;
  removeWithQuestion([&](QDialog& dialog) {
    said = dialog.accessibleDescription();
    preset = findWidget<QPushButton>(dialog, [](auto& b) { return b.isDefault(); })->text();
    save(dialog, "deletion-question.png");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(said, "Mark selected files for deletion, when closing program?");
  EXPECT_EQ(preset, "&No");
  EXPECT_EQ(form().List1.count(), 3);
  form().form.close();
  EXPECT_NE(machine.files.find("/music/amber.mp3"), nullptr);
}

TEST_F(PlayerOnScreen, YesDeletesTheFilesAtTheCloseAndNotBefore) {
  select({0, 4});
  removeWithQuestion([](QDialog& dialog) {
    QTest::mouseClick(findWidget<QPushButton>(dialog, [](auto& b) { return b.text() == "&Yes"; }),
                      Qt::LeftButton);
  });
  EXPECT_EQ(form().List1.count(), 3);
  EXPECT_NE(machine.files.find("/music/amber.mp3"), nullptr);
  form().form.close();
  EXPECT_EQ(machine.files.find("/music/amber.mp3"), nullptr);
  EXPECT_EQ(machine.files.find("/music/ebb.mp3"), nullptr);
  EXPECT_NE(machine.files.find("/music/blue.mp3"), nullptr);
}

TEST_F(PlayerOnScreen, AFunctionKeySelectsInRandomAndShiftAdds) {
  form().Option3.setValue(true);
  machine.advance(0ms);
  program->settingsForm().Text6.setText("b");
  program->settingsForm().Text7.setText("D");
  form().List1.deselectAll();
  QTest::keyClick(list().viewport(), Qt::Key_F1);
  EXPECT_EQ(selected(), "b");
  QTest::keyClick(list().viewport(), Qt::Key_F2, Qt::ShiftModifier);
  EXPECT_EQ(selected(), "bd");
  QTest::keyClick(list().viewport(), Qt::Key_F2);
  EXPECT_EQ(selected(), "d");
}

// The last picture before the end is the one with most of the bar.
TEST_F(PlayerOnScreen, PictureOfACountThatGoesOn) {
  machine.decks.setReadingTime(300ms);
  machine.timeline.setYieldTime(100ms);
  int pictures = 0;
  const auto seen = form().playtimeDone.changed.subscribe([&] {
    if (!form().playtimeDone.visible() || form().playtimeDone.caption() != "3 of 5") return;
    save(*window, "playtime-count.png");
    ++pictures;
    EXPECT_EQ(form().Label4.caption(), "Counting");
    const auto* bar = findNamed<QWidget>(*window, "Songs counted");
    ASSERT_NE(bar, nullptr);
    const QImage drawn = window->grab(QRect(bar->mapTo(window, QPoint()), bar->size())).toImage();
    const int middle = drawn.height() / 2;
    EXPECT_NE(drawn.pixel(drawn.width() / 2, middle), drawn.pixel(drawn.width() * 4 / 5, middle));
  });
  select({0, 1, 2, 3, 4});
  choose({"Selection functions", "Total selected playtime"});
  EXPECT_GT(pictures, 0);
  EXPECT_EQ(form().Label4.caption(), "16:50");
}

TEST_F(PlayerOnScreen, PictureOfTheMenu) {
  QTest::keyClick(list().viewport(), Qt::Key_Menu);
  ASSERT_NE(menu(), nullptr);
  save(*menu(), "menu-main.png");
  QTest::keyClick(menu(), Qt::Key_Down);
  QTest::keyClick(menu(), Qt::Key_Right);
  ASSERT_NE(menu(), nullptr);
  save(*menu(), "menu-selection.png");
}

}  // namespace
}  // namespace nerolith::widgets
