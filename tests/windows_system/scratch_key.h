// A registry key for one test.
#pragma once

#include <windows.h>

#include <string>

#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {

/// Below HKEY_CURRENT_USER; absent at first, gone with all in it at the end.
class ScratchKey {
 public:
  ScratchKey() { clear(); }
  ~ScratchKey() { clear(); }
  ScratchKey(const ScratchKey&) = delete;
  ScratchKey& operator=(const ScratchKey&) = delete;

  const std::string& path() const { return path_; }

  /// Puts a value of any type below the key, as another program might.
  void put(const std::string& below, const std::string& name, DWORD type, const void* data,
           std::size_t bytes) const {
    RegistryKey key;
    RegCreateKeyExW(HKEY_CURRENT_USER, wideText(path_ + '\\' + below).c_str(), 0, nullptr, 0,
                    KEY_SET_VALUE, nullptr, key.out(), nullptr);
    RegSetValueExW(key.get(), wideText(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                   static_cast<DWORD>(bytes));
  }

 private:
  void clear() const { RegDeleteTreeW(HKEY_CURRENT_USER, wideText(path_).c_str()); }

  std::string path_ = "Software\\Nerolith tests " + std::to_string(GetCurrentProcessId());
};

}  // namespace nerolith::windows
