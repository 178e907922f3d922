// Calls that not every Windows has: looked for when they are needed, so that the program starts
// everywhere.
#pragma once

#include <windows.h>

#include <cstring>

namespace nerolith::windows {

/// Leaves `call` null where the library or the function is missing.
template <typename Call>
void findCall(HMODULE library, const char* name, Call& call) {
  const FARPROC found = library ? GetProcAddress(library, name) : nullptr;
  static_assert(sizeof call == sizeof found);
  std::memcpy(&call, &found, sizeof call);
}

}  // namespace nerolith::windows
