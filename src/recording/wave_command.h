// What the shell may ask of recordings.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/byte_files.h"
#include "platform/output_file.h"
#include "platform/settings_store.h"

namespace nerolith::recording {

struct CommandAnswer {
  int exitCode = 0;  // 0 done, 1 could not be done, 2 not understood
  std::string text;  // for the user; a line without its end
};

/// Answers "--repair FILE.wav" and "--standard FILE.wav OUT.wav"; nothing when `words` (those
/// behind the program's name) begin with neither. A recording that is whole now is no longer noted
/// as unfinished in `settings`. Never fails.
std::optional<CommandAnswer> answerWaveCommand(const std::vector<std::string>& words,
                                               const platform::ByteFiles& bytes,
                                               platform::OutputFiles& output,
                                               platform::SettingsStore& settings);

/// Whether `word` is one of the two: what is to be known before files are opened.
bool isWaveCommand(const std::string& word);

}  // namespace nerolith::recording
