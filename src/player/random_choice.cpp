#include "player/random_choice.h"

namespace nerolith::player {
namespace {

struct RecentEntries {
  bool any = false;
  bool anyUnplayed = false;
};

RecentEntries lookForRecent(const library::SongList& songs, int count) {
  RecentEntries found;
  for (int i = 0; i < count && !found.anyUnplayed; ++i) {
    if (!songs.recent(i)) continue;
    found.any = true;
    found.anyUnplayed = !songs.played(i);
  }
  return found;
}

}  // namespace

int drawPosition(RandomSource& random, int count) {
  return static_cast<int>(random.draw() * count);
}

int chooseRandom(const library::SongList& songs, int count, int candidate, RandomSource& random,
                 const RecentRule& rule, std::int16_t& recentCount) {
  int index = candidate;
  while (songs.played(index)) index = drawPosition(random, count);
  if (!rule.enabled || !songs.anyRecent) return index;

  const bool byChance = songs.recent(index);
  if (byChance) recentCount = 0;
  if (recentCount < INT16_MAX) ++recentCount;
  if (byChance || recentCount <= rule.after) return index;

  recentCount = 0;
  const RecentEntries there = lookForRecent(songs, count);
  // The last recent entry may have been removed from the list since the marks were set.
  if (!there.any) return index;
  while (!songs.recent(index) || (there.anyUnplayed && songs.played(index)))
    index = drawPosition(random, count);
  return index;
}

}  // namespace nerolith::player
