// The new contents of a file, complete before they take the old one's place.
#pragma once

#include <memory>
#include <string>

#include "platform/windows/open_file.h"

namespace nerolith::windows {

/// Made: written and flushed beside the target, under a name of its own -> takePlace: one rename.
/// Without that nothing stays of it.
class ReplacementFile {
 public:
  /// For the file at the tidy `path`, or at the end of that link. It gets the old file's attributes
  /// and access rights. Fails for a file that is read-only or a folder.
  ReplacementFile(const std::string& path, const std::string& bytes);
  /// The same, empty: to be filled through `file`, then `complete`, then `takePlace`.
  explicit ReplacementFile(const std::string& path);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  /// Until it is complete.
  const OpenFile& file() const { return *file_; }
  /// Closes it; all is on the disk when this returns.
  void complete();
  /// Once. Waits a little for a program that holds the old file open (a virus scanner does).
  void takePlace();

 private:
  void takeAfterOld() const;

  std::string target_;
  std::string name_;
  std::unique_ptr<OpenFile> file_;
};

}  // namespace nerolith::windows
