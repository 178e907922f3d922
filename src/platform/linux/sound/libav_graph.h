// One deck of the player on Linux.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/patience.h"
#include "base/retired_threads.h"
#include "platform/filter_graph.h"
#include "platform/linux/sound/deck_mixer.h"
#include "platform/linux/sound/decode_thread.h"
#include "platform/linux/sound/open_source.h"
#include "platform/linux/sound/sound_output.h"

namespace nerolith::sound {

/// What all decks share; outlives them.
struct DeckSurroundings {
  DeckMixer& mixer;
  SoundOutput& output;
  base::RetiredThreads& retired;
  SourceOpener open;
  base::Patience::Limits openPatience;
};

/// Opening and decoding happen on a thread of the deck's own; the calls here only wait for the
/// opening (five seconds at the most without a byte read, ten seconds in all).
class LibavGraph : public platform::FilterGraph {
 public:
  explicit LibavGraph(const DeckSurroundings& surroundings);
  ~LibavGraph() override;

  void renderFile(const std::string& path) override;
  void run() override;
  void pause() override;
  void stop() override;
  double duration() const override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;
  std::int32_t volume() const override;
  void setVolume(std::int32_t hundredthsOfDecibel) override;

 private:
  const DeckMixer::Voice& rendered() const;

  const DeckSurroundings& surroundings_;
  std::unique_ptr<DecodeThread> thread_;
  DeckMixer::Voice voice_;  // empty until a file is rendered
  std::int32_t volume_ = 0;
};

}  // namespace nerolith::sound
