// What was found out about files, for as long as these stay as they were.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace nerolith::base {

/// Two equal stamps of one path: nobody has written to the file in between.
struct FileStamp {
  std::int64_t size = 0;       // bytes
  std::int64_t changed = 0;    // time of the last change, in the system's finest unit
  std::uint64_t identity = 0;  // tells a file from another of the same name, where that is known
  bool operator==(const FileStamp&) const = default;
};

/// One number for each path, forgotten when the file's stamp is another. For any thread.
class FileMemory {
 public:
  std::optional<double> recall(const std::string& path, const FileStamp& stamp) const;
  void keep(const std::string& path, const FileStamp& stamp, double number);

 private:
  struct Known {
    FileStamp stamp;
    double number;
  };

  mutable std::mutex mutex_;
  std::unordered_map<std::string, Known> known_;
};

}  // namespace nerolith::base
