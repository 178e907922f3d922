// Text in plain files on a Linux machine.
#pragma once

#include "platform/text_encoding.h"

namespace nerolith::system {

/// File names are bytes here, whatever the locale calls them: passed through as they are.
class PosixTextEncoding : public platform::TextEncoding {
 public:
  std::string textOf(std::string_view bytes) const override { return std::string(bytes); }
  std::string bytesOf(std::string_view text) const override { return std::string(text); }
};

}  // namespace nerolith::system
