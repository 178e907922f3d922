#include "library/song_removal.h"

#include <algorithm>

#include "base/failure_policy.h"

namespace nerolith::library {

void SongRemoval::removeSelected() {
  base::endQuietly([this] { remove(); });
}

void SongRemoval::remove() {
  const Flags going = selection();
  bool marking = false;
  if (markingOn_()) {
    // The player plays on while the question stands: a file must never be deleted because a mix
    // selected it, or because other entries have come to stand at these positions.
    const std::vector<std::string> asked = songs_.list1().items();
    const std::string prefix = songs_.text2().text();
    marking = userWantsDeletion();
    if (songs_.list1().items() != asked || songs_.text2().text() != prefix) return;
  }
  const controls::ListBox::Walk hidden(songs_.list1());
  songs_.readListCount();
  if (marking) mark(going);
  const int playing = playingPositionWithout(going);
  shiftPlayedTags(going);
  songs_.list1().removeWhere(going);
  if (playing != songs_.playingPosition()) songs_.setPlayingPosition(playing);
}

SongRemoval::Flags SongRemoval::selection() const {
  Flags flags(static_cast<std::size_t>(songs_.list1().count()));
  for (std::size_t i = 0; i < flags.size(); ++i)
    flags[i] = songs_.list1().selected(static_cast<int>(i)) ? 1 : 0;
  return flags;
}

bool SongRemoval::userWantsDeletion() {
  return dialogs_.showMessage({"Mark selected files for deletion, when closing program?",
                               platform::MessageIcon::None, platform::MessageButtons::YesNo,
                               platform::Answer::No}) == platform::Answer::Yes;
}

// In playlist mode too the prefix stands before the entry: unless it was emptied, no file exists
// at such a path, and nothing is deleted at close.
void SongRemoval::mark(const Flags& going) {
  const auto& entries = songs_.list1().items();
  for (std::size_t i = going.size(); i-- > 0;)
    if (going[i]) deletions_.mark(songs_.text2().text() + entries[i]);
}

void SongRemoval::shiftPlayedTags(const Flags& going) {
  int last = static_cast<int>(going.size()) - 1;
  while (last >= 0 && going[static_cast<std::size_t>(last)]) --last;
  if (last < 0) return;

  const auto tag = [this](int i) { return i < SongList::kTagged && songs_.played(i); };
  const bool lastTag = tag(last);
  int to = 0;
  for (int from = 0; from <= last && to < SongList::kTagged; ++from) {
    if (going[static_cast<std::size_t>(from)]) continue;
    if (to != from) songs_.setPlayed(to, tag(from));
    ++to;
  }
  // Moving the tags up one by one leaves the last entry's tag behind at each step.
  for (const int end = std::min(last + 1, SongList::kTagged); to < end; ++to)
    songs_.setPlayed(to, lastTag);
}

int SongRemoval::playingPositionWithout(const Flags& going) const {
  const int playing = songs_.playingPosition();
  if (playing < 0 || going[static_cast<std::size_t>(playing)]) return -1;
  return playing - static_cast<int>(std::count(going.begin(), going.begin() + playing, 1));
}

}  // namespace nerolith::library
