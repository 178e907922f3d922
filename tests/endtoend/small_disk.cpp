#include "endtoend/small_disk.h"

namespace nerolith::endtoend {

SmallDisk::SmallDisk(PrivateDesktop& desktop) : folder_(desktop.scratch() / "small disk") {
  std::filesystem::create_directory(folder_);
  const std::string mount = "mount -t tmpfs -o size=1m none \"$0\" && exec \"$@\"";
  // Some machines let only the super-user mount, some everybody in a world of his own.
  for (const char* apart : {"-m", "-Urm"}) {
    desktop.launcher = {"unshare", apart, "sh", "-c", mount, folder_.string()};
    std::vector<std::string> attempt = desktop.launcher;
    attempt.emplace_back("true");
    mounted_ = runToEnd(desktop.command(attempt)) == 0;
    if (mounted_) return;
  }
  desktop.launcher = {"env", "--ignore-signal=XFSZ", "prlimit", "--fsize=1048576", "--"};
}

std::filesystem::path SmallDisk::seenBeside(pid_t program) const {
  if (!mounted_) return folder_;
  return "/proc/" + std::to_string(program) + "/root" + folder_.string();
}

}  // namespace nerolith::endtoend
