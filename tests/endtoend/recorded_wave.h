// A WAV file as the recording section writes it, judged from outside.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "endtoend/mix_check.h"
#include "endtoend/spectrum.h"

namespace nerolith::endtoend {

/// The recorder fetches sound in halves of four seconds, and puts one empty sample behind each
/// half and behind the rest that it fetches when it stops. Its header does not count these.
inline constexpr std::int64_t kHalfBytes = 352800;

struct RecordedWave {
  std::int64_t fileBytes = 0;
  std::int64_t dataBytes = 0;  // as its header says
  Sound sound;                 // without the empty samples, left and right averaged

  double seconds() const { return static_cast<double>(dataBytes) / 176400; }
};

/// How a recording came to its end.
enum class Ending {
  Stopped,  // the recorder fetched the rest and finished the file
  CutOff,   // the program was killed and the file repaired: whole halves, as far as they came
};

/// Reads it and adds to `complaints` what its header or its length has wrong, and every extra
/// sample that is not empty. A file that is none gives an empty sound.
RecordedWave readRecorded(const std::filesystem::path& file, Complaints& complaints,
                          Ending ending = Ending::Stopped);

/// Moments at which a steady tone's phase is not where it was 10 ms before, in seconds: samples
/// that were lost or came twice. A single one shows in any tone above 200 Hz. Where the tone is
/// quieter than -45 dB nothing is asked.
std::vector<double> phaseLeaps(const Sound& sound, double hertz, double from, double to);

}  // namespace nerolith::endtoend
