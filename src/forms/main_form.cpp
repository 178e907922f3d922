#include "forms/main_form.h"

namespace nerolith::forms {
namespace {

using controls::Box;
using controls::column;
using controls::leaf;
using controls::Look;
using controls::row;
using controls::space;
using controls::words;

Box captionStrip(MainForm& f) {
  return row({leaf(&f.captionLabel, Look::Title), space(), leaf(&f.Label5[1], Look::CaptionKey),
              leaf(&f.Label5[0], Look::CaptionKey)})
      .spaced(4, 0);
}

Box timeColumn(MainForm& f) {
  return column({leaf(&f.Label1, Look::Digital), leaf(&f.timeKind, Look::Tag)})
      .spaced(0, 0)
      .sized(236, 0);
}

Box modeRow(MainForm& f) {
  std::vector<Box> boxes;
  for (std::size_t i = 0; i < f.Label6.size(); ++i)
    boxes.push_back(leaf(controls::LampSwitch{&f.Label6[i], &f.Label7[i]}, Look::LampText));
  boxes.push_back(space());
  return row(std::move(boxes)).spaced(18, 0);
}

Box deckRow(MainForm& f) {
  return row({leaf(&f.deckWordA), leaf(&f.deckLevelA).sized(88, 5), leaf(&f.deckWordB),
              leaf(&f.deckLevelB).sized(88, 5), leaf(&f.mixIn, Look::Dim), space()})
      .spaced(10, 0);
}

Box glass(MainForm& f) {
  Box now =
      column({leaf(&f.Label9, Look::Song), leaf(&f.notice, Look::Notice), deckRow(f), modeRow(f)})
          .spaced(6, 0)
          .stretched(1);
  return row({timeColumn(f), std::move(now)}).spaced(18, 14).with(Look::Glass);
}

Box transport(MainForm& f) {
  const std::array<controls::CommandButton*, 6> buttons = {&f.Command1, &f.Command3, &f.Command4,
                                                           &f.Command2, &f.Command5, &f.Command7};
  std::vector<Box> boxes;
  for (std::size_t i = 0; i < f.Label8.size(); ++i) {
    controls::Label* lamp = i < f.Label10.size() ? &f.Label10[i] : nullptr;
    boxes.push_back(leaf(controls::FaceButton{&f.Label8[i], buttons[i], lamp}, Look::Transport)
                        .stretched(1)
                        .sized(0, 46));
  }
  return row(std::move(boxes));
}

Box browser(MainForm& f) {
  return row({leaf(&f.Drive1).sized(170, 28), leaf(&f.Text2, Look::Well).stretched(1)});
}

Box foot(MainForm& f) {
  return row({leaf(&f.Label2, Look::Figure), words("selected", Look::Dim), space(0).sized(10, 0),
              leaf(&f.Label3, Look::Figure), leaf(&f.listWord, Look::Dim),
              leaf(&f.folderNotice, Look::Notice).stretched(1),
              leaf(&f.playtimeBar, Look::Progress).sized(120, 6), space(0).sized(2, 0),
              leaf(&f.playtimeDone, Look::Dim), space(0).sized(14, 0),
              words("Total selected playtime", Look::Dim), leaf(&f.Label4, Look::Figure)})
      .spaced(6, 0);
}

void setCaptions(MainForm& f) {
  f.form.setCaption("Nerolith");
  f.captionLabel.setCaption("Quendrel Nerolith");
  f.Label5[0].setCaption("\xC3\x97");
  f.Label5[0].setAccessibleName("Close");
  f.Label5[1].setCaption("\xE2\x80\x93");
  f.Label5[1].setAccessibleName("Hide");
  f.Command1.setCaption("P&lay");
  f.Command2.setCaption("&Stop");
  f.Command3.setCaption("Play &Next");
  f.Command4.setCaption("&Pause");
  f.Command5.setCaption("Refresh");
  f.Command7.setCaption("&Options");
  f.Option1.setCaption("Single");
  f.Option2.setCaption("Auto next");
  f.Option3.setCaption("Random");
  f.Check1.setCaption("loop");
  const std::array<const char*, 4> modes = {"Single", "Auto next", "Random", "loop"};
  for (std::size_t i = 0; i < modes.size(); ++i) f.Label7[i].setCaption(modes[i]);
  f.deckWordA.setCaption("A");
  f.deckWordB.setCaption("B");
  f.Label1.setCaption("00:00");
  f.Label2.setCaption("0");
  f.Label3.setCaption("0");
  f.listWord.setCaption("songs");
  f.Label4.setCaption("00:00");
}

void setToolTips(MainForm& f) {
  f.Label1.setToolTip("Left mouse to invert. Right mouse to chance color");
  f.Label2.setToolTip("Select count");
  f.Label3.setToolTip("List count");
  f.notice.setToolTip("Playing goes on at the same place as soon as sound can be heard again");
  f.playtimeBar.setToolTip("Esc ends the count");
  f.playtimeDone.setToolTip("Esc ends the count");
  f.Label4.setToolTip("Total selected playtime (dd:hh:mm:ss)");
  f.Command5.setToolTip("Refresh filelist, Clear randomlist");
  f.Drive1.setToolTip("drive/path");
}

void setAccessibleNames(MainForm& f) {
  f.Label1.setAccessibleName("Time");
  f.Label2.setAccessibleName("Select count");
  f.Label3.setAccessibleName("List count");
  f.Label4.setAccessibleName("Total selected playtime");
  f.playtimeBar.setAccessibleName("Songs counted");
  f.Label9.setAccessibleName("Song");
  f.notice.setAccessibleName("Trouble with the sound");
  f.mixIn.setAccessibleName("Next mix");
  f.folderNotice.setAccessibleName("Trouble with the folder");
  f.playtimeDone.setAccessibleName("Counted so far");
  f.List1.setAccessibleName("Songs");
  f.List1.setEmptyHint("No songs in this folder");
  f.HScroll1.setAccessibleName("Position");
  f.Drive1.setAccessibleName("Drive");
  f.Dir1.setAccessibleName("Folders");
  f.Text2.setAccessibleName("Folder");
  f.deckLevelA.setAccessibleName("Level of deck A");
  f.deckLevelB.setAccessibleName("Level of deck B");
}

}  // namespace

MainForm::MainForm() {
  controls::OptionButton::group({&Option1, &Option2, &Option3});
  setCaptions(*this);
  setToolTips(*this);
  setAccessibleNames(*this);
  listCounted_ = Label3.changed.subscribe(
      [this] { listWord.setCaption(Label3.caption() == "1" ? "song" : "songs"); });
  File1.setPattern("*.mp?;*.wav;*wma;*.asf;*.mid;*.ai?");
  Dir1.setVisible(false);
  playtimeBar.setVisible(false);
  playtimeDone.setVisible(false);
  form.addTimer(Timer1);
  form.addOverlay({&Dir1, &Drive1});
  form.setVisible(false);
  form.setLayout(
      column({captionStrip(*this), glass(*this), leaf(&HScroll1).sized(0, 30), transport(*this),
              browser(*this), leaf(&List1, Look::SongList).stretched(1), foot(*this)})
          .spaced(8, 14));
}

}  // namespace nerolith::forms
