// Message boxes and file dialogs of the Linux program.
#pragma once

#include "platform/dialogs.h"

namespace nerolith::widgets {

class QtDialogs : public platform::Dialogs {
 public:
  platform::Answer showMessage(const platform::Message& message) override;
  std::optional<std::string> openFile(const platform::FileQuestion& question) override;
  std::optional<std::string> saveFile(const platform::FileQuestion& question) override;
};

}  // namespace nerolith::widgets
