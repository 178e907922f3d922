#include "player/deck.h"

#include <utility>

#include "platform/failure.h"

namespace nerolith::player {

platform::FilterGraph& Deck::need() const {
  if (!graph) throw platform::Failure("There is no playback unit.");
  return *graph;
}

void Deck::render(const std::string& path) {
  need().renderFile(path);
  loaded_ = true;
}

void Deck::setVolume(std::int32_t hundredthsOfDecibel) {
  need().setVolume(hundredthsOfDecibel);
  level_ = hundredthsOfDecibel;
}

void Deck::replaceGraph(std::unique_ptr<platform::FilterGraph> fresh) {
  graph = std::move(fresh);
  loaded_ = false;
  level_.reset();
}

}  // namespace nerolith::player
