#include "platform/linux/sound/open_source.h"

#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/libav_source.h"
#include "platform/linux/sound/midi_source.h"
#include "platform/linux/sound/mpeg_audio_source.h"
#include "platform/linux/sound/packet_scan.h"

namespace nerolith::sound {

std::unique_ptr<AudioSource> openSource(const std::string& path, base::JobWatch& watch) {
  // Damaged files are part of a music library; what libav thinks of them is for nobody's terminal.
  av_log_set_level(AV_LOG_QUIET);
  auto file = std::make_unique<FileReader>(path, watch);
  if (isMidi(*file)) return std::make_unique<MidiSource>(*file);
  if (const auto song = findMpegSong(*file)) {
    return std::make_unique<MpegAudioSource>(std::move(file), *song);
  }
  return std::make_unique<LibavSource>(std::move(file));
}

}  // namespace nerolith::sound
