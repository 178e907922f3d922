#include "base/file_pattern.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/letter_case.h"
#include "base/trimmed.h"

namespace nerolith::base {
namespace {

/// Both folded. When a character does not fit, the last "*" takes one character more.
bool matchesOne(std::string_view pattern, std::string_view name) {
  std::size_t p = 0, n = 0;
  std::size_t star = std::string_view::npos, starTook = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starTook = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      n += characterLength(name, n);
      ++p;
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++n;
      ++p;
    } else if (star != std::string_view::npos) {
      starTook += characterLength(name, starTook);
      n = starTook;
      p = star + 1;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

struct SortedName {
  std::uint64_t prefix = 0;  // the key's first eight bytes: settles most comparisons
  std::string key;
  std::string name;

  explicit SortedName(std::string text) : key(sortKey(text)), name(std::move(text)) {
    for (std::size_t i = 0; i < 8; ++i)
      prefix = prefix << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
  }

  bool operator<(const SortedName& other) const {
    if (prefix != other.prefix) return prefix < other.prefix;
    if (const int order = key.compare(other.key); order != 0) return order < 0;
    return name < other.name;
  }
};

}  // namespace

FilePattern::FilePattern(std::string_view patterns) {
  while (!patterns.empty()) {
    const std::size_t end = std::min(patterns.find(';'), patterns.size());
    const std::string_view pattern = trimmed(patterns.substr(0, end));
    if (!pattern.empty()) patterns_.push_back(foldCase(pattern));
    patterns.remove_prefix(std::min(end + 1, patterns.size()));
  }
}

bool FilePattern::matches(std::string_view name) const {
  const std::string folded = foldCase(name);
  return std::any_of(patterns_.begin(), patterns_.end(),
                     [&](const std::string& pattern) { return matchesOne(pattern, folded); });
}

void sortNames(std::vector<std::string>& names) {
  std::vector<SortedName> sorted;
  sorted.reserve(names.size());
  for (std::string& name : names) sorted.emplace_back(std::move(name));
  std::sort(sorted.begin(), sorted.end());
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(sorted[i].name);
}

}  // namespace nerolith::base
