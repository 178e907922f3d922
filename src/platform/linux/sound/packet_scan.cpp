#include "platform/linux/sound/packet_scan.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace nerolith::sound {
namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;
constexpr std::int64_t kForeignBytes = std::int64_t{64} * 1024;
/// An mp3 decoder's own delay, counted by encoders as known.
constexpr int kDecoderDelay = 529;

bool namedAsMpegAudio(const std::string& path) {
  std::string ending = path.substr(std::min(path.size(), path.find_last_of('.') + 1));
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == "mp3" || ending == "mp2" || ending == "mp1" || ending == "mpa";
}

std::int64_t skipTags(const FileReader& file) {
  std::int64_t offset = 0;
  for (;;) {
    std::array<std::uint8_t, 10> head{};
    if (file.readAt(offset, head) < static_cast<std::int64_t>(head.size())) return offset;
    const std::int64_t tag = id3TagBytes(head);
    if (tag == 0) return offset;
    offset += tag;
  }
}

std::optional<MpegHeader> headerAt(const FileReader& file, std::int64_t offset) {
  std::array<std::uint8_t, 4> bytes{};
  if (file.readAt(offset, bytes) < 4) return std::nullopt;
  return parseMpegHeader(static_cast<std::uint32_t>(bytes[0]) << 24 |
                         static_cast<std::uint32_t>(bytes[1]) << 16 |
                         static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3]);
}

/// Sound is only believed where a few frames follow one another; a very short file may end sooner.
bool framesFollow(const FileReader& file, std::int64_t offset, const MpegHeader& first) {
  std::int64_t next = offset + first.bytes;
  for (int i = 0; i < 3; ++i) {
    if (next == file.size()) return true;
    const auto header = headerAt(file, next);
    if (!header || !header->sameStream(first)) return false;
    next += header->bytes;
  }
  return true;
}

std::optional<MpegSong> songAt(const FileReader& file, std::int64_t offset) {
  const auto header = headerAt(file, offset);
  if (!header || !framesFollow(file, offset, *header)) return std::nullopt;
  MpegSong song{offset, *header, std::nullopt};
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(header->bytes));
  if (file.readAt(offset, bytes) < header->bytes) return std::nullopt;
  const auto told = parseMpegSongHeader(bytes, *header);
  if (!told) return song;
  song.firstSound += header->bytes;
  // A download that broke off still tells its full length; then the frames are counted.
  const bool whole = told->bytes == 0 || offset + told->bytes <= file.size() + header->bytes;
  if (told->frames > 0 && whole) song.told = told;
  return song;
}

}  // namespace

MpegFrameWalk::MpegFrameWalk(const FileReader& file, std::int64_t offset, const MpegHeader& stream)
    : file_(file), stream_(stream), offset_(offset), buffer_(kBlock) {}

std::span<const std::uint8_t> MpegFrameWalk::view(std::int64_t offset, std::size_t count) {
  const std::int64_t bufferEnd = bufferStart_ + static_cast<std::int64_t>(bufferFill_);
  if (offset < bufferStart_ || offset + static_cast<std::int64_t>(count) > bufferEnd) {
    const std::int64_t got = file_.readAt(offset, buffer_);
    bufferStart_ = offset;
    bufferFill_ = got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  const auto at = static_cast<std::size_t>(offset - bufferStart_);
  return std::span<const std::uint8_t>(buffer_).subspan(at, std::min(count, bufferFill_ - at));
}

std::optional<MpegHeader> MpegFrameWalk::headerAt(std::int64_t offset) {
  const auto bytes = view(offset, 4);
  if (bytes.size() < 4) return std::nullopt;
  const auto header = parseMpegHeader(static_cast<std::uint32_t>(bytes[0]) << 24 |
                                      static_cast<std::uint32_t>(bytes[1]) << 16 |
                                      static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3]);
  return header && header->sameStream(stream_) ? header : std::nullopt;
}

bool MpegFrameWalk::trusted(const MpegHeader& header, std::int64_t offset) {
  // Out of step, two bytes of chance look like a header: only one that another follows counts.
  const std::int64_t next = offset + header.bytes;
  return inStep_ || next == file_.size() || headerAt(next).has_value();
}

std::optional<MpegFrame> MpegFrameWalk::next() {
  for (; offset_ + 4 <= file_.size() && !file_.aborted(); ++offset_) {
    const auto header = headerAt(offset_);
    if (header && trusted(*header, offset_)) {
      const auto bytes = view(offset_, static_cast<std::size_t>(header->bytes));
      if (bytes.size() < static_cast<std::size_t>(header->bytes)) return std::nullopt;
      const MpegFrame frame{offset_, *header, bytes};
      offset_ += header->bytes;
      inStep_ = true;
      return frame;
    }
    inStep_ = false;
  }
  return std::nullopt;
}

std::optional<MpegSong> findMpegSong(const FileReader& file) {
  const std::int64_t start = skipTags(file);
  if (const auto song = songAt(file, start)) return song;
  if (!namedAsMpegAudio(file.path())) return std::nullopt;
  std::vector<std::uint8_t> head(static_cast<std::size_t>(kForeignBytes));
  const std::int64_t got = file.readAt(start, head);
  for (std::int64_t i = 1; i + 1 < got; ++i) {
    // The cheap look first: most bytes are no sync word.
    if (head[static_cast<std::size_t>(i)] != 0xFF || head[static_cast<std::size_t>(i + 1)] < 0xE0) {
      continue;
    }
    if (const auto song = songAt(file, start + i)) return song;
  }
  return std::nullopt;
}

MpegSpan mpegSpan(const MpegSong& song, std::int64_t frames) {
  const std::int64_t samples = frames * song.header.samples;
  if (!song.told || !song.told->gapless) return {0, samples};
  const std::int64_t begin = song.told->delay + kDecoderDelay;
  const std::int64_t end = std::min(samples, samples - song.told->padding + kDecoderDelay);
  // Gaps longer than the song are nonsense.
  return end > begin ? MpegSpan{begin, end} : MpegSpan{0, samples};
}

MpegFrameIndex indexMpegFrames(const FileReader& file, const MpegSong& song) {
  MpegFrameIndex index;
  MpegFrameWalk walk(file, song.firstSound, song.header);
  while (const auto frame = walk.next()) {
    if (index.frames % MpegFrameIndex::kStride == 0) index.offsets.push_back(frame->offset);
    ++index.frames;
  }
  return index;
}

}  // namespace nerolith::sound
