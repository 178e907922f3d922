// Lines of text in a code page that cannot hold every name, with nothing lost.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nerolith::base {

/// One code page. Both directions answer nothing rather than something that only looks alike.
class CodePage {
 public:
  virtual ~CodePage() = default;

  /// The UTF-8 of bytes in the code page; nothing when a byte stands for no character.
  virtual std::optional<std::string> decoded(std::string_view bytes) const = 0;
  /// The bytes of a UTF-8 text; nothing when the code page lacks one of its characters.
  virtual std::optional<std::string> encoded(std::string_view utf8) const = 0;
};

/// The text of a line: UTF-8 when the line is that and has more than ASCII, else what the code page
/// says; bytes that are neither stay as they are.
std::string textOfLine(std::string_view bytes, const CodePage& page);

/// The reverse: in the code page where `textOfLine` finds the way back from there, else unchanged.
std::string lineOfText(std::string_view text, const CodePage& page);

}  // namespace nerolith::base
