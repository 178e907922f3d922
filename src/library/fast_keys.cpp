#include "library/fast_keys.h"

#include <string_view>

#include "base/failure_policy.h"
#include "base/letter_case.h"

namespace nerolith::library {

FastKeys::FastKeys(controls::Form& window, const controls::OptionButton& random, SongList& songs,
                   const settings::LiveSettings& live, char separator)
    : random_(random), songs_(songs), live_(live), separator_(separator) {
  subscription_ = window.keyDown.subscribe(
      [this](controls::KeyPress press) { base::goOn([&] { pressed(press); }); });
}

void FastKeys::pressed(const controls::KeyPress& press) {
  if (!random_.value() || press.alt || press.control) return;
  if (press.key < controls::Key::F1 || press.key > controls::Key::F10) return;
  const int key = static_cast<int>(press.key) - static_cast<int>(controls::Key::F1);
  selectNamed(live_.keyTexts[static_cast<std::size_t>(key)], press.shift);
}

void FastKeys::selectNamed(const std::string& beginning, bool adding) {
  if (beginning.empty()) return;
  const std::string wanted = base::foldCase(beginning);
  controls::ListBox& list = songs_.list1();
  const controls::ListBox::Walk hidden(list);
  if (!adding) list.deselectAll();
  const int count = songs_.readListCount();
  for (int i = 0; i < count; ++i) {
    std::string_view name = list.item(i);
    name.remove_prefix(name.rfind(separator_) + 1);  // no separator: npos + 1 is 0
    if (base::foldCase(name).starts_with(wanted)) list.setSelected(i, true);
  }
}

}  // namespace nerolith::library
