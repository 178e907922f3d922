#include "recording/wave_command.h"

#include <cstdint>

#include "base/failure_policy.h"
#include "platform/failure.h"
#include "recording/unfinished_recording.h"
#include "recording/wave_repair.h"

namespace nerolith::recording {
namespace {

constexpr const char* kRepair = "--repair";
constexpr const char* kStandard = "--standard";
constexpr std::int64_t kBytesPerSecond = 176400;

/// "74 min 3.5 s": lengths as one reads them off a clock.
std::string lengthText(std::int64_t bytes) {
  const std::int64_t tenths = bytes * 10 / kBytesPerSecond;
  const std::string seconds =
      std::to_string(tenths / 10 % 60) + "." + std::to_string(tenths % 10) + " s";
  return tenths < 600 ? seconds : std::to_string(tenths / 600) + " min " + seconds;
}

/// What is whole need not be offered for repair at the next start; unless it is being written.
void forgetNoteOf(const std::string& path, const platform::ByteFiles& bytes,
                  platform::OutputFiles& output, platform::SettingsStore& settings) {
  UnfinishedRecording unfinished(settings);
  const std::string noted = unfinished.path();
  if (noted.empty()) return;
  base::endQuietly([&] {
    if (!bytes.same(path, noted)) return;
    output.reopen(path)->close();
    unfinished.forget();
  });
}

CommandAnswer repair(const std::string& path, const platform::ByteFiles& bytes,
                     platform::OutputFiles& output, platform::SettingsStore& settings) {
  const RepairReport report = repairRecording(bytes, output, path);
  forgetNoteOf(path, bytes, output, settings);
  const std::string length = lengthText(report.soundBytes) + " of sound";
  if (!report.changed) return {0, path + ": needs no repair, " + length};
  return {0, path + ": repaired, " + length};
}

CommandAnswer copy(const std::string& from, const std::string& to, const platform::ByteFiles& bytes,
                   platform::OutputFiles& output) {
  const std::int64_t sound = writeStandardCopy(bytes, output, from, to);
  return {0, to + ": " + lengthText(sound) + " of sound"};
}

}  // namespace

bool isWaveCommand(const std::string& word) { return word == kRepair || word == kStandard; }

std::optional<CommandAnswer> answerWaveCommand(const std::vector<std::string>& words,
                                               const platform::ByteFiles& bytes,
                                               platform::OutputFiles& output,
                                               platform::SettingsStore& settings) {
  if (words.empty() || !isWaveCommand(words[0])) return std::nullopt;
  try {
    if (words[0] == kRepair && words.size() == 2) return repair(words[1], bytes, output, settings);
    if (words[0] == kStandard && words.size() == 3) return copy(words[1], words[2], bytes, output);
  } catch (const platform::Failure& failure) {
    return CommandAnswer{1, failure.what()};
  }
  if (words[0] == kRepair) return CommandAnswer{2, "Usage: velmarion --repair FILE.wav"};
  return CommandAnswer{2, "Usage: velmarion --standard FILE.wav OUT.wav"};
}

}  // namespace nerolith::recording
