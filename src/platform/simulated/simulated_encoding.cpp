#include "platform/simulated/simulated_encoding.h"

#include "base/code_page_text.h"

namespace nerolith::platform::simulated {
namespace {

/// A character from 160 to 255 is one byte of that value in Latin-1, and two bytes in UTF-8.
class Latin1 final : public base::CodePage {
 public:
  std::optional<std::string> decoded(std::string_view bytes) const override {
    std::string text;
    for (const char c : bytes) {
      const auto code = static_cast<unsigned char>(c);
      if (code >= 0x80 && code < 0xA0) return std::nullopt;
      if (code >= 0x80) text += static_cast<char>(0xC0 | (code >> 6));
      text += code < 0x80 ? c : static_cast<char>(0x80 | (code & 0x3F));
    }
    return text;
  }

  std::optional<std::string> encoded(std::string_view utf8) const override {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
      const auto first = static_cast<unsigned char>(utf8[i]);
      if (first < 0x80) {
        bytes += utf8[i];
        continue;
      }
      if (first != 0xC2 && first != 0xC3) return std::nullopt;
      const auto second = static_cast<unsigned char>(utf8[++i]);
      const int code = (first & 3) << 6 | (second & 0x3F);
      if (code < 0xA0) return std::nullopt;
      bytes += static_cast<char>(code);
    }
    return bytes;
  }
};

}  // namespace

std::string SimulatedEncoding::textOf(std::string_view bytes) const {
  return hasCodePage_ ? base::textOfLine(bytes, Latin1()) : std::string(bytes);
}

std::string SimulatedEncoding::bytesOf(std::string_view text) const {
  return hasCodePage_ ? base::lineOfText(text, Latin1()) : std::string(text);
}

}  // namespace nerolith::platform::simulated
