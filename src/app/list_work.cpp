#include "app/list_work.h"

namespace nerolith::app {

ListWork::ListWork(const platform::Machine& machine, forms::MainForm& form, forms::MainMenu& menu,
                   library::SongList& songs, const settings::LiveSettings& live,
                   const settings::StoredSettings& stored)
    : files_(machine.files),
      removal_(songs, machine.dialogs, deletions_,
               [&stored] { return stored.readMarkForDeletion(); }),
      functions_(songs, machine.clock),
      playtime_(form, songs, live, machine.graphs, machine.events),
      fastKeys_(form.form, form.Option3, songs, live, machine.files.separator()) {
  bind(menu);
}

void ListWork::bind(forms::MainMenu& menu) {
  const auto on = [this](controls::MenuItem& item, auto action) {
    subscriptions_.push_back(item.click.subscribe(action));
  };
  on(menu.selunp, [this] { functions_.selectUnplayed(); });
  on(menu.tag, [this] { functions_.tagSelected(); });
  on(menu.untag, [this] { functions_.untagSelected(); });
  on(menu.remove, [this] { removal_.removeSelected(); });
  on(menu.playtime, [this] { playtime_.count(); });
}

}  // namespace nerolith::app
