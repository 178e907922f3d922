// An open file of the system's.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace nerolith::system {

/// Closed with its owner. Every call fails with the path and the system's words.
class Descriptor {
 public:
  /// Opens as open(2) does.
  Descriptor(std::string path, int flags, mode_t mode = 0);
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return value_; }
  const std::string& path() const { return path_; }

  struct stat status() const;
  /// Fails for what is no regular file.
  void requireRegular() const;
  /// Reads at most `most` bytes from where the last reading ended; empty at the end.
  std::string read(std::size_t most) const;
  void write(std::string_view bytes) const;
  /// Returns once all is on the disk.
  void flush() const;

 private:
  std::string path_;
  int value_;
};

/// The folder that a path lies in, "." for a bare name.
std::string folderOf(const std::string& path);

/// Where a chain of links ends, whether something is there or not; the path itself when it is no
/// link. Fails when the chain has no end.
std::string linkTarget(const std::string& path);

}  // namespace nerolith::system
