#include "playlist/path_address.h"

#include <optional>

namespace nerolith::playlist {
namespace {

constexpr std::string_view kScheme = "file://";
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::string_view kHarmless = "/-._~";

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isHarmless(char c) {
  return isLetter(c) || (c >= '0' && c <= '9') || kHarmless.find(c) != std::string_view::npos;
}

bool isWindowsPath(std::string_view text) {
  const bool drive = text.size() > 2 && isLetter(text[0]) && text[1] == ':' && text[2] == '\\';
  return drive || text.starts_with(R"(\\)");
}

bool isAbsolute(std::string_view text) { return text.starts_with('/') || isWindowsPath(text); }

bool fitsALine(std::string_view text) {
  return text.find_first_of("\r\n") == std::string_view::npos && !text.ends_with(' ');
}

/// The path behind "file://"; nothing where an escape is none.
std::optional<std::string> unescaped(std::string_view address) {
  std::string path;
  for (std::size_t i = 0; i < address.size(); ++i) {
    if (address[i] != '%') {
      path += address[i];
      continue;
    }
    if (address.size() - i < 3) return std::nullopt;
    const std::size_t high = kDigits.find(address[i + 1]), low = kDigits.find(address[i + 2]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    path += static_cast<char>(high << 4 | low);
    i += 2;
  }
  // A Windows path begins with no "/", but its address does.
  if (path.starts_with('/') && isWindowsPath(std::string_view(path).substr(1))) path.erase(0, 1);
  return path;
}

std::string addressOf(std::string_view path) {
  std::string address(kScheme);
  if (!path.starts_with('/')) address += '/';
  for (const char c : path) {
    if (isHarmless(c)) {
      address += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    address.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
  }
  return address;
}

}  // namespace

std::string lineOfPath(std::string_view text) {
  if (fitsALine(text) || !isAbsolute(text)) return std::string(text);
  return addressOf(text);
}

std::string pathOfLine(std::string_view line) {
  if (!line.starts_with(kScheme)) return std::string(line);
  const auto path = unescaped(line.substr(kScheme.size()));
  return path && lineOfPath(*path) == line ? *path : std::string(line);
}

}  // namespace nerolith::playlist
