#include "recording/wave_header.h"

#include <algorithm>

namespace nerolith::recording {
namespace {

class Writer {
 public:
  void text(std::string_view code) {
    for (const char sign : code) put(static_cast<unsigned char>(sign));
  }
  void number(std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) put(value >> (8 * i) & 0xFF);
  }
  const HeaderBytes& bytes() const { return bytes_; }

 private:
  void put(std::uint32_t byte) { bytes_[at_++] = static_cast<std::byte>(byte); }

  HeaderBytes bytes_{};
  std::size_t at_ = 0;
};

std::uint32_t numberAt(std::string_view bytes, std::size_t place, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[place + i]);
  return value;
}

std::int16_t shortAt(std::string_view bytes, std::size_t place) {
  return static_cast<std::int16_t>(numberAt(bytes, place, 2));
}

}  // namespace

HeaderBytes headerBytes(const WaveHeader& header) {
  const platform::WaveFormat& format = header.format;
  Writer writer;
  writer.text("RIFF");
  writer.number(header.riffSize, 4);
  writer.text("WAVEfmt ");
  writer.number(kFormatBytes, 4);
  writer.number(static_cast<std::uint16_t>(format.formatTag), 2);
  writer.number(static_cast<std::uint16_t>(format.channels), 2);
  writer.number(static_cast<std::uint32_t>(format.samplesPerSecond), 4);
  writer.number(static_cast<std::uint32_t>(format.averageBytesPerSecond), 4);
  writer.number(static_cast<std::uint16_t>(format.blockAlign), 2);
  writer.number(static_cast<std::uint16_t>(format.bitsPerSample), 2);
  writer.text("data");
  writer.number(header.dataSize, 4);
  return writer.bytes();
}

std::optional<WaveHeader> headerFrom(std::string_view bytes) {
  if (bytes.size() != kHeaderBytes) return std::nullopt;
  WaveHeader header;
  header.riffSize = numberAt(bytes, 4, 4);
  header.format.formatTag = shortAt(bytes, 20);
  header.format.channels = shortAt(bytes, 22);
  header.format.samplesPerSecond = static_cast<std::int32_t>(numberAt(bytes, 24, 4));
  header.format.averageBytesPerSecond = static_cast<std::int32_t>(numberAt(bytes, 28, 4));
  header.format.blockAlign = shortAt(bytes, 32);
  header.format.bitsPerSample = shortAt(bytes, 34);
  header.dataSize = numberAt(bytes, 40, 4);
  // Codes and lengths are right when the header reads back as the same bytes.
  const HeaderBytes again = headerBytes(header);
  const std::string_view same(reinterpret_cast<const char*>(again.data()), again.size());
  return bytes == same ? std::optional(header) : std::nullopt;
}

}  // namespace nerolith::recording
