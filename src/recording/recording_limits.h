// How large or long a recording may become, and what its size looks like.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nerolith::recording {

inline constexpr double kBytesPerMegabyte = 1048576;
/// 44100 Hz, 16 bits, stereo.
inline constexpr double kBytesPerSecond = 176400;

/// What a limit box holds once it has been typed into: its number and nothing else ("12abc" ->
/// "12", "abc" -> "0", "" -> "0", "0.5" -> "0.5"). Numbers beyond 1e15 are held to it.
std::string limitText(std::string_view typed);

/// The whole minutes that so many megabytes last, and the whole megabytes of so many minutes, each
/// as the text of the other box.
std::string minutesOfMegabytes(std::string_view megabytes);
std::string megabytesOfMinutes(std::string_view minutes);

/// Whether the recording has to be faded out now, so that the fade's own bytes stay inside the
/// limit. A limit of 0 or less, or none, never asks for that; one that the fade alone fills asks at
/// once. `fadeLength` is in seconds, `fileBytes` counts the sound.
bool limitReached(std::string_view megabytes, float fadeLength, std::int32_t fileBytes);

/// "12.3 MB"; halves of a tenth are rounded up.
std::string sizeText(std::int32_t fileBytes);
/// "Filesize: 12.3 MB".
std::string fileSizeText(std::int32_t fileBytes);

}  // namespace nerolith::recording
