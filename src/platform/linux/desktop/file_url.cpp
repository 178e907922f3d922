#include "platform/linux/desktop/file_url.h"

#include <charconv>

namespace nerolith::desktop {
namespace {

constexpr std::string_view kScheme = "file://";

bool staysAsItIs(char sign) {
  return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') ||
         (sign >= '0' && sign <= '9') || std::string_view("-._~/").find(sign) != std::string::npos;
}

std::optional<std::string> decoded(std::string_view text) {
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      path += text[i];
      continue;
    }
    const std::string_view digits = text.substr(i + 1, 2);
    unsigned byte = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || read.ptr != digits.data() + 2 || byte == 0) return std::nullopt;
    path += static_cast<char>(byte);
    i += 2;
  }
  return path;
}

}  // namespace

std::string fileUrl(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string url(kScheme);
  for (const char sign : path) {
    const auto byte = static_cast<unsigned char>(sign);
    if (staysAsItIs(sign))
      url += sign;
    else
      url.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
  }
  return url;
}

std::optional<std::string> pathOfUrl(std::string_view url) {
  if (url.starts_with('/')) return std::string(url);
  if (!url.starts_with(kScheme)) return std::nullopt;
  std::string_view rest = url.substr(kScheme.size());
  if (rest.starts_with("localhost/")) rest.remove_prefix(std::string_view("localhost").size());
  return rest.starts_with('/') ? decoded(rest) : std::nullopt;
}

}  // namespace nerolith::desktop
