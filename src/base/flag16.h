// 16-bit booleans: every bit set is true, 0 is false, toggled by bitwise complement.
#pragma once

#include <cstdint>

namespace nerolith::base {

using Flag16 = std::int16_t;

inline constexpr Flag16 kTrue = -1;
inline constexpr Flag16 kFalse = 0;

constexpr Flag16 toFlag(bool value) { return value ? kTrue : kFalse; }
constexpr bool isSet(Flag16 flag) { return flag != kFalse; }

/// The bitwise complement: kTrue and kFalse change places; any other value stays "neither".
constexpr Flag16 complement(Flag16 flag) { return static_cast<Flag16>(~flag); }

}  // namespace nerolith::base
