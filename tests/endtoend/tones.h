// Songs made for measuring: a test knows from the sound alone which one plays, and where in it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "endtoend/spectrum.h"

namespace nerolith::endtoend {

/// 12 dB below full scale, so that two songs at full volume sum without clipping.
inline constexpr double kToneAmplitude = 0.25;
inline constexpr double kToneLevel = -12.04;

/// A steady sine; its edges rise and fall within 10 ms, since a hard edge is a click by itself.
Sound tone(double hertz, double seconds);

/// A song whose frequency tells the position in it: it climbs from 500 Hz by 300 Hz each second.
Sound climbingTone(double seconds);
double positionInClimb(double hertz);

/// Twenty frequencies below 6 kHz, 270 Hz apart, in an order that keeps songs which follow one
/// another 1890 Hz apart or more: a coder's noise lies around its tone, and would hide the last of
/// the song before.
double songFrequency(std::size_t index);

void writeWav(const Sound& sound, const std::filesystem::path& file);

/// What a file holds, as the coders' own library decodes it.
Sound decode(const std::filesystem::path& file);

struct Song {
  std::filesystem::path file;
  double hertz = 0;
  double attack = 0;  // where in the decoded file the tone begins: coders put silence before it
  double length = 0;  // of the decoded file
};

/// Writes `sound` under `file`; the ending chooses the format (wav, mp3, mp2, mpg, aif, wma, asf).
/// Attack and length are measured in what the file decodes to. Throws std::runtime_error when
/// ffmpeg fails.
Song encode(const Sound& sound, double hertz, const std::filesystem::path& file);

/// A tone with 0.1 s of silence on either side: some coders lose the first or last of what they are
/// given, and a tone cut in mid-swing would click by itself.
Sound songOf(double hertz, double seconds);

/// One song for each name in `folder`, the n-th with songFrequency(n). Each is 23 ms longer than
/// the one before, the first lasts `seconds`: equal lengths would let every mix fall into the same
/// phase of the player's timer.
std::vector<Song> makeSongs(const std::filesystem::path& folder,
                            const std::vector<std::string>& names, double seconds);

}  // namespace nerolith::endtoend
