#include "player/decks.h"

#include "base/failure_policy.h"

namespace nerolith::player {

Decks::Decks(platform::FilterGraphFactory& graphs, const settings::LiveSettings& settings,
             PlayerState& state)
    : graphs_(graphs), settings_(settings), state_(state) {
  release(a);
  release(b);
}

Deck* Decks::current() {
  if (aIsCurrent()) return &a;
  return bIsCurrent() ? &b : nullptr;
}

const Deck* Decks::current() const {
  if (aIsCurrent()) return &a;
  return bIsCurrent() ? &b : nullptr;
}

void Decks::release(Deck& deck) {
  base::goOn([&] {
    if (deck.graph) deck.graph->stop();
  });
  // A graph plays one file only: even when no fresh one can be made, the old one goes.
  std::unique_ptr<platform::FilterGraph> fresh;
  base::goOn([&] { fresh = graphs_.createFilterGraph(); });
  deck.replaceGraph(std::move(fresh));
  deck.fadeOut = base::kFalse;
  state_.fadeSteps = settings_.fadeLength;
}

void Decks::loadFrom(Deck& old, Deck& next, const std::string& path) {
  old.fadeOut = base::kTrue;
  // The length may have been set since the last release, as it is at start-up.
  state_.fadeSteps = settings_.fadeLength;
  // A third song cannot wait for the second fade to end. A deck whose fade broke off, or whose song
  // never ran, has to be emptied all the same.
  if (base::isSet(next.fadeOut) || next.loaded() || !next.graph) release(next);
  next.render(path);
}

void Decks::loadOther(const std::string& path) {
  if (aIsCurrent()) loadFrom(a, b, path);
  if (bIsCurrent()) loadFrom(b, a, path);
  currentDeckIsA = base::complement(currentDeckIsA);
}

void Decks::setMixLatches() {
  a.mixLatch = base::kTrue;
  b.mixLatch = base::kTrue;
}

}  // namespace nerolith::player
