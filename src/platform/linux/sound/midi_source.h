// MIDI files, played by FluidSynth with the SoundFont of the distribution.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/linux/sound/audio_source.h"
#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/midi_score.h"

namespace nerolith::sound {

bool isMidi(const FileReader& file);

/// Length in frames of the mix, as a `MidiSource` would tell it: of that is needed a SoundFont, of
/// this the score alone. Fails (`platform::Failure`) for a file without notes.
std::int64_t midiFrames(const FileReader& file);

/// We time the events ourselves and only ask FluidSynth for the sound between them: the length is
/// known at once, and a seek need not render all that comes before it.
class MidiSource : public AudioSource {
 public:
  /// Fails (`platform::Failure`) for a file without notes, or if no SoundFont is installed.
  explicit MidiSource(const FileReader& file);
  ~MidiSource() override;

  std::int64_t totalFrames() const override { return score_.frames; }
  std::size_t read(std::span<Frame> out) override;
  void seek(std::int64_t frame) override;

 private:
  struct Synth;

  void send(const MidiEvent& event);
  void render(std::span<Frame> out);

  MidiScore score_;
  std::unique_ptr<Synth> synth_;
  std::size_t nextEvent_ = 0;
  std::int64_t position_ = 0;
};

}  // namespace nerolith::sound
