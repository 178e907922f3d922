#include "base/code_page_text.h"

#include "base/utf8.h"

namespace nerolith::base {

std::string textOfLine(std::string_view bytes, const CodePage& page) {
  if (isAscii(bytes) || isUtf8(bytes)) return std::string(bytes);
  const auto text = page.decoded(bytes);
  // A code page may know two codes for one character: only the one that is written is taken for it.
  if (text && page.encoded(*text) == bytes) return *text;
  return std::string(bytes);
}

std::string lineOfText(std::string_view text, const CodePage& page) {
  if (isAscii(text) || !isUtf8(text)) return std::string(text);
  auto bytes = page.encoded(text);
  if (bytes && textOfLine(*bytes, page) == text) return *std::move(bytes);
  return std::string(text);
}

}  // namespace nerolith::base
