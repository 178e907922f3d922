// How a line of boxes shares the room it has.
#pragma once

#include <vector>

namespace nerolith::windows_forms {

/// One box along the line, in pixels.
struct Share {
  int wanted = 0;
  int least = 0;
  int stretch = 0;
  bool grows = false;
};

/// The length of each box, together `room` where the boxes allow it: what is left over goes to the
/// boxes with a stretch, by their stretch, else to those that grow, else to all alike; no box is
/// shorter than wanted for another's stretch. Where room is missing, boxes shrink towards their
/// least, each by its part of what all of them can give.
std::vector<int> shareRoom(const std::vector<Share>& boxes, int room);

}  // namespace nerolith::windows_forms
