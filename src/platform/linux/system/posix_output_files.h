// Files that are written piece by piece, on a Linux machine.
#pragma once

#include <chrono>

#include "base/patient_caller.h"
#include "platform/output_file.h"

namespace nerolith::system {

/// A file being written is locked as flock(2) has it, where the disk knows locks. Each piece is
/// given `patience`; closing, which waits for the disk to have it all, six times as long. A file
/// whose name was removed takes no more: what is written there would go with the program.
class PosixOutputFiles : public platform::OutputFiles {
 public:
  explicit PosixOutputFiles(std::chrono::milliseconds patience = std::chrono::seconds(5))
      : patience_(patience), disk_(patience) {}

  std::unique_ptr<platform::OutputFile> create(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> reopen(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> replace(const std::string& path) override;

 private:
  std::chrono::milliseconds patience_;
  base::PatientCaller disk_;
};

}  // namespace nerolith::system
