// Files read and replaced as a whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace nerolith::system {

/// The bytes of a regular file; nothing when `path` is no regular file or has more than `limit`
/// bytes. Fails when it cannot be opened or read.
std::optional<std::string> readWhole(const std::string& path, std::size_t limit);

/// Puts `bytes` into `path` in one step: a reader, or a power cut, sees the old file or the new
/// one. Makes the folders on the way (for the user only), keeps the file's permissions, follows
/// links. On failure the old file is untouched.
void replaceWhole(const std::string& path, const std::string& bytes);

/// Renames `path` to the first of "PATH.SUFFIX-1", "-2", ... that is free, and returns that name.
std::string setFileAside(const std::string& path, const std::string& suffix);

}  // namespace nerolith::system
