// Settings in the registry.
#pragma once

#include <string>
#include <utility>

#include "platform/settings_store.h"

namespace nerolith::windows {

/// String values below HKEY_CURRENT_USER. A value of another type counts as absent and is replaced
/// by the next write. Texts up to `kLongestText` bytes of UTF-16 are read and written in full;
/// longer ones are a failure. Zero characters at a text's end are lost.
class RegistryStore : public platform::SettingsStore {
 public:
  static constexpr unsigned long kLongestText = 8u << 20;

  RegistryStore() : RegistryStore("Software\\VB and VBA Program Settings") {}
  /// Keeps the settings below another key of the user's.
  explicit RegistryStore(std::string base) : base_(std::move(base)) {}

  std::optional<std::string> read(const std::string& application, const std::string& section,
                                  const std::string& key) const override;
  void write(const std::string& application, const std::string& section, const std::string& key,
             const std::string& text) override;

 private:
  std::string base_;
};

}  // namespace nerolith::windows
