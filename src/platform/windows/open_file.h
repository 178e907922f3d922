// An open file of the system's.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows/handles.h"

namespace nerolith::windows {

/// Closed with its owner. Every call fails with the path and the system's words.
class OpenFile {
 public:
  /// `path` is tidy. Opens as CreateFile does, what is no file on a disk fails. `sharing` is what
  /// others may do meanwhile.
  OpenFile(std::string path, DWORD access, DWORD disposition,
           DWORD sharing = FILE_SHARE_READ | FILE_SHARE_DELETE);

  HANDLE get() const { return handle_.get(); }
  const std::string& path() const { return path_; }

  std::uint64_t size() const;
  void moveTo(std::uint64_t position) const;
  /// Reads at most `most` bytes from where the last reading ended; empty at the end.
  std::string read(std::size_t most) const;
  void write(std::string_view bytes) const;
  /// Returns once all is on the disk.
  void flush() const;
  /// Cuts the file off at `size`.
  void cut(std::uint64_t size) const;
  /// Whether the system deletes the file when it is closed, by whatever way.
  void deleteWhenClosed(bool deleting) const;

 private:
  std::string path_;
  SystemHandle handle_;
};

}  // namespace nerolith::windows
