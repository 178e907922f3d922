// Gives memory back that only the start needed.
#pragma once

#include <cstddef>

namespace nerolith::system {

/// Unmaps the pages of program and libraries that hold code and constants: linking some two hundred
/// libraries touched much of them once. What is used again comes back from the page cache by
/// itself, at a few microseconds a piece; what is not is the first that the system can put to
/// another use. Pages that may differ from their file are left alone. Also returns free heap.
///
/// Call it once, when start and first song have settled. Any thread; never fails. Returns the bytes
/// of the mappings that were given back.
std::size_t giveBackStartUpPages();

}  // namespace nerolith::system
