#include "forms/editor_form.h"

#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

#include "platform/linux/widgets/song_list_view.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class Editor : public testing::Test {
 protected:
  void SetUp() override {
    form.List1.setItems({"/music/a.mp3", "", "/music/c.mp3"});
    host.add(form.form_4);
    form.form_4.setVisible(true);
    form.List1.setFocus();
    window = host.windowOf(form.form_4);
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, 2000));
    list = findNamed<SongListView>(*window, "Songs of the playlist");
    ASSERT_NE(list, nullptr);
  }
  QPoint middleOf(int row) const { return list->visualRect(list->model()->index(row, 0)).center(); }
  QMenu* openMenu() const {
    return findWidget<QMenu>(*window, [](const QMenu& m) { return m.isVisible(); });
  }
  void save(const QString& name) {
    QCoreApplication::processEvents();
    const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
    const QDir folder(asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                      : asked);
    ASSERT_TRUE(folder.mkpath("."));
    QImage seen = window->grab().toImage();
    if (QMenu* menu = openMenu()) {
      QPainter painter(&seen);
      painter.drawPixmap(window->mapFromGlobal(menu->pos()), menu->grab());
    }
    EXPECT_TRUE(seen.save(folder.filePath(name + ".png")));
  }

  forms::EditorForm form;
  QtWindowHost host;
  FormWindow* window = nullptr;
  SongListView* list = nullptr;
  Heard heard;
};

TEST_F(Editor, ShowsTheLinesAndSaysHowMany) {
  EXPECT_EQ(list->model()->rowCount(), 3);
  EXPECT_EQ(form.lineCount.caption(), "3");
  EXPECT_EQ(form.lineWord.caption(), "lines");
  form.List1.setItems({"/music/a.mp3"});
  EXPECT_EQ(form.lineWord.caption(), "line");
}

TEST_F(Editor, HasExactlyOneEntrySelectedWhateverIsHeld) {
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middleOf(0));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOf(2));
  EXPECT_EQ(form.List1.selectedCount(), 1);
  EXPECT_TRUE(form.List1.selected(2));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(1));
  EXPECT_TRUE(form.List1.selected(1));
  QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(form.List1.selectedCount(), 1);
}

TEST_F(Editor, TheMenuOpenedByAKeyLiesAtTheCurrentEntry) {
  auto keys =
      form.form_4.keyDown.subscribe([&](controls::KeyPress) { form.form_4.popUpMenu(form.menu); });
  form.List1.setListIndex(1);
  QTest::keyClick(list, Qt::Key_Return);
  QMenu* menu = openMenu();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions().size(), 4);
  EXPECT_EQ(list->viewport()->mapFromGlobal(menu->pos()).y(),
            list->visualRect(list->model()->index(1, 0)).bottom());
  menu->close();
}

TEST_F(Editor, FilledAnewItStaysWhereItWasScrolledTo) {
  std::vector<std::string> many;
  for (int i = 0; i < 500; ++i) many.push_back("/music/" + std::to_string(i) + ".mp3");
  form.List1.setItems(many);
  form.List1.setListIndex(300);
  QCoreApplication::processEvents();
  const int before = list->verticalScrollBar()->value();
  EXPECT_GT(before, 1000);
  many.erase(many.begin() + 300);
  {
    const controls::ListBox::Walk hidden(form.List1);
    form.List1.setItems(many);
    form.List1.setListIndex(300);
  }
  QCoreApplication::processEvents();
  EXPECT_NEAR(list->verticalScrollBar()->value(), before, 25);
}

TEST_F(Editor, Picture) {
  std::vector<std::string> songs;
  for (const char* name :
       {"Evenings/A walk after rain", "Evenings/Amber lamps", "Evenings/Blue hour on the harbour",
        "On the road/Copper roofs", "On the road/Evening tram", "Winter/First frost",
        "Winter/Harbour bells"})
    songs.push_back("/home/anna/Music/" + std::string(name) + ".mp3");
  songs.insert(songs.begin() + 3, "");
  songs.push_back("/media/anna/A very long name of a drive that holds the winter of that year/" +
                  std::string("Letters that were never sent, and what became of them.mp3"));
  form.List1.setItems(songs);
  form.waiting.setCaption("3 files to add");
  form.form_4.setCaption("/home/anna/Music/evenings.m3u");
  save("editor");
  form.List1.setListIndex(2);
  auto keys =
      form.form_4.keyDown.subscribe([&](controls::KeyPress) { form.form_4.popUpMenu(form.menu); });
  QTest::keyClick(list, Qt::Key_Return);
  save("editor-menu");
  openMenu()->close();
  form.List1.setItems({});
  form.notice.setCaption("/home/anna/Music/evenings.m3u: No space left on device");
  save("editor-empty");
  window->resize(window->minimumSizeHint());
  form.List1.setItems(songs);
  save("editor-smallest");
}

}  // namespace
}  // namespace nerolith::widgets
