// Sound files of every kind, made when the tests run with the tools of the distribution.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "linux_sound/scratch.h"

namespace nerolith::sound_tests {

/// The program is on the PATH.
bool haveTool(const std::string& name);
/// Runs a shell command with its output dropped; whether it succeeded.
bool runTool(const std::string& command);

void writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);

/// One kind of file, and what may be asked of it.
struct SoundKind {
  const char* name;     // the file's name
  const char* command;  // makes {out} of {in}, a stereo wave file of the chirp at 44.1 kHz
  double seekSlack;     // seconds by which a seek may be off; 0: to the very frame
};

std::ostream& operator<<(std::ostream& out, const SoundKind& kind);
const std::vector<SoundKind>& soundKinds();

/// Makes a file of `kind` in `scratch` from a chirp of so many seconds; empty if the tool failed.
std::string makeSound(const Scratch& scratch, const SoundKind& kind, double seconds);

}  // namespace nerolith::sound_tests
