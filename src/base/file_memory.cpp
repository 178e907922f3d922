#include "base/file_memory.h"

namespace nerolith::base {

std::optional<double> FileMemory::recall(const std::string& path, const FileStamp& stamp) const {
  const std::lock_guard lock(mutex_);
  const auto found = known_.find(path);
  if (found == known_.end() || found->second.stamp != stamp) return std::nullopt;
  return found->second.number;
}

void FileMemory::keep(const std::string& path, const FileStamp& stamp, double number) {
  const std::lock_guard lock(mutex_);
  known_.insert_or_assign(path, Known{stamp, number});
}

}  // namespace nerolith::base
