#include "player/random_source.h"

namespace nerolith::player {

// The standard's own distributions differ between libraries; the generator's numbers do not.
double RandomSource::draw() { return static_cast<double>(generator_()) / 4294967296.0; }

void RandomSource::discard(std::uint64_t draws) { generator_.discard(draws); }

}  // namespace nerolith::player
