// Files in memory that are written piece by piece.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "platform/output_file.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/simulated_files.h"

namespace nerolith::platform::simulated {

/// The files are those of `SimulatedFiles`; one that was removed (or whose folder was) fails the
/// next call for it. Trace: "output.create PATH", "output.reopen PATH", "output.replace PATH",
/// "output.append BYTES", "output.write OFFSET BYTES", "output.close". Files may not outlive this.
class SimulatedOutput : public OutputFiles {
 public:
  SimulatedOutput(SimulatedFiles& files, Doorway& doorway) : files_(files), doorway_(doorway) {}
  SimulatedOutput(const SimulatedOutput&) = delete;
  SimulatedOutput& operator=(const SimulatedOutput&) = delete;

  // Scripting.
  /// Bytes that the disk still takes; nothing: any number.
  void setFreeSpace(std::optional<std::int64_t> bytes) { space_ = bytes; }
  /// Another program holds the file: every write fails until it is let go.
  void lock(const std::string& path) { locked_.insert(path); }
  void unlock(const std::string& path) { locked_.erase(path); }
  /// Bytes of a file; a missing one is a mistake of the test and throws std::out_of_range.
  const std::string& bytes(const std::string& path) const;
  /// Whether the player has the file open.
  bool isOpen(const std::string& path) const { return open_.contains(path); }

  std::unique_ptr<OutputFile> create(const std::string& path) override;
  std::unique_ptr<OutputFile> reopen(const std::string& path) override;
  std::unique_ptr<OutputFile> replace(const std::string& path) override;

 private:
  class File;

  void checkPlace(const std::string& path) const;
  void checkWritable(const std::string& path) const;
  void store(const std::string& path, std::string bytes);

  SimulatedFiles& files_;
  Doorway& doorway_;
  std::optional<std::int64_t> space_;
  std::set<std::string> locked_;
  std::multiset<std::string> open_;
};

}  // namespace nerolith::platform::simulated
