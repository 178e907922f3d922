#include "platform/windows/windows_text_encoding.h"

#include <windows.h>

#include "base/code_page_text.h"
#include "base/utf8.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

class SystemCodePage final : public base::CodePage {
 public:
  explicit SystemCodePage(UINT page) : page_(page) {}

  std::optional<std::string> decoded(std::string_view bytes) const override {
    if (page_ == CP_UTF8) return std::nullopt;
    const int size = static_cast<int>(bytes.size());
    const int length =
        MultiByteToWideChar(page_, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (length <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(page_, MB_ERR_INVALID_CHARS, bytes.data(), size, wide.data(), length);
    return utf8Text(wide);
  }

  std::optional<std::string> encoded(std::string_view utf8) const override {
    if (page_ == CP_UTF8) return std::nullopt;
    const std::wstring wide = wideText(utf8);
    const int size = static_cast<int>(wide.size());
    BOOL lacking = FALSE;
    const int length = WideCharToMultiByte(page_, WC_NO_BEST_FIT_CHARS, wide.data(), size, nullptr,
                                           0, nullptr, &lacking);
    if (length <= 0 || lacking) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(page_, WC_NO_BEST_FIT_CHARS, wide.data(), size, bytes.data(), length,
                        nullptr, &lacking);
    if (lacking) return std::nullopt;
    return bytes;
  }

 private:
  UINT page_;
};

}  // namespace

WindowsTextEncoding::WindowsTextEncoding() : codePage_(GetACP()) {}

std::string WindowsTextEncoding::textOf(std::string_view bytes) const {
  return base::textOfLine(bytes, SystemCodePage(codePage_));
}

std::string WindowsTextEncoding::bytesOf(std::string_view text) const {
  return base::lineOfText(text, SystemCodePage(codePage_));
}

}  // namespace nerolith::windows
