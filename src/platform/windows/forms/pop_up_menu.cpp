#include "platform/windows/forms/pop_up_menu.h"

#include <vector>

#include "platform/windows/forms/gdi.h"
#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

/// Appends the items; each action's number is its place in `actions`, plus one. A submenu belongs
/// to the menu that it was appended to.
void fill(HMENU menu, const controls::MenuItem& items, std::vector<controls::MenuItem*>& actions) {
  for (controls::MenuItem* item : items.items()) {
    if (!item->visible()) continue;
    const UINT state = item->enabled() ? MF_ENABLED : MF_GRAYED;
    const std::wstring caption = wideOf(item->caption());
    if (item->separator()) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else if (!item->items().empty()) {
      PopUp inner(CreatePopupMenu());
      fill(inner.get(), *item, actions);
      if (AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(inner.get()),
                      caption.c_str()))
        inner.release();
    } else {
      actions.push_back(item);
      AppendMenuW(menu, MF_STRING | state, actions.size(), caption.c_str());
    }
  }
}

}  // namespace

void showPopUpMenu(HWND owner, const controls::MenuItem& menu, POINT where) {
  const PopUp popUp(CreatePopupMenu());
  std::vector<controls::MenuItem*> actions;
  fill(popUp.get(), menu, actions);
  const auto chosen = static_cast<std::size_t>(
      TrackPopupMenu(popUp.get(), TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD | TPM_RIGHTBUTTON,
                     where.x, where.y, 0, owner, nullptr));
  if (chosen > 0 && chosen <= actions.size()) quietly([&] { actions[chosen - 1]->userClick(); });
}

}  // namespace nerolith::windows_forms
