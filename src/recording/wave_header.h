// The first 44 bytes of a WAV file of the recorder's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/wave_format.h"

namespace nerolith::recording {

inline constexpr std::int32_t kHeaderBytes = 44;
inline constexpr std::int32_t kFormatBytes = 16;

/// Little-endian throughout, as RIFF has it; the four-character codes are the only texts.
struct WaveHeader {
  std::uint32_t riffSize = 0;
  platform::WaveFormat format;
  std::uint32_t dataSize = 0;

  bool operator==(const WaveHeader&) const = default;
};

using HeaderBytes = std::array<std::byte, kHeaderBytes>;

HeaderBytes headerBytes(const WaveHeader& header);
/// Reads them back; nothing when they are not laid out as the recorder does it.
std::optional<WaveHeader> headerFrom(std::string_view bytes);

/// What a RIFF size is that the recorder leaves: 8 more than the standard has it.
constexpr std::int64_t recordersRiffSize(std::int64_t dataBytes) {
  return dataBytes + kHeaderBytes;
}
/// What a RIFF size is by the standard: all behind its own field.
constexpr std::int64_t standardRiffSize(std::int64_t dataBytes) {
  return dataBytes + kHeaderBytes - 8;
}

}  // namespace nerolith::recording
