// Files written piece by piece, over hours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace nerolith::platform {

/// A file open for writing; no other program that asks first may write it meanwhile. Destroying it
/// closes it and lets every failure pass.
///
/// The failures name the file and say what is wrong with it: the disk is full, the file or its
/// folder was removed, another program holds it. Nothing is tried again by itself.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Bytes in the file.
  virtual std::int64_t size() const = 0;
  /// Writes at the end. On failure the file is as long as before, as far as the disk allows.
  virtual void append(std::span<const std::byte> bytes) = 0;
  /// Overwrites bytes that are there: fails, and writes nothing, for a place beyond the end.
  virtual void writeAt(std::int64_t offset, std::span<const std::byte> bytes) = 0;
  /// Closes it; all is on the disk when this returns. Every later call fails, but `close`, which
  /// does nothing. After a failure it is closed as well.
  virtual void close() = 0;
};

/// User-interface thread only. Paths as in `FileSystem`.
class OutputFiles {
 public:
  virtual ~OutputFiles() = default;

  /// A new, empty file; one of that name is deleted first. Fails when that cannot be deleted (it
  /// is read-only, or open elsewhere), and when the folder is missing or cannot be written to.
  virtual std::unique_ptr<OutputFile> create(const std::string& path) = 0;
  /// An existing file, its bytes as they are; fails when it is missing, is no plain file, is
  /// read-only, or is being written by another program (this one included).
  virtual std::unique_ptr<OutputFile> reopen(const std::string& path) = 0;
  /// A new file that takes its name only with `close`, in one step, an older file of that name
  /// gone in the same moment. Destroyed before that, it leaves no trace.
  virtual std::unique_ptr<OutputFile> replace(const std::string& path) = 0;
};

}  // namespace nerolith::platform
