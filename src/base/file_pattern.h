// Which file names a list of patterns admits, and the order in which names are listed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nerolith::base {

/// ";"-separated patterns such as "*.mp?;*wma", case ignored: "*" is any run of characters, also
/// an empty one, "?" exactly one character (a whole UTF-8 character, or one byte where the name is
/// no UTF-8); all else stands for itself. A name must match one of them whole. Blanks around a
/// pattern and empty patterns do not count.
class FilePattern {
 public:
  explicit FilePattern(std::string_view patterns);

  bool matches(std::string_view name) const;

 private:
  std::vector<std::string> patterns_;
};

/// Sorts names as a person looks for them: case and Latin accents ignored; names that differ in
/// nothing else by their bytes, so that the order never depends on how they came in.
void sortNames(std::vector<std::string>& names);

}  // namespace nerolith::base
