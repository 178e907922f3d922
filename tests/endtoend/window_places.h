// Where things lie in the player's window at its first size, in pixels from its upper left corner.
#pragma once

#include <cmath>

namespace nerolith::endtoend::places {

inline constexpr int kSliderY = 194;
inline constexpr int kMargin = 14;
inline constexpr int kSliderEnd = 9;  // from the slider's edge to the end of its track

/// The slider's place for a share of its length.
inline int sliderX(int windowWidth, double share) {
  const int left = kMargin + kSliderEnd;
  return left + static_cast<int>(std::lround(share * (windowWidth - 2 * left)));
}

inline constexpr int kTimeX = 117, kTimeY = 98;  // the middle of the digits
inline constexpr int kCloseX = 788, kCloseY = 25;
inline constexpr int kHideX = 752;
inline constexpr int kNoticeX = 280, kNoticeY = 90;  // left end of the line under the song's name
inline constexpr int kNoticeWidth = 510, kNoticeHeight = 20;
inline constexpr int kDriveX = 160, kDriveY = 283;
inline constexpr int kStopX = 475, kStopY = 244;
inline constexpr int kFolderX = 500, kFolderY = 283;
inline constexpr int kListX = 150, kListY = 450;  // in the midst of the song list

// The same in the recording section.
inline constexpr int kSectionX = 236;  // its middle
inline constexpr int kChooseY = 125, kRecordY = 203, kFadeStopY = 244;
inline constexpr int kMegabytesX = 159, kMegabytesY = 284;
inline constexpr int kHowToY = 355, kVolumesY = 395;
inline constexpr int kCalibrateX = 370, kCalibrateY = 72;
inline constexpr int kMeterX = 60, kMeterY = 30, kMeterWidth = 60, kMeterHeight = 14;
inline constexpr int kSectionNoticeX = 14, kSectionNoticeY = 430;
inline constexpr int kSectionNoticeWidth = 300, kSectionNoticeHeight = 20;
inline constexpr int kExitX = 412, kExitY = 472;

}  // namespace nerolith::endtoend::places
