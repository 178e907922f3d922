// Headers of MPEG audio (mp1, mp2, mp3): of one frame, and of a whole song where it has one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace nerolith::sound {

/// What the four bytes at the head of each MPEG audio frame say.
struct MpegHeader {
  int layer = 3;       // 1..3
  int version = 1;     // 1, 2, or 25 for 2.5
  int sampleRate = 0;  // Hz
  int channels = 2;    // 1 or 2
  int bytes = 0;       // of the whole frame
  int samples = 0;     // of each channel in the frame
  bool sameStream(const MpegHeader& other) const {
    return layer == other.layer && version == other.version && sampleRate == other.sampleRate;
  }
};

/// None for what is no header; free-format frames (whose length is not told) count as none.
std::optional<MpegHeader> parseMpegHeader(std::uint32_t word);

/// What an encoder wrote in place of the song's first frame ("Xing", "Info" or "VBRI").
struct MpegSongHeader {
  std::int64_t frames = 0;  // that follow this one
  std::int64_t bytes = 0;   // of the whole stream, 0 if not told
  bool gapless = false;     // the two below are told
  int delay = 0;            // samples put before the song by the encoder
  int padding = 0;          // samples put behind it
};

/// `frame` is the song's first frame. None if it is a frame of sound, or does not tell the number
/// of frames.
std::optional<MpegSongHeader> parseMpegSongHeader(std::span<const std::uint8_t> frame,
                                                  const MpegHeader& header);

/// Bytes of the ID3v2 tag that `head` starts with (10 bytes suffice), 0 if none.
std::int64_t id3TagBytes(std::span<const std::uint8_t> head);

}  // namespace nerolith::sound
