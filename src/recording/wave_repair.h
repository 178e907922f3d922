// Gives the sound of a recording back that was cut off, and makes copies for other programs.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/byte_files.h"
#include "platform/output_file.h"

namespace nerolith::recording {

struct RepairReport {
  bool changed = false;  // false: the file was finished already, and was left alone
  std::int64_t soundBytes = 0;
};

/// Writes the sizes into the header of a recording whose program was killed, or whose machine was
/// switched off; the sound itself is left as it is, but for the extra sample that a cut-off end
/// lacks. Fails for a file that is not one of the recorder's, that holds no sound, that is being
/// recorded, or that cannot be written to; it is then as it was.
RepairReport repairRecording(const platform::ByteFiles& bytes, platform::OutputFiles& output,
                             const std::string& path);

/// Whether the recording was finished or repaired: nothing is left to do for it. Fails for a file
/// that is not one of the recorder's, or that holds no sound.
bool isFinished(const platform::ByteFiles& bytes, const std::string& path);

/// Writes the sound of the recording `from`, finished or not, into a new file `to` as the standard
/// has it: no extra samples, and the sizes that other programs expect. Streams, whatever the
/// length; `to` appears in one step, and an older file of that name stays until then. `between` is
/// called between blocks, so that a window may live on; what it throws ends the copy and passes.
///
/// Returns the bytes of sound. Fails for a file that is not one of the recorder's, that holds no
/// sound or too much for a WAV file (4 GB), and when both are the same file.
std::int64_t writeStandardCopy(const platform::ByteFiles& bytes, platform::OutputFiles& output,
                               const std::string& from, const std::string& to,
                               const std::function<void()>& between = {});

}  // namespace nerolith::recording
