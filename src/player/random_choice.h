// Which song random play takes.
#pragma once

#include <cstdint>

#include "library/song_list.h"
#include "player/random_source.h"

namespace nerolith::player {

/// How often a recently changed file is slipped in.
struct RecentRule {
  bool enabled = false;
  /// The most songs in a row that are not recent.
  std::int16_t after = 0;
};

/// A position of `count`, each as likely as the others; 0 when there is none.
int drawPosition(RandomSource& random, int count);

/// Draws until the song is unplayed, and recent when it is a recent one's turn; `candidate` is the
/// first draw. Needs an unplayed one among the first `count`. `recentCount` counts the picks since
/// the last recent file: one found by chance leaves it at 1, a forced one at 0. A draw above
/// position 10000 fails.
int chooseRandom(const library::SongList& songs, int count, int candidate, RandomSource& random,
                 const RecentRule& rule, std::int16_t& recentCount);

}  // namespace nerolith::player
