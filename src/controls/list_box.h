// A list of texts with one current position and any number of selected entries.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace nerolith::controls {

/// What is shown beside an entry.
struct RowMarks {
  bool played = false;
  bool recent = false;
  bool playing = false;
  bool operator==(const RowMarks&) const = default;
};

/// The model owns all entries; a renderer asks for the rows it shows, so 100,000 entries cost
/// nothing on screen. Events:
/// - current position set to another value, by code or by the user: click.
/// - selecting or deselecting entries, adding, removing: none.
/// - a mouse button pressed and let go on the same place: rowClick.
/// Positions count from 0; a position outside the list throws base::Failure and changes nothing.
class ListBox : public Control {
 public:
  int count() const { return static_cast<int>(items_.size()); }
  const std::string& item(int position) const;
  const std::vector<std::string>& items() const { return items_; }

  void clear();
  void addItem(std::string text);
  /// Replaces all entries at once: no current position, nothing selected.
  void setItems(std::vector<std::string> items);
  /// The current position moves up with the entries; it becomes none when its entry goes.
  void removeItem(int position);
  /// Removes every entry whose flag is set, in one pass; same result as removing one by one.
  void removeWhere(const std::vector<char>& flags);

  /// -1: no current position.
  int listIndex() const { return listIndex_; }
  void setListIndex(int position);

  bool selected(int position) const;
  void setSelected(int position, bool selected);
  void deselectAll();
  void selectAll();
  int selectedCount() const;

  /// One: what is selected is the current entry, always, and the calls that select do nothing.
  enum class Selecting { Many, One };
  void setSelecting(Selecting selecting);

  /// Shown quietly in the middle while the list has no entry.
  const std::string& emptyHint() const { return emptyHint_; }
  void setEmptyHint(std::string words) { assign(emptyHint_, std::move(words)); }

  /// Hides the list while it is walked: renderers are told once, at the end, and nothing repaints
  /// in between. Walks may nest.
  class Walk {
   public:
    explicit Walk(ListBox& list);
    ~Walk();
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

   private:
    ListBox& list_;
  };
  bool hidden() const { return walks_ > 0; }

  base::Signal<> click;
  base::Signal<> dblClick;
  /// A character was typed; 32 is the space bar.
  base::Signal<int> keyPress;
  /// A button was pressed and let go on the entry at this position, or on the room below the
  /// entries (-1). Whatever the left button makes current is so by then; a sweep is no click.
  base::Signal<int, MouseButton> rowClick;

  /// For renderers. Entries came or went; the selection or the current position changed; what is
  /// drawn beside the entries (played, recent, playing) changed.
  base::Signal<> itemsChanged;
  base::Signal<> selectionChanged;
  base::Signal<> marksChanged;
  void touchMarks() { tell(Marks); }
  /// Asked for each row that is drawn; may be empty.
  std::function<RowMarks(int position)> rowMarks;

  /// What the user does: makes `position` current (raises click), starts it (raises dblClick).
  void userMoveTo(int position);
  void userActivate(int position);
  void userClickRow(int position, MouseButton button);

 private:
  enum Told { Items = 1, Selection = 2, Marks = 4 };
  void tell(int what);
  void check(int position) const;

  std::string emptyHint_;
  std::vector<std::string> items_;
  std::vector<char> selected_;
  Selecting selecting_ = Selecting::Many;
  int selectedCount_ = 0;
  int listIndex_ = -1;
  int walks_ = 0;
  int pending_ = 0;
};

}  // namespace nerolith::controls
