// One of the two playback units.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/flag16.h"
#include "platform/filter_graph.h"

namespace nerolith::player {

/// A graph and what the player knows of its song. Owned by Decks, which also fills and empties it.
/// A deck without a graph (none could be made) behaves like one with an empty graph.
struct Deck {
  std::unique_ptr<platform::FilterGraph> graph;
  /// Seconds; read when the song starts, kept until the next one does.
  double duration = 0;
  /// Seconds; read on every tick.
  double position = 0;
  /// Each tick lowers the deck's volume until it is released.
  base::Flag16 fadeOut = base::kFalse;
  /// The mix at this song's end was triggered, or must not be yet.
  base::Flag16 mixLatch = base::kFalse;

  /// A song was rendered and not released since.
  bool loaded() const { return loaded_; }
  /// The volume last set, without asking the graph; nothing while none was set for this song.
  std::optional<std::int32_t> level() const { return level_; }

  /// Each is the graph's operation; all fail without a graph, but for the position, which is 0.
  void render(const std::string& path);
  void run() { need().run(); }
  void pause() { need().pause(); }
  std::int32_t volume() const { return need().volume(); }
  void setVolume(std::int32_t hundredthsOfDecibel);
  double currentPosition() const { return graph ? graph->currentPosition() : 0.0; }
  void seek(double seconds) { need().setCurrentPosition(seconds); }

  /// Puts `fresh` in the place of the graph; may be none.
  void replaceGraph(std::unique_ptr<platform::FilterGraph> fresh);

 private:
  platform::FilterGraph& need() const;

  std::optional<std::int32_t> level_;
  bool loaded_ = false;
};

}  // namespace nerolith::player
