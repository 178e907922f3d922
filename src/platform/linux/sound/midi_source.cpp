#include "platform/linux/sound/midi_source.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/failure.h"
#include "platform/linux/sound/fluid_library.h"

namespace nerolith::sound {
namespace {

constexpr std::array kSoundFonts = {
    "/usr/share/sounds/sf2/TimGM6mb.sf2",   "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf3/default-GM.sf3", "/usr/share/soundfonts/default.sf2",
    "/usr/share/soundfonts/FluidR3_GM.sf2",
};

/// The end of the last track may cut what still sounds: it fades rather than clicks.
constexpr std::int64_t kEndFadeFrames = kSampleRate / 20;

/// No real score comes near; a file that does is no music.
constexpr std::int64_t kLargestFile = std::int64_t{16} * 1024 * 1024;

std::string installedSoundFont() {
  for (const char* path : kSoundFonts) {
    if (::access(path, R_OK) == 0) return path;
  }
  return {};
}

MidiScore readScore(const FileReader& file) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min(file.size(), kLargestFile)));
  const std::int64_t got = file.readAt(0, bytes);
  bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
  auto score = parseMidi(bytes);
  if (!score || score->frames <= 0) {
    throw platform::Failure("Cannot play " + quotedName(file.path()) + ": it holds no notes.");
  }
  return *std::move(score);
}

void keepSilent(int, const char*, void*) {}

}  // namespace

struct MidiSource::Synth {
  FluidLibrary fluid;
  fluid_settings_t* settings = nullptr;
  fluid_synth_t* synth = nullptr;

  explicit Synth(const std::string& soundFont) {
    for (int level = 0; level < LAST_LOG_LEVEL; ++level) {
      fluid.set_log_function(level, &keepSilent, nullptr);
    }
    settings = fluid.new_settings();
    fluid.settings_setnum(settings, "synth.sample-rate", kSampleRate);
    fluid.settings_setnum(settings, "synth.gain", 0.5);
    // Only the instruments that a song uses are kept in memory.
    fluid.settings_setint(settings, "synth.dynamic-sample-loading", 1);
    synth = fluid.new_synth(settings);
    loaded = synth != nullptr && fluid.sfload(synth, soundFont.c_str(), 1) >= 0;
  }
  ~Synth() {
    fluid.delete_synth(synth);
    fluid.delete_settings(settings);
  }
  Synth(const Synth&) = delete;
  Synth& operator=(const Synth&) = delete;

  bool loaded = false;
};

bool isMidi(const FileReader& file) {
  std::array<std::uint8_t, 12> head{};
  return file.readAt(0, head) == static_cast<std::int64_t>(head.size()) && looksLikeMidi(head);
}

std::int64_t midiFrames(const FileReader& file) { return readScore(file).frames; }

MidiSource::MidiSource(const FileReader& file) : score_(readScore(file)) {
  const std::string soundFont = installedSoundFont();
  if (!soundFont.empty()) synth_ = std::make_unique<Synth>(soundFont);
  if (!synth_ || !synth_->loaded) {
    throw platform::Failure("Cannot play " + quotedName(file.path()) +
                            ": no SoundFont for MIDI is installed (package timgm6mb-soundfont).");
  }
}

MidiSource::~MidiSource() = default;

std::size_t MidiSource::read(std::span<Frame> out) {
  std::size_t done = 0;
  while (done < out.size() && position_ < score_.frames) {
    while (nextEvent_ < score_.events.size() && score_.events[nextEvent_].frame <= position_) {
      send(score_.events[nextEvent_++]);
    }
    const std::int64_t until = nextEvent_ < score_.events.size()
                                   ? std::min(score_.events[nextEvent_].frame, score_.frames)
                                   : score_.frames;
    const std::size_t count =
        std::min(out.size() - done, static_cast<std::size_t>(until - position_));
    render(out.subspan(done, count));
    done += count;
  }
  return done;
}

void MidiSource::render(std::span<Frame> out) {
  synth_->fluid.write_float(synth_->synth, static_cast<int>(out.size()), out.data(), 0, 2,
                            out.data(), 1, 2);
  for (Frame& frame : out) {
    const std::int64_t left = score_.frames - position_++;
    if (left >= kEndFadeFrames) continue;
    const float level = static_cast<float>(left) / static_cast<float>(kEndFadeFrames);
    frame.left *= level;
    frame.right *= level;
  }
}

void MidiSource::send(const MidiEvent& event) {
  const FluidLibrary& fluid = synth_->fluid;
  fluid_synth_t* synth = synth_->synth;
  const int channel = event.status & 0x0F;
  switch (event.status & 0xF0) {
    case 0x80:
      fluid.noteoff(synth, channel, event.first);
      break;
    case 0x90:
      fluid.noteon(synth, channel, event.first, event.second);
      break;
    case 0xA0:
      fluid.key_pressure(synth, channel, event.first, event.second);
      break;
    case 0xB0:
      fluid.cc(synth, channel, event.first, event.second);
      break;
    case 0xC0:
      fluid.program_change(synth, channel, event.first);
      break;
    case 0xD0:
      fluid.channel_pressure(synth, channel, event.first);
      break;
    default:
      fluid.pitch_bend(synth, channel, event.first | event.second << 7);
      break;
  }
}

void MidiSource::seek(std::int64_t frame) {
  synth_->fluid.system_reset(synth_->synth);
  position_ = frame;
  nextEvent_ = 0;
  // Instruments and controls stand as they would; of the notes, only those still held begin anew.
  std::vector<MidiEvent> held;
  for (; nextEvent_ < score_.events.size() && score_.events[nextEvent_].frame < frame;
       ++nextEvent_) {
    const MidiEvent& event = score_.events[nextEvent_];
    const int kind = event.status & 0xF0;
    if (kind != 0x80 && kind != 0x90) {
      send(event);
      continue;
    }
    std::erase_if(held, [&](const MidiEvent& on) {
      return (on.status & 0x0F) == (event.status & 0x0F) && on.first == event.first;
    });
    if (kind == 0x90 && event.second > 0) held.push_back(event);
  }
  for (const MidiEvent& event : held) send(event);
}

}  // namespace nerolith::sound
