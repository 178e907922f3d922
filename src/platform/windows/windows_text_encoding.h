// Text in plain files on a Windows machine.
#pragma once

#include "platform/text_encoding.h"

namespace nerolith::windows {

/// In the code page that the system gives programs without Unicode (GetACP), or in the given one.
/// Where that is UTF-8 itself, lines are passed through as they are.
class WindowsTextEncoding : public platform::TextEncoding {
 public:
  WindowsTextEncoding();
  explicit WindowsTextEncoding(unsigned codePage) : codePage_(codePage) {}

  std::string textOf(std::string_view bytes) const override;
  std::string bytesOf(std::string_view text) const override;

 private:
  unsigned codePage_;
};

}  // namespace nerolith::windows
