// The text encoding of a simulated machine.
#pragma once

#include "platform/text_encoding.h"

namespace nerolith::platform::simulated {

/// A Windows machine's code page is Latin-1 here, without the 32 codes behind ASCII; on a Linux
/// machine lines are what they are. No door calls: it touches nothing outside.
class SimulatedEncoding : public TextEncoding {
 public:
  explicit SimulatedEncoding(char separator) : hasCodePage_(separator == '\\') {}

  std::string textOf(std::string_view bytes) const override;
  std::string bytesOf(std::string_view text) const override;

 private:
  bool hasCodePage_;
};

}  // namespace nerolith::platform::simulated
