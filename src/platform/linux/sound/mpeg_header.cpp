#include "platform/linux/sound/mpeg_header.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace nerolith::sound {
namespace {

// kbit/s by bit-rate index: MPEG 1 layers 1 to 3, then MPEG 2 layer 1 and layers 2 and 3.
constexpr std::array<std::array<int, 15>, 5> kBitRates = {{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
}};

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(bytes[at]) << 24 |
         static_cast<std::uint32_t>(bytes[at + 1]) << 16 |
         static_cast<std::uint32_t>(bytes[at + 2]) << 8 | bytes[at + 3];
}

bool startsWith(std::span<const std::uint8_t> bytes, std::size_t at, const char* text) {
  return bytes.size() >= at + 4 && std::memcmp(bytes.data() + at, text, 4) == 0;
}

int bitRate(int version, int layer, unsigned index) {
  const std::size_t row = version == 1 ? static_cast<std::size_t>(layer - 1) : layer == 1 ? 3 : 4;
  return kBitRates[row][index] * 1000;
}

int frameBytes(const MpegHeader& header, int rate, int padding) {
  if (header.layer == 1) return (12 * rate / header.sampleRate + padding) * 4;
  return header.samples / 8 * rate / header.sampleRate + padding;
}

std::optional<MpegSongHeader> parseXing(std::span<const std::uint8_t> frame, std::size_t at) {
  if (frame.size() < at + 16) return std::nullopt;
  const std::uint32_t told = bigEndian(frame, at + 4);
  if ((told & 1U) == 0) return std::nullopt;
  MpegSongHeader song;
  song.frames = bigEndian(frame, at + 8);
  std::size_t next = at + 12;
  if ((told & 2U) != 0) {
    song.bytes = bigEndian(frame, next);
    next += 4;
  }
  if ((told & 4U) != 0) next += 100;
  if ((told & 8U) != 0) next += 4;
  // The encoder's own part: 9 bytes of name and version, 12 of other things, then the two gaps.
  if (frame.size() >= next + 24 &&
      (startsWith(frame, next, "LAME") || startsWith(frame, next, "Lavf") ||
       startsWith(frame, next, "Lavc"))) {
    song.gapless = true;
    song.delay = frame[next + 21] << 4 | frame[next + 22] >> 4;
    song.padding = (frame[next + 22] & 0x0F) << 8 | frame[next + 23];
  }
  return song;
}

}  // namespace

std::optional<MpegHeader> parseMpegHeader(std::uint32_t word) {
  const unsigned versionBits = word >> 19 & 3U;
  const unsigned layerBits = word >> 17 & 3U;
  const unsigned rateIndex = word >> 12 & 15U;
  const unsigned frequencyIndex = word >> 10 & 3U;
  if (word >> 21 != 0x7FF || versionBits == 1 || layerBits == 0 || rateIndex == 0 ||
      rateIndex == 15 || frequencyIndex == 3) {
    return std::nullopt;
  }
  constexpr std::array<int, 3> kFrequencies = {44100, 48000, 32000};
  MpegHeader header;
  header.version = versionBits == 3 ? 1 : versionBits == 2 ? 2 : 25;
  header.layer = 4 - static_cast<int>(layerBits);
  header.sampleRate = kFrequencies[frequencyIndex] / (header.version == 1   ? 1
                                                      : header.version == 2 ? 2
                                                                            : 4);
  header.channels = (word >> 6 & 3U) == 3 ? 1 : 2;
  header.samples = header.layer == 1 ? 384 : header.layer == 3 && header.version != 1 ? 576 : 1152;
  header.bytes = frameBytes(header, bitRate(header.version, header.layer, rateIndex),
                            static_cast<int>(word >> 9 & 1U));
  return header;
}

std::optional<MpegSongHeader> parseMpegSongHeader(std::span<const std::uint8_t> frame,
                                                  const MpegHeader& header) {
  if (header.layer != 3) return std::nullopt;
  const std::size_t side =
      header.version == 1 ? (header.channels == 1 ? 17 : 32) : (header.channels == 1 ? 9 : 17);
  const std::size_t at = 4 + side;
  if (startsWith(frame, at, "Xing") || startsWith(frame, at, "Info")) return parseXing(frame, at);
  constexpr std::size_t kVbriAt = 36;
  if (startsWith(frame, kVbriAt, "VBRI") && frame.size() >= kVbriAt + 18) {
    MpegSongHeader song;
    song.bytes = bigEndian(frame, kVbriAt + 10);
    song.frames = bigEndian(frame, kVbriAt + 14);
    return song;
  }
  return std::nullopt;
}

std::int64_t id3TagBytes(std::span<const std::uint8_t> head) {
  if (head.size() < 10 || std::memcmp(head.data(), "ID3", 3) != 0) return 0;
  std::int64_t size = 0;
  for (std::size_t i = 6; i < 10; ++i) size = size << 7 | (head[i] & 0x7F);
  const bool footer = (head[5] & 0x10) != 0;
  return size + (footer ? 20 : 10);
}

}  // namespace nerolith::sound
