// Files as bytes: read, replaced as a whole, or made longer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace nerolith::platform {

/// Paths as in `FileSystem`. A name that is a link stands for the file at its end. What is no
/// regular file (a folder, a pipe, a device) fails, and so does writing to a read-only file, or to
/// one in a folder that is not there. Every write is on the disk when the call returns.
///
/// A disk that does not answer is given up after some seconds. Used on the user-interface thread.
class ByteFiles {
 public:
  virtual ~ByteFiles() = default;

  using TakeBlock = std::function<void(std::string_view block)>;

  /// Hands the file's bytes to `take`, from the first to the last in blocks of some size; an empty
  /// file has none. Fails when the file cannot be opened, before the first block, or when reading
  /// breaks off, after what was read. What `take` throws passes through.
  virtual void read(const std::string& path, const TakeBlock& take) const = 0;
  /// Bytes in the file. Fails when it is missing or cannot be opened.
  virtual std::uint64_t size(const std::string& path) const = 0;
  /// Whether both names lead to one file, over links too; no when one of them leads nowhere.
  virtual bool same(const std::string& path, const std::string& other) const = 0;
  /// The last bytes of the file, `most` of them or as many as there are.
  virtual std::string readEnd(const std::string& path, std::size_t most) const = 0;

  /// Makes an empty file; a file that is there already stays as it is.
  virtual void create(const std::string& path) = 0;
  /// Puts `bytes` into the file in one step, new or instead of what it held: whoever looks, and
  /// however the step ends (a full disk, a crash, a power cut), the file is the old one or the new
  /// one, whole. It keeps its permissions. A failure leaves nothing else behind.
  virtual void replace(const std::string& path, const std::string& bytes) = 0;
  /// Adds `bytes` at the end of a file that is there. On failure the file is as long as before.
  virtual void append(const std::string& path, const std::string& bytes) = 0;
};

/// All bytes of a file at once; fails as `read` does.
inline std::string readWhole(const ByteFiles& files, const std::string& path) {
  std::string bytes;
  files.read(path, [&bytes](std::string_view block) { bytes += block; });
  return bytes;
}

}  // namespace nerolith::platform
