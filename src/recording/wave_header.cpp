#include "recording/wave_header.h"

#include <algorithm>
#include <string_view>

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

}  // namespace nerolith::recording
