// The new contents of a file, complete before they take the old one's place.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/system/descriptor.h"

namespace nerolith::system {

/// Made: written and flushed, but not yet to be seen -> takePlace: one rename. Without that, or
/// when the program is killed, nothing stays of it. (Where the disk knows no files without a name,
/// it lies in the target's folder under a name of its own meanwhile, which only a kill leaves.)
class ReplacementFile {
 public:
  /// For the file at `path`, or at the end of that link. It keeps the old file's permissions and,
  /// as far as allowed, its owner; a new file gets `newMode`, less the user's mask. Fails for a
  /// file that is read-only or no regular one.
  ReplacementFile(const std::string& path, const std::string& bytes, mode_t newMode);
  /// The same, empty: to be filled through `file`, then `complete`, then `takePlace`.
  ReplacementFile(const std::string& path, mode_t newMode);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  const Descriptor& file() const { return *file_; }
  /// Returns once all is on the disk.
  void complete() const;
  /// Once.
  void takePlace();

 private:
  void openNameless(mode_t mode);
  void openNamed(mode_t mode);

  std::string target_;
  std::optional<struct stat> old_;
  std::string name_;  // its own, as long as it has one
  std::unique_ptr<Descriptor> file_;
};

}  // namespace nerolith::system
