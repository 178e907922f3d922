// Everything that works on the song list's selection, bound to the menu and the keys.
#pragma once

#include <vector>

#include "app/neighbours.h"
#include "base/signal.h"
#include "forms/main_form.h"
#include "forms/main_menu.h"
#include "library/deletion_list.h"
#include "library/fast_keys.h"
#include "library/selection_functions.h"
#include "library/song_list.h"
#include "library/song_removal.h"
#include "library/total_playtime.h"
#include "platform/machine.h"
#include "settings/live_settings.h"
#include "settings/stored_settings.h"

namespace nerolith::app {

/// Subscribes the items of the menu's "Selection functions" and F1 to F10; the Del key comes
/// through `removeSelected`. Lives as long as the main window; what is handed over outlives it.
class ListWork final : public SelectionActions {
 public:
  ListWork(const platform::Machine& machine, forms::MainForm& form, forms::MainMenu& menu,
           library::SongList& songs, const settings::LiveSettings& live,
           const settings::StoredSettings& stored);
  ListWork(const ListWork&) = delete;
  ListWork& operator=(const ListWork&) = delete;

  void removeSelected() override { removal_.removeSelected(); }
  void deleteMarkedFiles() override { deletions_.deleteAll(files_); }

 private:
  void bind(forms::MainMenu& menu);

  platform::FileSystem& files_;
  library::DeletionList deletions_;
  library::SongRemoval removal_;
  library::SelectionFunctions functions_;
  library::TotalPlaytime playtime_;
  library::FastKeys fastKeys_;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::app
