// Reading one local file for a decoder, with error texts for the user.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/file_memory.h"
#include "base/job_watch.h"

namespace nerolith::sound {

/// An open regular file. A name may hold any bytes. No other thing than a file of this machine's
/// file systems is ever opened: no address, pipe or device.
class FileReader {
 public:
  /// Fails (`platform::Failure`) for a missing, unreadable or empty file and for anything that is
  /// no regular file. `watch` hears of each byte read, and makes later reads fail once it says
  /// that the job is abandoned; it must outlive the reader.
  FileReader(const std::string& path, base::JobWatch& watch);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  const std::string& path() const { return path_; }
  std::int64_t size() const { return stamp_.size; }
  /// As it was when it was opened.
  const base::FileStamp& stamp() const { return stamp_; }
  bool aborted() const { return watch_.abandoned.load(std::memory_order_relaxed); }

  /// Bytes read at `offset`, 0 at the end, -1 when the medium fails or the reading was aborted.
  std::int64_t readAt(std::int64_t offset, std::span<std::uint8_t> out) const;

 private:
  std::string path_;
  base::JobWatch& watch_;
  int descriptor_ = -1;
  base::FileStamp stamp_;
};

/// The file of this name as it is now, without opening it; none if it cannot be examined.
std::optional<base::FileStamp> stampOfFile(const std::string& path);

/// The path's last part, in quotes, for error texts; bytes that are no UTF-8 become "?".
std::string quotedName(const std::string& path);

}  // namespace nerolith::sound
