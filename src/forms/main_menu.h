// The main window's pop-up menu, as data.
#pragma once

#include "controls/menu.h"

namespace nerolith::forms {

/// Items keep the names that the player's rules know them by. Key hints are part of the captions.
struct MainMenu {
  MainMenu();
  MainMenu(const MainMenu&) = delete;
  MainMenu& operator=(const MainMenu&) = delete;

  /// Leaves in the menu only what does something: an item with no subscriber is hidden, and so is
  /// a submenu with nothing left in it. Returns whether anything is left.
  bool showWhatWorks();

  controls::MenuItem menu;

  controls::MenuItem funct{"Selection functions"};
  controls::MenuItem selunp{"Select unplayed files"};
  controls::MenuItem tag{"Tag selected as played"};
  controls::MenuItem untag{"Tag selected as unplayed"};
  controls::MenuItem remove{"Remove selected from list    (Del)"};
  controls::MenuItem playtime{"Total selected playtime"};

  controls::MenuItem action{"Playlist actions"};
  controls::MenuItem mnuAddQuick{"Add file(s) to last opened playlist  (alt-Q)"};
  controls::MenuItem open{"Import Playlistfiles                         (alt-I)"};
  controls::MenuItem add{"Add selected file(s) to playlist       (alt-A)"};
  controls::MenuItem create{"Clear playlist file                            (alt-C)"};
  controls::MenuItem Update_Playlist{"Update Playlistfile                         (alt-U)"};

  controls::MenuItem mnuRecord{"Recording section"};
  controls::MenuItem form2aan{"Settings"};
};

}  // namespace nerolith::forms
