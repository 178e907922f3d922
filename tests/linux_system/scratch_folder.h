// A folder for one test, and ways to fill it.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace nerolith::system {

/// Made empty, gone with all in it at the end; other users may look into it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "nerolith-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no scratch folder");
    root_ = std::filesystem::canonical(name).string();
    chmod(root_.c_str(), 0755);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  /// The folder itself for "".
  std::string path(const std::string& relative = "") const {
    return relative.empty() ? root_ : root_ + "/" + relative;
  }

  void addFolder(const std::string& relative) const {
    std::filesystem::create_directories(path(relative));
  }
  void addFile(const std::string& relative, const std::string& bytes = "") const {
    std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
    const int file = open(path(relative).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0) throw std::runtime_error("no file " + relative);
    if (write(file, bytes.data(), bytes.size()) < 0) throw std::runtime_error("cannot write");
    close(file);
  }
  std::string contents(const std::string& relative) const {
    std::ifstream in(path(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  bool exists(const std::string& relative) const {
    return std::filesystem::exists(std::filesystem::symlink_status(path(relative)));
  }

  /// `day` is a day number of local time.
  void setModified(const std::string& relative, double day) const {
    std::tm local{};
    local.tm_year = 70;
    local.tm_mday = 1 + static_cast<int>(std::floor(day)) - 25569;
    local.tm_sec = static_cast<int>(std::lround((day - std::floor(day)) * 86400));
    local.tm_isdst = -1;
    const timespec moment{std::mktime(&local), 0};
    const timespec times[2] = {moment, moment};
    utimensat(AT_FDCWD, path(relative).c_str(), times, 0);
  }

 private:
  std::string root_;
};

/// For the body of a death test: the rest of this process has no special rights.
inline void becomeNobody() {
  constexpr uid_t kNobody = 65534;
  if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(99);
}

}  // namespace nerolith::system
