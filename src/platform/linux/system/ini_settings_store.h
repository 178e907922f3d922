// Settings in one key file of the user's.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/settings_store.h"

namespace nerolith::system {

/// $XDG_CONFIG_HOME/velmarion/settings.ini in key-file syntax: group [application/section], one
/// line for each key. What others put there (comments, other groups and keys) stays, and a change
/// that another program or the user makes is seen by the next call. Used from one thread.
///
/// A file that is no key file (garbage, more than 1 MiB, a folder in its place) is set aside as
/// settings.ini.damaged-1, -2, ... and the store starts empty; `trouble` tells it. A file that may
/// not be read, or not be set aside, is left alone: every call fails until that is mended.
///
/// `write` returns when the new file is complete on the disk and has replaced the old one in one
/// step; a text that is stored already costs no writing. A link is followed, not replaced.
class IniSettingsStore : public platform::SettingsStore {
 public:
  /// Touches nothing yet: the file is read at the first call.
  explicit IniSettingsStore(std::string path = defaultPath());
  ~IniSettingsStore() override;

  static std::string defaultPath();

  std::optional<std::string> read(const std::string& application, const std::string& section,
                                  const std::string& key) const override;
  void write(const std::string& application, const std::string& section, const std::string& key,
             const std::string& text) override;

  /// What the user should be told, once: it is empty when asked again, and when all is well.
  std::string trouble();

 private:
  struct Contents;
  /// Tells one state of the file on disk from another; all 0: there is none.
  struct Stamp {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t seconds = 0, nanoseconds = 0;
    bool operator==(const Stamp&) const = default;
  };

  Stamp stampOfFile() const;
  void refresh() const;
  void setAside() const;

  std::string path_;
  mutable std::unique_ptr<Contents> contents_;
  mutable Stamp stamp_;
  mutable std::string trouble_;
};

}  // namespace nerolith::system
