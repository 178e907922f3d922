#include "forms/main_menu.h"

namespace nerolith::forms {
namespace {

bool showWhatWorksIn(controls::MenuItem& item) {
  if (item.items().empty()) {
    item.setVisible(item.click.hasListeners());
    return item.visible();
  }
  bool any = false;
  for (controls::MenuItem* child : item.items()) any |= showWhatWorksIn(*child);
  item.setVisible(any);
  return any;
}

}  // namespace

MainMenu::MainMenu() {
  funct.setItems({&selunp, &tag, &untag, &remove, &playtime});
  action.setItems({&mnuAddQuick, &open, &add, &create, &Update_Playlist});
  menu.setItems({&funct, &action, &mnuRecord, &form2aan});
}

bool MainMenu::showWhatWorks() { return showWhatWorksIn(menu); }

}  // namespace nerolith::forms
