#include "library/song_list.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"

namespace nerolith::library {
namespace {

std::size_t tagIndex(int position) {
  if (position < 0 || position >= SongList::kTagged)
    throw base::Failure("Position " + std::to_string(position) + " lies outside the played tags.");
  return static_cast<std::size_t>(position);
}

}  // namespace

std::string displayName(std::string_view entry, char separator) {
  const auto dot = entry.rfind('.');
  if (dot == entry.npos) return std::string(entry);
  const auto slash = entry.rfind(separator);
  const auto start = slash == entry.npos ? 0 : slash + 1;
  // A dot in a folder's name only: there is no ending to cut off.
  if (start > dot) return std::string(entry.substr(start));
  return std::string(entry.substr(start, dot - start));
}

SongList::SongList(controls::ListBox& list1, controls::TextBox& text1, controls::TextBox& text2)
    : list1_(list1),
      text1_(text1),
      text2_(text2),
      playedTags_(kTagged, base::kFalse),
      recentFlags_(kTagged, base::kFalse) {
  list1_.rowMarks = [this](int position) { return marksOf(position); };
  mouseDown_ = list1_.mouseDown.subscribe([this](controls::MouseButton) { held = true; });
  mouseUp_ = list1_.mouseUp.subscribe([this](controls::MouseButton) { held = false; });
}

controls::RowMarks SongList::marksOf(int position) const {
  const bool tagged = position >= 0 && position < kTagged;
  const auto i = static_cast<std::size_t>(position);
  return {tagged && base::isSet(playedTags_[i]), tagged && base::isSet(recentFlags_[i]),
          position == playingPosition_};
}

bool SongList::played(int position) const { return base::isSet(playedTags_[tagIndex(position)]); }

void SongList::setPlayed(int position, bool played) {
  playedTags_[tagIndex(position)] = base::toFlag(played);
  list1_.touchMarks();
}

void SongList::clearPlayedTags() {
  std::fill(playedTags_.begin(), playedTags_.end(), base::kFalse);
  list1_.touchMarks();
}

bool SongList::anyUnplayed(int count) const {
  for (int i = 0; i < count; ++i)
    if (!played(i)) return true;
  return false;
}

bool SongList::recent(int position) const { return base::isSet(recentFlags_[tagIndex(position)]); }

void SongList::setRecent(int position, bool recent) {
  recentFlags_[tagIndex(position)] = base::toFlag(recent);
  list1_.touchMarks();
}

void SongList::clearRecentFlags() {
  std::fill(recentFlags_.begin(), recentFlags_.end(), base::kFalse);
  anyRecent = false;
  ++recentClearings_;
  list1_.touchMarks();
}

void SongList::setMode(ListMode mode) {
  if (std::exchange(mode_, mode) == mode) return;
  findPlaying();
  list1_.touchMarks();
}

void SongList::setPlayingPosition(int position) {
  const bool listed = position >= 0 && position < list1_.count();
  playingPosition_ = listed ? position : -1;
  playingPath_ = listed ? pathOf(list1_.item(position)) : std::string();
  list1_.touchMarks();
}

void SongList::findPlaying() {
  playingPosition_ = -1;
  const std::string prefix = pathOf("");
  if (playingPath_.empty() || playingPath_.compare(0, prefix.size(), prefix) != 0) return;
  const std::string_view entry = std::string_view(playingPath_).substr(prefix.size());
  const auto& items = list1_.items();
  const auto found = std::find(items.begin(), items.end(), entry);
  if (found != items.end()) playingPosition_ = static_cast<int>(found - items.begin());
}

std::string SongList::pathOf(std::string_view entry) const {
  std::string path = mode_ == ListMode::Playlist ? std::string() : text2_.text();
  return path.append(entry);
}

void SongList::deselectAll() {
  readListCount();
  list1_.deselectAll();
}

void SongList::reselectCurrent() {
  const auto& items = list1_.items();
  const auto found = std::find(items.begin(), items.end(), text1_.text());
  if (found != items.end()) {
    const int position = static_cast<int>(found - items.begin());
    list1_.setListIndex(position);
    list1_.setSelected(position, true);
  } else if (!items.empty()) {
    list1_.setListIndex(0);
  }
}

void SongList::refill(std::vector<std::string> entries) {
  const controls::ListBox::Walk hidden(list1_);
  list1_.setItems(std::move(entries));
  readListCount();
  findPlaying();
  reselectCurrent();
  clearPlayedTags();
  clearRecentFlags();
}

void SongList::fillFromPlaylist(std::vector<std::string> entries) {
  const controls::ListBox::Walk hidden(list1_);
  list1_.setItems(std::move(entries));
  readListCount();
  mode_ = ListMode::Playlist;
  findPlaying();
  clearPlayedTags();
  clearRecentFlags();
}

}  // namespace nerolith::library
