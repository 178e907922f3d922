// Pictures of the window's states, for people to look at: written to NEROLITH_SCREENSHOTS, or to
// out/screenshots in the source tree.
#include <QDir>
#include <QMenu>
#include <QPainter>

#include "platform/linux/widgets/drive_combo.h"
#include "platform/linux/widgets/face_button.h"
#include "platform/linux/widgets/position_slider.h"
#include "platform/linux/widgets/qt_picture_loader.h"
#include "platform/linux/widgets/song_list_view.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class Gallery : public ShownForm {
 protected:
  void SetUp() override {
    fillSongs();
    ShownForm::SetUp();
    fillSongs();
    form.captionLabel.setCaption("Quendrel Nerolith v1.0");
    form.timeKind.setCaption("remaining");
    form.Label1.setForeColour(controls::kBasicPalette[2]);
    form.Drive1.setDrives({{"/", "System"}, {"/home", "Home"}});
    form.Drive1.setDrive("/home");
    form.Text2.setText("/home/anna/Music/Evenings/");
    form.form.setPicture(
        QtPictureLoader().load(std::string(NEROLITH_SOURCE_DIR) + "/assets/skin.jpg"));
  }

  void fillSongs() {
    std::vector<std::string> songs = {
        "A walk after rain.mp3", "Amber lamps.wav",  "Blue hour on the harbour.mp3",
        "Copper roofs.mp3",      "Evening tram.wma", "First frost.mp3",
        "Harbour bells.aif",     "Last ferry.mp3",   "Lighthouse.mp3"};
    songs.push_back(
        "Letters that were never sent, and what became of them in the long winter of "
        "that year, read aloud by the fire while the snow fell on the roofs, part 2.mp3");
    for (int i = 1; i < 119; ++i) songs.push_back("Night train " + std::to_string(i) + ".mp3");
    form.List1.setItems(std::move(songs));
    form.List1.rowMarks = [](int row) {
      return controls::RowMarks{
          .played = row < 2 || row == 7, .recent = row == 5 || row == 8, .playing = row == 2};
    };
  }

  void play() {
    form.Label9.setCaption("Blue hour on the harbour");
    form.Label1.setCaption("02:14");
    form.mixIn.setCaption("mix in 2:04");
    form.HScroll1.setMax(250);
    form.HScroll1.setValue(103);
    form.HScroll1.setEndMark("mix");
    form.deckWordA.setForeColour(0x99A38D);
    form.deckLevelA.setValue(22);
    form.deckLevelB.setValue(96);
    for (int i : {2, 3}) form.Label6[static_cast<std::size_t>(i)].setBackColour(controls::kRed);
    form.Label10[0].setBackColour(controls::kGreen);
    form.List1.setListIndex(2);
    form.List1.setSelected(4, true);
    form.List1.setSelected(5, true);
    form.Label2.setCaption("2");
    form.Label3.setCaption("128");
    form.Label4.setCaption("09:40");
  }

  void save(const QString& name, QWidget* what = nullptr) {
    QCoreApplication::processEvents();
    const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
    const QDir folder(asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                      : asked);
    ASSERT_TRUE(folder.mkpath("."));
    const QImage seen = (what ? what : window)->grab().toImage();
    EXPECT_GT(seen.width(), 100);
    EXPECT_TRUE(seen.save(folder.filePath(name + ".png")));
  }
};

TEST_F(Gallery, Stopped) {
  form.Label6[0].setBackColour(controls::kRed);
  save("window-stopped");
}

TEST_F(Gallery, Playing) {
  play();
  form.List1.setFocus();
  save("window-playing");
}

TEST_F(Gallery, PausedWithNextDisabledAndLongNames) {
  play();
  form.Label9.setCaption(
      "Letters that were never sent, and what became of them in the long winter of that year");
  form.Text2.setText("/home/anna/Music/" + std::string(120, 'x') + "/Evenings/");
  form.Command4.setCaption("&Resume");
  form.Command3.setEnabled(false);
  form.Label4.setEnabled(false);
  form.Label10[2].setBackColour(controls::kYellow);
  form.Label1.setForeColour(controls::kBasicPalette[1]);
  form.notice.setCaption("The sound server does not answer; playing goes on once it is back.");
  form.List1.setListIndex(9);
  form.List1.setSelected(9, true);
  save("window-paused");
}

TEST_F(Gallery, FoldersOpen) {
  play();
  form.Dir1.setPath("/home/anna/Music");
  form.Dir1.setContents({"/", "/home", "/home/anna", "/home/anna/Music"},
                        {"Evenings", "Mornings", "On the road", "Winter"});
  form.Dir1.setVisible(true);
  widget<DriveCombo>("Drive").setFocus();
  save("window-folders");
}

TEST_F(Gallery, Smallest) {
  play();
  window->resize(window->minimumSizeHint());
  save("window-smallest");
}

TEST_F(Gallery, LightSkin) {
  play();
  controls::Picture paper{1, 1, {0xFFD8D2C4}};
  form.form.setPicture(paper);
  save("window-light-skin");
}

TEST_F(Gallery, KeyboardOnAFace) {
  play();
  form.form.setPicture({});
  findWidget<FaceButtonView>(*window, [](auto& w) {
    return w.text() == "&Stop";
  })->setFocus(Qt::TabFocusReason);
  save("window-focus");
}

TEST_F(Gallery, SixteenColours) {
  play();
  auto& time = widget<QWidget>("Time");
  QImage sheet(time.width() * 4, time.height() * 4, QImage::Format_RGB32);
  QPainter painter(&sheet);
  for (int i = 0; i < 16; ++i) {
    form.Label1.setForeColour(controls::kBasicPalette[static_cast<std::size_t>(i)]);
    const QRect place(time.mapTo(window, QPoint()), time.size());
    painter.drawPixmap((i % 4) * time.width(), (i / 4) * time.height(), window->grab(place));
  }
  painter.end();
  const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
  EXPECT_TRUE(sheet.save((asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                          : asked) +
                         "/sixteen-colours.png") ||
              !QDir(asked).exists());
}

TEST_F(Gallery, Menu) {
  controls::MenuItem menu, songs("Selection functions"), lists("Playlist actions"), line("-"),
      settings("Settings"), tag("Tag selected as played");
  songs.setItems({&tag});
  lists.setItems({&tag});
  menu.setItems({&songs, &lists, &line, &settings});
  form.form.popUpMenu(menu);
  save("menu", findWidget<QMenu>(*window, [](const QMenu& m) { return m.isVisible(); }));
  for (QWidget* child : window->findChildren<QWidget*>())
    if (dynamic_cast<QMenu*>(child)) child->close();
}

}  // namespace
}  // namespace nerolith::widgets
