#include "library/selection_functions.h"

#include <algorithm>

#include "base/failure_policy.h"

namespace nerolith::library {

void SelectionFunctions::waitATenth() const {
  const double end = clock_.secondsSinceMidnight() + 0.1;
  while (clock_.secondsSinceMidnight() < end) {
  }
}

void SelectionFunctions::selectUnplayed() {
  base::endQuietly([this] {
    controls::ListBox& list = songs_.list1();
    const int count = songs_.readListCount();
    {
      const controls::ListBox::Walk hidden(list);
      waitATenth();
      for (int i = 0; i < count; ++i) list.setSelected(i, !songs_.played(i));
    }
    list.setFocus();
  });
}

void SelectionFunctions::setTags(bool played) {
  base::endQuietly([this, played] {
    if (songs_.listCount() < 1) return;
    controls::ListBox& list = songs_.list1();
    // Positions past the list's end hold no entry, and none that is selected.
    const int count = std::min(songs_.listCount(), list.count());
    for (int i = 0; i < count; ++i)
      if (list.selected(i)) songs_.setPlayed(i, played);
    if (list.listIndex() >= 0) list.setSelected(list.listIndex(), true);
  });
}

}  // namespace nerolith::library
