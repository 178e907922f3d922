#include "platform/windows/file_path.h"

#include <windows.h>

#include <algorithm>
#include <cctype>

#include "base/letter_case.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

/// Folders must leave room for a short file name, so their limit is the lower one.
constexpr std::size_t kLongestShortForm = MAX_PATH - 14;

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool startsWithDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

/// Appends the names in `rest` one by one to a path that ends with its root.
std::string joined(std::string root, std::string_view rest) {
  const std::size_t rootSize = root.size();
  root.reserve(rootSize + rest.size() + 1);
  while (!rest.empty()) {
    const auto end = std::find_if(rest.begin(), rest.end(), isSeparator);
    const std::string_view name = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (name.empty() || name == ".") continue;
    if (name == "..") {
      root.resize(std::max(rootSize, root.rfind('\\', root.size() - 1)));
      continue;
    }
    if (root.back() != '\\') root += '\\';
    root += name;
  }
  return root;
}

/// "server\share\..." behind its two separators.
std::string tidyShare(std::string_view path, std::string_view named) {
  std::string root = R"(\\)";
  for (int piece = 0; piece < 2; ++piece) {
    const auto end = std::find_if(path.begin(), path.end(), isSeparator);
    const std::string_view name = path.substr(0, static_cast<std::size_t>(end - path.begin()));
    if (name.empty() || name == "." || name == ".." || name == "?")
      throwFailure(std::string(named), ERROR_BAD_PATHNAME);
    root.append(name).append(1, '\\');
    path.remove_prefix(std::min(name.size() + 1, path.size()));
  }
  return joined(root, path);
}

std::string tidyDrivePath(std::string_view path) {
  std::string root{static_cast<char>(std::toupper(static_cast<unsigned char>(path[0]))), ':', '\\'};
  return joined(root, path.substr(2));
}

bool isDeviceName(std::string_view name) {
  std::string stem = base::foldCase(name.substr(0, name.find('.')));
  while (!stem.empty() && stem.back() == ' ') stem.pop_back();
  if (stem == "con" || stem == "prn" || stem == "aux" || stem == "nul") return true;
  return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
         std::isdigit(static_cast<unsigned char>(stem[3]));
}

std::wstring literal(const std::wstring& tidy) {
  if (!tidy.starts_with(LR"(\\)")) return LR"(\\?\)" + tidy;
  return LR"(\\?\UNC)" + tidy.substr(1);
}

bool isMisread(std::string_view tidy) {
  std::string_view names = tidy.substr(rootLength(tidy));
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find('\\'));
    names.remove_prefix(std::min(name.size() + 1, names.size()));
    if (name.ends_with('.') || name.ends_with(' ') || isDeviceName(name)) return true;
  }
  return false;
}

}  // namespace

std::size_t rootLength(std::string_view path) {
  if (startsWithDrive(path) && path.size() >= 3 && path[2] == '\\') return 3;
  if (!path.starts_with(R"(\\)")) return 0;
  const std::size_t share = path.find('\\', 2);
  if (share == std::string_view::npos) return 0;
  return std::min(path.find('\\', share + 1), path.size() - 1) + 1;
}

std::string tidyPath(std::string_view path, std::string_view current) {
  const std::string_view named = path;
  if (path.empty() || path.find('\0') != std::string_view::npos)
    throwFailure("\"" + std::string(named) + "\"", ERROR_INVALID_NAME);
  const bool literal = path.starts_with(kLiteral);
  if (literal) path.remove_prefix(kLiteral.size());
  if (literal && base::foldCase(path.substr(0, 4)) == R"(unc\)")
    return tidyShare(path.substr(4), named);
  if (startsWithDrive(path) && (path.size() == 2 || isSeparator(path[2])))
    return tidyDrivePath(path);
  if (literal) throwFailure(std::string(named), ERROR_BAD_PATHNAME);
  if (path.size() > 1 && isSeparator(path[0]) && isSeparator(path[1]))
    return tidyShare(path.substr(2), named);
  const std::size_t root = rootLength(current);
  if (root == 0) throwFailure(std::string(named), ERROR_BAD_PATHNAME);
  if (isSeparator(path[0])) return joined(std::string(current.substr(0, root)), path);
  // "D:song.mp3" lies in the current folder only where that is on D:; else on the drive's root.
  if (startsWithDrive(path)) {
    std::string onRoot = tidyDrivePath(path);
    if (onRoot[0] != current[0]) return onRoot;
    path.remove_prefix(2);
  }
  const std::string inCurrent = std::string(current) + '\\' + std::string(path);
  return joined(inCurrent.substr(0, root), inCurrent.substr(root));
}

std::vector<std::string> wayTo(const std::string& tidy) {
  const std::size_t root = rootLength(tidy);
  std::vector<std::string> way{tidy.substr(0, root)};
  for (std::size_t end = tidy.find('\\', root); end != std::string::npos;
       end = tidy.find('\\', end + 1))
    way.push_back(tidy.substr(0, end));
  if (tidy.size() > root) way.push_back(tidy);
  return way;
}

std::wstring systemPath(const std::string& tidy) {
  std::wstring wide = wideText(tidy);
  return wide.size() < kLongestShortForm && !isMisread(tidy) ? wide : literal(wide);
}

std::wstring literalPath(const std::string& tidy) { return literal(wideText(tidy)); }

}  // namespace nerolith::windows
