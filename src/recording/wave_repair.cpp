#include "recording/wave_repair.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

#include "base/failure_policy.h"
#include "platform/failure.h"
#include "recording/sound_layout.h"
#include "recording/wave_format.h"
#include "recording/wave_header.h"

namespace nerolith::recording {
namespace {

using platform::Failure;

constexpr std::int64_t kRiffSizeAt = 4;
constexpr std::int64_t kDataSizeAt = 40;
constexpr std::size_t kPieceOfCopy = 1 << 18;
constexpr std::int64_t kMostRiffSize = std::numeric_limits<std::uint32_t>::max();

std::span<const std::byte> asBytes(std::string_view text) { return std::as_bytes(std::span(text)); }

struct Recording {
  WaveHeader header;
  std::int64_t length = 0;  // behind the header
};

/// The first bytes of a file, or as many as it has.
std::string frontOf(const platform::ByteFiles& bytes, const std::string& path, std::size_t most) {
  struct Enough {};
  std::string front;
  try {
    bytes.read(path, [&](std::string_view block) {
      front += block.substr(0, most - front.size());
      if (front.size() == most) throw Enough();
    });
  } catch (const Enough&) {
  }
  return front;
}

Recording openRecording(const platform::ByteFiles& bytes, const std::string& path) {
  Recording recording;
  recording.length = static_cast<std::int64_t>(bytes.size(path)) - kHeaderBytes;
  const std::optional<WaveHeader> header = headerFrom(frontOf(bytes, path, kHeaderBytes));
  const bool ours = header && header->format == MakeWaveFormat(44100, 2, 16) &&
                    (header->riffSize == 0 ||
                     header->riffSize == recordersRiffSize(std::int64_t{header->dataSize}));
  if (!ours) throw Failure(path + ": is no recording of this player");
  if (recording.length <= 0) throw Failure(path + ": has no sound in it");
  recording.header = *header;
  return recording;
}

std::optional<SoundLayout> finishedLayout(const Recording& recording) {
  if (recording.header.riffSize == 0) return std::nullopt;
  return layoutByHeader(recording.length, recording.header.dataSize);
}

void requireRoom(const std::string& path, std::int64_t riffSize) {
  if (riffSize > kMostRiffSize) throw Failure(path + ": is too large for a WAV file");
}

}  // namespace

RepairReport repairRecording(const platform::ByteFiles& bytes, platform::OutputFiles& output,
                             const std::string& path) {
  const Recording recording = openRecording(bytes, path);
  if (const auto layout = finishedLayout(recording)) return {false, layout->soundBytes()};
  const CutLayout cut = layoutByLength(recording.length);
  const std::int64_t sound = cut.layout.soundBytes();
  if (sound == 0) throw Failure(path + ": has no sound in it");
  requireRoom(path, recordersRiffSize(sound));
  const auto file = output.reopen(path);
  if (file->size() != recording.length + kHeaderBytes)
    throw Failure(path + ": is being written by another program");
  WaveHeader header = recording.header;
  header.riffSize = static_cast<std::uint32_t>(recordersRiffSize(sound));
  header.dataSize = static_cast<std::uint32_t>(sound);
  const HeaderBytes all = headerBytes(header);
  const std::string missing(static_cast<std::size_t>(cut.missing), '\0');
  if (!missing.empty()) file->append(asBytes(missing));
  file->writeAt(kDataSizeAt, std::span(all).subspan(kDataSizeAt, 4));
  file->writeAt(kRiffSizeAt, std::span(all).subspan(kRiffSizeAt, 4));
  file->close();
  return {true, sound};
}

bool isFinished(const platform::ByteFiles& bytes, const std::string& path) {
  return finishedLayout(openRecording(bytes, path)).has_value();
}

std::int64_t writeStandardCopy(const platform::ByteFiles& bytes, platform::OutputFiles& output,
                               const std::string& from, const std::string& to,
                               const std::function<void()>& between) {
  const Recording recording = openRecording(bytes, from);
  if (bytes.same(from, to)) throw Failure(to + ": is the recording itself");
  const std::optional<SoundLayout> finished = finishedLayout(recording);
  const CutLayout cut = layoutByLength(recording.length);
  const SoundLayout layout = finished ? *finished : cut.layout;
  const std::int64_t sound = layout.soundBytes();
  if (sound == 0) throw Failure(from + ": has no sound in it");
  requireRoom(from, standardRiffSize(sound));
  const auto file = output.replace(to);
  file->append(headerBytes({static_cast<std::uint32_t>(standardRiffSize(sound)),
                            recording.header.format, static_cast<std::uint32_t>(sound)}));
  ExtraSampleFilter filter(layout);
  std::string kept;
  std::size_t skipped = 0;
  bytes.read(from, [&](std::string_view block) {
    const std::size_t header = std::min(block.size(), kHeaderBytes - skipped);
    skipped += header;
    kept += filter.soundOf(block.substr(header));
    if (kept.size() >= kPieceOfCopy) {
      file->append(asBytes(kept));
      kept.clear();
    }
    if (between) between();
  });
  if (!kept.empty()) file->append(asBytes(kept));
  const std::int64_t lacking = sound + kHeaderBytes - file->size();
  if (!finished && lacking > 0 && lacking <= cut.missing)  // a cut-off last sample
    file->append(asBytes(std::string(static_cast<std::size_t>(lacking), '\0')));
  if (file->size() != sound + kHeaderBytes) throw Failure(from + ": changed while it was copied");
  file->close();
  return sound;
}

}  // namespace nerolith::recording
