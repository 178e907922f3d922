#include <gtest/gtest.h>

#include "contracts/clock_contract.h"
#include "contracts/file_system_contract.h"
#include "contracts/settings_store_contract.h"
#include "platform/windows/registry_store.h"
#include "platform/windows/system_clock.h"
#include "platform/windows/windows_file_system.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/scratch_key.h"

namespace nerolith::contracts {
namespace {

struct WindowsBackend {
  platform::FileSystem& files() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, double modified = 44000) {
    scratch.addFile(relative);
    scratch.setModified(relative, modified);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void remove(const std::string& relative) { scratch.remove(relative); }
  void protect(const std::string& relative) {
    scratch.addAttributes(relative,
                          FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  }

  windows::ScratchFolder scratch;
  windows::WindowsFileSystem system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FileSystemContract, WindowsBackend);

struct RegistryBackend {
  platform::SettingsStore& store() { return settings; }
  void restart() { settings = windows::RegistryStore(scratch.path()); }

  windows::ScratchKey scratch;
  windows::RegistryStore settings{scratch.path()};
};
INSTANTIATE_TYPED_TEST_SUITE_P(Registry, SettingsStoreContract, RegistryBackend);

struct SystemClockBackend {
  platform::Clock& clock() { return system; }
  void pass() { Sleep(20); }
  windows::SystemClock system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(System, ClockContract, SystemClockBackend);

}  // namespace
}  // namespace nerolith::contracts
