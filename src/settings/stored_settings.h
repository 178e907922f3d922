// Carries the settings between the store and the values that live while the program runs.
#pragma once

#include <string>

#include "platform/settings_store.h"
#include "settings/live_settings.h"
#include "settings/settings_keys.h"

namespace nerolith::settings {

/// Reading never fails: a value that is absent, or that the store cannot give, is its default; a
/// number is taken as far as it reads as one (else 0) and held to the range of its type; what a
/// number means is not checked (a stored colour of 99 stays 99). The start-up calls the readers one
/// by one, in the order in which they stand.
/// Writing fails as the store does; what was written before stays written, the rest is not tried.
class StoredSettings {
 public:
  StoredSettings(platform::SettingsStore& store, LiveSettings& live) : store_(store), live_(live) {}
  StoredSettings(const StoredSettings&) = delete;
  StoredSettings& operator=(const StoredSettings&) = delete;

  /// True when no settings were ever stored (a first run); the colour is then the first run's.
  [[nodiscard]] bool readColour();
  void readTimeInvertedAndLoop();
  /// Mix lead, then mix length.
  void readMix();
  void readKeyTexts();
  void readRecentRule();
  /// The folder shown last; `fallback` where none is stored.
  std::string readPath(const std::string& fallback) const;
  /// A stored text that is no mode ("7", "x") leaves the mode that is set.
  void readMode();
  /// The playlist opened last; empty when there is none.
  std::string readPlaylist() const;

  void writePath(const std::string& path);
  void writePlaylist(const std::string& path);
  void writeMode();
  void writeLoop();
  /// Folder, mode, mix length, mix lead, time display, colour, loop: in this order.
  void saveAll(const std::string& path);

  /// What only the settings window writes: the ten key texts, then the recent-file rule.
  void writeKeyTexts();
  void writeRecentRule();

  bool readMarkForDeletion() const;
  void writeMarkForDeletion(bool marking);
  bool readAdjust() const;
  void writeAdjust(bool adjusting);

 private:
  std::string read(const SettingsKey& key) const;
  std::string readOr(const SettingsKey& key, const std::string& fallback) const;
  void write(const SettingsKey& key, const std::string& text);

  platform::SettingsStore& store_;
  LiveSettings& live_;
};

}  // namespace nerolith::settings
