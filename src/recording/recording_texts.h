// What the recording section has to say, word for word.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::recording {

/// Lines end in a carriage return and a line feed.
extern const std::string_view kHowToText;
extern const std::string_view kVolumeSettingsText;
extern const std::string_view kCalibrationText;

inline constexpr std::string_view kFileQuestionTitle = "Select Filename to record to";
inline constexpr std::string_view kFileQuestionFilter = "*.wav|*.wav";
inline constexpr std::string_view kOverwriteQuestion = "File already exists. Overwrite file?";

inline constexpr std::string_view kStandardCopyTitle = "Save a standard WAV copy";

/// Asked at the start after a run that was cut off while it recorded.
std::string unfinishedText(const std::string& path);

/// Calibration's key, off and on.
inline constexpr std::string_view kCalibrate = "Calibrate Sound levels";
inline constexpr std::string_view kStopCalibrate = "Stop Calibrate";

/// Why there is no recording section; `whereToObtain` is the platform's own line in it.
std::string noRecorderText(const std::string& whereToObtain);

}  // namespace nerolith::recording
