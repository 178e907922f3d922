#include "platform/linux/sound/libav_graph.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"

namespace nerolith::sound {

using platform::Failure;

LibavGraph::LibavGraph(const DeckSurroundings& surroundings) : surroundings_(surroundings) {}

LibavGraph::~LibavGraph() {
  if (voice_) surroundings_.mixer.remove(voice_);
}

void LibavGraph::renderFile(const std::string& path) {
  if (voice_) throw Failure("This deck already holds a file.");
  surroundings_.output.prepare();
  auto thread = std::make_unique<DecodeThread>(surroundings_.retired, surroundings_.open, path);
  const std::int64_t frames = thread->waitUntilReady(surroundings_.openPatience);
  voice_ = std::make_shared<DeckVoice>(thread->feed(), frames);
  thread_ = std::move(thread);
  surroundings_.mixer.add(voice_);
}

void LibavGraph::run() {
  surroundings_.mixer.run(rendered());
  surroundings_.output.wake();
}

void LibavGraph::pause() { surroundings_.mixer.halt(rendered()); }

void LibavGraph::stop() {
  if (voice_) surroundings_.mixer.halt(voice_);
}

double LibavGraph::duration() const {
  return static_cast<double>(rendered()->totalFrames()) / kSampleRate;
}

double LibavGraph::currentPosition() const {
  if (!voice_) return 0;
  const std::int64_t heard = surroundings_.output.heardFrames();
  return static_cast<double>(surroundings_.mixer.positionHeard(voice_, heard)) / kSampleRate;
}

void LibavGraph::setCurrentPosition(double seconds) {
  const DeckMixer::Voice& voice = rendered();
  if (!(seconds >= 0 && seconds <= duration())) {
    throw Failure("The position lies outside the song.");
  }
  const std::int64_t frame = std::llround(seconds * kSampleRate);
  surroundings_.mixer.moveTo(voice, std::min(frame, voice->totalFrames()));
}

std::int32_t LibavGraph::volume() const {
  rendered();
  return volume_;
}

void LibavGraph::setVolume(std::int32_t hundredthsOfDecibel) {
  const DeckMixer::Voice& voice = rendered();
  if (hundredthsOfDecibel < -10000 || hundredthsOfDecibel > 0) {
    throw Failure("The volume lies outside -10000 to 0.");
  }
  volume_ = hundredthsOfDecibel;
  surroundings_.mixer.setGain(voice, gainOfVolume(volume_));
}

const DeckMixer::Voice& LibavGraph::rendered() const {
  if (!voice_) throw Failure("This deck holds no file.");
  return voice_;
}

}  // namespace nerolith::sound
