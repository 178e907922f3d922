#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <thread>

#include "contracts/clock_contract.h"
#include "contracts/file_system_contract.h"
#include "contracts/settings_store_contract.h"
#include "linux_system/scratch_folder.h"
#include "platform/linux/system/ini_settings_store.h"
#include "platform/linux/system/posix_file_system.h"
#include "platform/linux/system/system_clock.h"

namespace nerolith::contracts {
namespace {

struct PosixBackend {
  ~PosixBackend() { std::filesystem::current_path("/"); }

  platform::FileSystem& files() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, double modified = 44000) {
    scratch.addFile(relative);
    scratch.setModified(relative, modified);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void remove(const std::string& relative) { std::filesystem::remove_all(scratch.path(relative)); }
  void protect(const std::string& relative) { chmod(scratch.path(relative).c_str(), 0444); }

  system::ScratchFolder scratch;
  system::PosixFileSystem system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FileSystemContract, PosixBackend);

struct IniBackend {
  platform::SettingsStore& store() { return *settings; }
  void restart() { settings = std::make_unique<system::IniSettingsStore>(file); }

  system::ScratchFolder scratch;
  std::string file = scratch.path("config/velmarion/settings.ini");
  std::unique_ptr<system::IniSettingsStore> settings =
      std::make_unique<system::IniSettingsStore>(file);
};
INSTANTIATE_TYPED_TEST_SUITE_P(Ini, SettingsStoreContract, IniBackend);

struct SystemClockBackend {
  platform::Clock& clock() { return system; }
  void pass() { std::this_thread::sleep_for(std::chrono::milliseconds(2)); }
  system::SystemClock system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(System, ClockContract, SystemClockBackend);

}  // namespace
}  // namespace nerolith::contracts
