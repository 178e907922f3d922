#include "platform/linux/sound/song_measurer.h"

#include <chrono>
#include <cstdlib>

#include "platform/linux/sound/audio_source.h"
#include "platform/linux/sound/midi_source.h"
#include "platform/linux/sound/mpeg_audio_source.h"
#include "platform/linux/sound/packet_scan.h"

namespace nerolith::sound {
namespace {

/// Times of change are coarse, two seconds on a memory stick: a file that was written just now may
/// be written again without showing it.
bool hasSettled(const base::FileStamp& stamp) {
  using namespace std::chrono;
  const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch());
  return std::llabs(now.count() - stamp.changed) > nanoseconds(3s).count();
}

}  // namespace

double SongMeasurer::durationOf(const std::string& path, base::JobWatch& watch) {
  if (const auto stamp = stampOfFile(path)) {
    if (const auto known = known_.recall(path, *stamp)) return *known;
  }
  const FileReader file(path, watch);
  const double seconds = static_cast<double>(framesOf(file, watch)) / kSampleRate;
  if (!file.aborted() && hasSettled(file.stamp())) known_.keep(path, file.stamp(), seconds);
  return seconds;
}

std::int64_t SongMeasurer::framesOf(const FileReader& file, base::JobWatch& watch) {
  if (isMidi(file)) return framesOfMidi(file, watch);
  const auto song = findMpegSong(file);
  const std::int64_t frames = song ? mpegFramesOfMix(file, *song) : 0;
  // What no length was found for may still be something, and if not, the deck knows what to say.
  return frames > 0 ? frames : framesAsADeckTells(file, watch);
}

std::int64_t SongMeasurer::framesOfMidi(const FileReader& file, base::JobWatch& watch) {
  if (midiCanBePlayed_) return midiFrames(file);
  const std::int64_t frames = framesAsADeckTells(file, watch);
  midiCanBePlayed_ = true;
  return frames;
}

std::int64_t SongMeasurer::framesAsADeckTells(const FileReader& file, base::JobWatch& watch) {
  return open_(file.path(), watch)->totalFrames();
}

}  // namespace nerolith::sound
