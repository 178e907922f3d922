// Files as bytes on a Windows machine.
#pragma once

#include <chrono>

#include "base/patient_caller.h"
#include "platform/byte_files.h"
#include "platform/windows/windows_file_system.h"

namespace nerolith::windows {

/// Paths as `WindowsFileSystem` takes them. Reading gives a disk `patience` for each block;
/// writing, which waits for the disk to have it all, six times as long.
///
/// New contents lie beside the target under a name of their own until they take its place; the
/// system deletes them should the program die before.
class WindowsByteFiles : public platform::ByteFiles {
 public:
  explicit WindowsByteFiles(const WindowsFileSystem& files,
                            std::chrono::milliseconds patience = std::chrono::seconds(5))
      : files_(files), reading_(patience), writing_(6 * patience) {}

  void read(const std::string& path, const TakeBlock& take) const override;
  std::uint64_t size(const std::string& path) const override;
  bool same(const std::string& path, const std::string& other) const override;
  std::string readEnd(const std::string& path, std::size_t most) const override;
  void create(const std::string& path) override;
  void replace(const std::string& path, const std::string& bytes) override;
  void append(const std::string& path, const std::string& bytes) override;

 private:
  const WindowsFileSystem& files_;
  mutable base::PatientCaller reading_;
  base::PatientCaller writing_;
};

}  // namespace nerolith::windows
