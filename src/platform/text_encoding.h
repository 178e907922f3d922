// How the system's programs write text into plain files.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::platform {

/// Between the bytes of one line in a file and the text that the player works with (UTF-8; a path
/// may hold bytes that are none). Where the system has a code page, a line is written in it, or as
/// UTF-8 when the code page cannot hold it or when its bytes would read as UTF-8; a line that is
/// UTF-8 beyond ASCII is read as such. Elsewhere names are bytes, and a line is what it is.
///
/// No name is lost: a text written and read again is the same text, and so is a line read, written
/// and read again, whatever its bytes. ASCII stays as it is. Never fails.
class TextEncoding {
 public:
  virtual ~TextEncoding() = default;

  virtual std::string textOf(std::string_view bytes) const = 0;
  virtual std::string bytesOf(std::string_view text) const = 0;
};

}  // namespace nerolith::platform
