#include "app/command_line.h"

#include <array>
#include <charconv>
#include <optional>

#include "base/letter_case.h"
#include "base/trimmed.h"

namespace nerolith::app {
namespace {

/// Only a text that is a number from end to end: "3 Doors.mp3" is a song, not a mode.
std::optional<double> wholeNumber(std::string_view item) {
  const std::string_view text = base::trimmed(item, " \t");
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
    return std::nullopt;
  return value;
}

bool namesMode(std::string_view text) {
  const auto value = wholeNumber(text);
  return value && *value > 0 && *value < 4;
}

std::string modeOf(std::string_view text) {
  const double value = *wholeNumber(text);
  if (value == 2) return "2";
  if (value == 3) return "3";
  return "1";
}

}  // namespace

CommandLine parseCommandLine(std::string_view text) {
  std::array<std::string_view, 2> items;
  for (auto& item : items) {
    const auto comma = text.find(',');
    item = text.substr(0, comma);
    text = comma == text.npos ? std::string_view{} : text.substr(comma + 1);
  }
  if (namesMode(items[0])) return {"", modeOf(items[0])};
  CommandLine line{std::string(items[0]), "1"};
  if (namesMode(items[1])) line.modeCode = modeOf(items[1]);
  return line;
}

bool namesPlaylist(std::string_view fileName) {
  return fileName.size() > 4 && base::foldCase(fileName.substr(fileName.size() - 4)) == ".m3u";
}

FolderAndName splitPath(std::string_view fileName, char separator) {
  const auto last = fileName.rfind(separator);
  if (last == fileName.npos) return {"", std::string(fileName)};
  return {std::string(fileName.substr(0, last + 1)), std::string(fileName.substr(last + 1))};
}

std::string absolutePath(std::string_view path, std::string_view directory, char separator) {
  const bool hasDrive = path.size() > 1 && path[1] == ':' && separator == '\\';
  if (hasDrive || path.starts_with(separator)) return std::string(path);
  std::string whole(directory);
  if (!whole.ends_with(separator)) whole += separator;
  return whole.append(path);
}

}  // namespace nerolith::app
