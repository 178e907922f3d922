// The bytes of a simulated machine's files.
#pragma once

#include "platform/byte_files.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/simulated_files.h"

namespace nerolith::platform::simulated {

/// Trace: "bytes.read PATH", "bytes.create PATH", "bytes.replace PATH", "bytes.append PATH";
/// readings: "bytes.readEnd PATH", "bytes.size PATH".
class SimulatedByteFiles : public ByteFiles {
 public:
  SimulatedByteFiles(SimulatedFiles& files, Doorway& doorway) : files_(files), doorway_(doorway) {}

  void read(const std::string& path, const TakeBlock& take) const override;
  std::uint64_t size(const std::string& path) const override;
  bool same(const std::string& path, const std::string& other) const override;
  std::string readEnd(const std::string& path, std::size_t most) const override;
  void create(const std::string& path) override;
  void replace(const std::string& path, const std::string& bytes) override;
  void append(const std::string& path, const std::string& bytes) override;

  // Scripting, without a door call.
  void put(const std::string& path, std::string bytes);
  /// The bytes of a file; a missing one is a mistake of the test and throws std::out_of_range.
  const std::string& at(const std::string& path) const;

 private:
  const SimulatedFile& fileAt(const std::string& path) const;
  void checkPlace(const std::string& path) const;
  void store(const std::string& path, std::string bytes);

  SimulatedFiles& files_;
  Doorway& doorway_;
};

}  // namespace nerolith::platform::simulated
