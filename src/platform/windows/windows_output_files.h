// Files that are written piece by piece, on a Windows machine.
#pragma once

#include <chrono>

#include "base/patient_caller.h"
#include "platform/output_file.h"
#include "platform/windows/windows_file_system.h"

namespace nerolith::windows {

/// Paths as `WindowsFileSystem` takes them. While a file is being written others may read it. Each
/// piece is given `patience`; closing, which waits for the disk to have it all, six times as long.
class WindowsOutputFiles : public platform::OutputFiles {
 public:
  explicit WindowsOutputFiles(const WindowsFileSystem& files,
                              std::chrono::milliseconds patience = std::chrono::seconds(5))
      : files_(files), patience_(patience), disk_(patience) {}

  std::unique_ptr<platform::OutputFile> create(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> reopen(const std::string& path) override;
  std::unique_ptr<platform::OutputFile> replace(const std::string& path) override;

 private:
  const WindowsFileSystem& files_;
  std::chrono::milliseconds patience_;
  base::PatientCaller disk_;
};

}  // namespace nerolith::windows
