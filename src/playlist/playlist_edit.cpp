#include "playlist/playlist_edit.h"

#include <algorithm>

#include "base/failure.h"

namespace nerolith::playlist {
namespace {

void check(const Lines& lines, int position) {
  if (position < 0 || static_cast<std::size_t>(position) >= lines.size())
    throw base::Failure("The playlist has no line " + std::to_string(position + 1) + ".");
}

Lines insert(Lines lines, int position, int behind, const Lines& songs, bool wasEmpty) {
  if (lines.empty()) lines.push_back("\r\n");
  check(lines, position);
  lines.insert(lines.begin() + position + behind, songs.begin(), songs.end());
  if (wasEmpty) lines.pop_back();
  return lines;
}

}  // namespace

int positionOf(int listIndex) { return std::max(listIndex, 0); }

Lines insertBefore(Lines lines, int position, const Lines& songs, bool wasEmpty) {
  return insert(std::move(lines), position, 0, songs, wasEmpty);
}

Lines insertAfter(Lines lines, int position, const Lines& songs, bool wasEmpty) {
  return insert(std::move(lines), position, 1, songs, wasEmpty);
}

Lines replaceLine(Lines lines, int position, const Lines& songs, bool wasEmpty) {
  return removeLine(insert(std::move(lines), position, 1, songs, wasEmpty), position);
}

Lines removeLine(Lines lines, int position) {
  check(lines, position);
  lines.erase(lines.begin() + position);
  return lines;
}

}  // namespace nerolith::playlist
