// Walks an MPEG audio file from frame to frame without decoding: exact length, exact places.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/mpeg_header.h"

namespace nerolith::sound {

/// One frame where it stands in the file.
struct MpegFrame {
  std::int64_t offset = 0;
  MpegHeader header;
  std::span<const std::uint8_t> bytes;  // valid until the next call
};

/// Reads frame after frame. Damage and foreign bytes between frames are stepped over; a frame cut
/// off by the end of the file is none. `next` gives nothing at the end or when the medium fails.
class MpegFrameWalk {
 public:
  MpegFrameWalk(const FileReader& file, std::int64_t offset, const MpegHeader& stream);

  std::optional<MpegFrame> next();
  void moveTo(std::int64_t offset) { offset_ = offset; }

 private:
  std::span<const std::uint8_t> view(std::int64_t offset, std::size_t count);
  std::optional<MpegHeader> headerAt(std::int64_t offset);
  bool trusted(const MpegHeader& header, std::int64_t offset);

  const FileReader& file_;
  MpegHeader stream_;
  std::int64_t offset_;
  bool inStep_ = true;
  std::vector<std::uint8_t> buffer_;
  std::int64_t bufferStart_ = 0;
  std::size_t bufferFill_ = 0;
};

/// The song's frames: their number and the way to each of them.
struct MpegFrameIndex {
  /// Every so many frames one place is kept: a seek walks the rest.
  static constexpr std::int64_t kStride = 16;
  std::int64_t frames = 0;
  std::vector<std::int64_t> offsets;  // of the frames 0, kStride, 2 * kStride, ...
};

/// What stands at the head of an MPEG audio file.
struct MpegSong {
  std::int64_t firstSound = 0;  // offset of the first frame that is sound
  MpegHeader header;
  std::optional<MpegSongHeader> told;  // trustworthy: the file is not shorter than it tells
};

/// None if the file is no bare MPEG audio stream. A file whose name says that it is one may begin
/// with some foreign bytes, any other must begin with a frame (or a tag and a frame).
std::optional<MpegSong> findMpegSong(const FileReader& file);

/// Where the song lies in its samples, counted from the first frame of sound: behind the encoder's
/// delay, before its padding.
struct MpegSpan {
  std::int64_t begin = 0;
  std::int64_t end = 0;
};

/// `frames` is the number of the song's frames, told or counted.
MpegSpan mpegSpan(const MpegSong& song, std::int64_t frames);

/// Reads the whole file once: about a millisecond for each 5 MB that the system has in memory.
MpegFrameIndex indexMpegFrames(const FileReader& file, const MpegSong& song);

}  // namespace nerolith::sound
