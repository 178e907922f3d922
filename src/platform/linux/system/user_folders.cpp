#include "platform/linux/system/user_folders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace nerolith::system {
namespace {

constexpr char kOwnFolder[] = "/velmarion";

std::string withoutSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

/// Relative paths in the environment do not count: so the base directory rules say.
std::string fromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value && value[0] == '/' ? withoutSlashes(value) : std::string();
}

std::string ownFolder(const char* variable, const std::string& inHome) {
  const std::string base = fromEnvironment(variable);
  if (!base.empty()) return base + kOwnFolder;
  const std::string home = homeFolder();
  return (home == "/" ? "" : home) + inHome + kOwnFolder;
}

}  // namespace

std::string homeFolder() {
  std::string home = fromEnvironment("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user && user->pw_dir && user->pw_dir[0] == '/' ? withoutSlashes(user->pw_dir) : "/";
}

std::string configFolder() { return ownFolder("XDG_CONFIG_HOME", "/.config"); }

std::string dataFolder() { return ownFolder("XDG_DATA_HOME", "/.local/share"); }

std::string companionsFolder(const std::string& programFolder) {
  const std::filesystem::path folder(programFolder);
  if (folder.filename() != "bin") return programFolder;
  const std::string shared = folder.parent_path() / "share" / &kOwnFolder[1];
  std::error_code error;
  return std::filesystem::is_directory(shared, error) ? shared : programFolder;
}

std::string runtimeFolder() {
  const std::string base = fromEnvironment("XDG_RUNTIME_DIR");
  const std::string folder = base.empty()
                                 ? "/tmp" + std::string(kOwnFolder) + "-" + std::to_string(getuid())
                                 : base + kOwnFolder;
  mkdir(folder.c_str(), S_IRWXU);
  // Anyone may have made it in the temporary folder first.
  struct stat status {};
  const bool ours = lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                    status.st_uid == getuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
  return ours ? folder : std::string();
}

}  // namespace nerolith::system
