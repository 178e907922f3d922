// Where settings live between runs.
#pragma once

#include <optional>
#include <string>

namespace nerolith::platform {

/// Texts under application / section / key. The names are the registry's
/// (HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<application>\<section>\<key>).
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text; nothing when the value or its key is absent.
  virtual std::optional<std::string> read(const std::string& application,
                                          const std::string& section,
                                          const std::string& key) const = 0;
  /// Creates what is missing on the way. On failure the value stored before stays.
  virtual void write(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& text) = 0;
};

}  // namespace nerolith::platform
