// The main window, as data.
#pragma once

#include <array>

#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/progress_bar.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace nerolith::forms {

/// Controls keep the names that the player's rules know them by. Captions, tooltips and layout are
/// set when it is made; what they do is subscribed by the parts.
struct MainForm {
  MainForm();
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  controls::Form form;

  controls::Label captionLabel;            // the product's name, with the version
  controls::Label Label1;                  // time of the song; left click inverts, right recolours
  controls::Label Label2;                  // how many entries are selected
  controls::Label Label3;                  // how many entries the list has
  controls::Label Label4;                  // total playtime of the selection
  std::array<controls::Label, 2> Label5;   // close, hide
  std::array<controls::Label, 4> Label6;   // lamps: Single, Auto next, Random, loop
  std::array<controls::Label, 4> Label7;   // the words beside those lamps
  std::array<controls::Label, 6> Label8;   // faces: play, next, pause, stop, refresh, options
  controls::Label Label9;                  // display name of the song
  std::array<controls::Label, 5> Label10;  // lamps in the faces of Label8
  controls::Label timeKind;                // says whether time is elapsed or remaining
  controls::Label deckWordA, deckWordB;    // "A", "B", lit for the current deck
  controls::ProgressBar deckLevelA, deckLevelB;  // how loud each deck is set
  controls::Label mixIn;                         // time left to the mix
  controls::Label notice;                        // what is wrong with the sound, if anything is
  controls::Label folderNotice;                  // why a folder could not be shown
  controls::Label listWord;                      // "songs", or "song" where the list has one
  controls::ProgressBar playtimeBar;             // how far the count of the playtime is
  controls::Label playtimeDone;                  // "12 of 1,000": the same in numbers

  controls::CommandButton Command1;  // start or resume the current deck
  controls::CommandButton Command2;  // stop
  controls::CommandButton Command3;  // play next; disabled while a start is under way
  controls::CommandButton Command4;  // pause, resume
  controls::CommandButton Command5;  // refresh
  controls::CommandButton Command7;  // options

  controls::OptionButton Option1;  // Single
  controls::OptionButton Option2;  // Auto next
  controls::OptionButton Option3;  // Random
  controls::CheckBox Check1;       // loop

  controls::ScrollBar HScroll1;  // position in the song, whole seconds

  controls::TextBox Text1;  // entry text of the song last started
  controls::TextBox Text2;  // folder prefix
  controls::ListBox List1;  // the songs

  controls::DriveListBox Drive1;
  controls::DirListBox Dir1;
  controls::FileListBox File1;

  controls::Timer Timer1{std::chrono::milliseconds(100)};

 private:
  base::Subscription listCounted_;
};

}  // namespace nerolith::forms
