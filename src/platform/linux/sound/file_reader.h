// Reading one local file for a decoder, with error texts for the user.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <string>

namespace nerolith::sound {

/// An open regular file. A name may hold any bytes. No other thing than a file of this machine's
/// file systems is ever opened: no address, pipe or device.
class FileReader {
 public:
  /// Fails (`platform::Failure`) for a missing, unreadable or empty file and for anything that is
  /// no regular file. `abort`, once true, makes later reads fail; it must outlive the reader.
  FileReader(const std::string& path, const std::atomic<bool>& abort);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  const std::string& path() const { return path_; }
  std::int64_t size() const { return size_; }
  bool aborted() const { return abort_.load(std::memory_order_relaxed); }

  /// Bytes read at `offset`, 0 at the end, -1 when the medium fails or the reading was aborted.
  std::int64_t readAt(std::int64_t offset, std::span<std::uint8_t> out) const;

 private:
  std::string path_;
  const std::atomic<bool>& abort_;
  int descriptor_ = -1;
  std::int64_t size_ = 0;
};

/// The path's last part, in quotes, for error texts; bytes that are no UTF-8 become "?".
std::string quotedName(const std::string& path);

}  // namespace nerolith::sound
