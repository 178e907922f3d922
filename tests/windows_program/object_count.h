// How many system objects a process holds, on Windows and under Wine.
#pragma once

#include <windows.h>

namespace nerolith::windows_program {

struct ObjectCount {
  long handles = 0;  // of the kernel
  long drawing = 0;  // of GDI
};

/// Asks the system, and where that has no answer (Wine 8 counts neither) its tables. Throws
/// std::runtime_error when nobody knows.
ObjectCount objectsOf(HANDLE process);

}  // namespace nerolith::windows_program
