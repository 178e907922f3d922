// Files as bytes on a Linux machine.
#pragma once

#include <chrono>

#include "base/patient_caller.h"
#include "platform/byte_files.h"

namespace nerolith::system {

/// Names are bytes. Reading gives a disk `patience` for each block; writing, which waits for the
/// disk to have it all, six times as long.
class PosixByteFiles : public platform::ByteFiles {
 public:
  explicit PosixByteFiles(std::chrono::milliseconds patience = std::chrono::seconds(5))
      : reading_(patience), writing_(6 * patience) {}

  void read(const std::string& path, const TakeBlock& take) const override;
  std::uint64_t size(const std::string& path) const override;
  bool same(const std::string& path, const std::string& other) const override;
  std::string readEnd(const std::string& path, std::size_t most) const override;
  void create(const std::string& path) override;
  void replace(const std::string& path, const std::string& bytes) override;
  void append(const std::string& path, const std::string& bytes) override;

 private:
  mutable base::PatientCaller reading_;
  base::PatientCaller writing_;
};

}  // namespace nerolith::system
