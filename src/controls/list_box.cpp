#include "controls/list_box.h"

#include <algorithm>

#include "base/failure.h"

namespace nerolith::controls {

void ListBox::check(int position) const {
  if (position < 0 || position >= count())
    throw base::Failure("There is no entry " + std::to_string(position) + " in the list.");
}

void ListBox::tell(int what) {
  pending_ |= what;
  if (hidden()) return;
  const int told = std::exchange(pending_, 0);
  if (told & Items) itemsChanged.raise();
  if (told & (Items | Selection)) selectionChanged.raise();
  if (told & (Items | Marks)) marksChanged.raise();
}

const std::string& ListBox::item(int position) const {
  check(position);
  return items_[static_cast<std::size_t>(position)];
}

void ListBox::clear() { setItems({}); }

void ListBox::addItem(std::string text) {
  items_.push_back(std::move(text));
  selected_.push_back(0);
  tell(Items);
}

void ListBox::setItems(std::vector<std::string> items) {
  items_ = std::move(items);
  selected_.assign(items_.size(), 0);
  selectedCount_ = 0;
  listIndex_ = -1;
  tell(Items);
}

void ListBox::removeItem(int position) {
  check(position);
  std::vector<char> flags(items_.size(), 0);
  flags[static_cast<std::size_t>(position)] = 1;
  removeWhere(flags);
}

void ListBox::removeWhere(const std::vector<char>& flags) {
  std::size_t kept = 0;
  int index = listIndex_;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (i < flags.size() && flags[i]) {
      selectedCount_ -= selected_[i] ? 1 : 0;
      if (listIndex_ == static_cast<int>(i)) index = -1;
      continue;
    }
    if (listIndex_ == static_cast<int>(i)) index = static_cast<int>(kept);
    if (kept != i) {
      items_[kept] = std::move(items_[i]);
      selected_[kept] = selected_[i];
    }
    ++kept;
  }
  items_.resize(kept);
  selected_.resize(kept);
  listIndex_ = index;
  tell(Items);
}

void ListBox::setListIndex(int position) {
  if (position != -1) check(position);
  if (position == listIndex_) return;
  listIndex_ = position;
  tell(Selection);
  click.raise();
}

bool ListBox::selected(int position) const {
  check(position);
  if (selecting_ == Selecting::One) return position == listIndex_;
  return selected_[static_cast<std::size_t>(position)] != 0;
}

int ListBox::selectedCount() const {
  if (selecting_ == Selecting::One) return listIndex_ < 0 ? 0 : 1;
  return selectedCount_;
}

void ListBox::setSelecting(Selecting selecting) {
  deselectAll();
  selecting_ = selecting;
  tell(Selection);
}

void ListBox::setSelected(int position, bool selected) {
  check(position);
  if (selecting_ == Selecting::One) return;
  char& flag = selected_[static_cast<std::size_t>(position)];
  if ((flag != 0) == selected) return;
  flag = selected ? 1 : 0;
  selectedCount_ += selected ? 1 : -1;
  tell(Selection);
}

void ListBox::deselectAll() {
  if (selectedCount_ == 0) return;
  std::fill(selected_.begin(), selected_.end(), char{0});
  selectedCount_ = 0;
  tell(Selection);
}

void ListBox::selectAll() {
  if (selecting_ == Selecting::One || selectedCount_ == count()) return;
  std::fill(selected_.begin(), selected_.end(), char{1});
  selectedCount_ = count();
  tell(Selection);
}

ListBox::Walk::Walk(ListBox& list) : list_(list) { ++list_.walks_; }

ListBox::Walk::~Walk() {
  if (--list_.walks_ == 0) list_.tell(0);
}

void ListBox::userMoveTo(int position) {
  if (enabled() && position >= -1 && position < count()) setListIndex(position);
}

void ListBox::userActivate(int position) {
  if (!enabled() || position < 0 || position >= count()) return;
  setListIndex(position);
  dblClick.raise();
}

void ListBox::userClickRow(int position, MouseButton button) {
  if (enabled() && position >= -1 && position < count()) rowClick.raise(position, button);
}

}  // namespace nerolith::controls
