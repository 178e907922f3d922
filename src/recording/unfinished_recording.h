// A note that outlives the program: which recording was begun and not finished.
#pragma once

#include <string>

#include "platform/settings_store.h"

namespace nerolith::recording {

/// Kept in the settings ("Nerolith", "Recording", "unfinished"; empty: none). The recorder sets it
/// while it records. What is noted at the start of the program was cut off by a crash, a kill or a
/// power cut: offer `repairRecording` for it, then `forget` it, whatever the answer was.
///
/// Never fails: a note that cannot be written is no reason not to record.
class UnfinishedRecording {
 public:
  explicit UnfinishedRecording(platform::SettingsStore& settings) : settings_(settings) {}

  /// The file's path; empty: all recordings were finished.
  std::string path() const;
  void remember(const std::string& path);
  void forget() { remember({}); }

 private:
  platform::SettingsStore& settings_;
};

}  // namespace nerolith::recording
