#include "platform/windows/forms/box_arithmetic.h"

#include <algorithm>
#include <cstddef>

namespace nerolith::windows_forms {
namespace {

int sumOf(const std::vector<Share>& boxes, int Share::*part) {
  int sum = 0;
  for (const Share& box : boxes) sum += box.*part;
  return sum;
}

std::vector<int> shrunk(const std::vector<Share>& boxes, int missing) {
  std::vector<int> lengths;
  int slack = sumOf(boxes, &Share::wanted) - sumOf(boxes, &Share::least);
  for (const Share& box : boxes) {
    const int own = box.wanted - box.least;
    const int given = slack > 0 ? std::min(own, missing * own / slack) : 0;
    slack -= own;
    missing -= given;
    lengths.push_back(box.wanted - given);
  }
  return lengths;
}

/// Shares `room` by weight among the boxes that have one; those that want more than their share
/// take what they want and leave the rest to the others.
void shareByWeight(const std::vector<Share>& boxes, std::vector<int> weights, int room,
                   std::vector<int>& lengths) {
  for (bool settled = false; !settled;) {
    settled = true;
    int total = 0;
    for (const int weight : weights) total += weight;
    int left = room;
    int weightLeft = total;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      if (weights[i] == 0) continue;
      const int part = weightLeft > 0 ? left * weights[i] / weightLeft : 0;
      if (part < boxes[i].wanted) {
        lengths[i] = boxes[i].wanted;
        room -= lengths[i];
        weights[i] = 0;
        settled = false;
        break;
      }
      lengths[i] = part;
      left -= part;
      weightLeft -= weights[i];
    }
  }
}

}  // namespace

std::vector<int> shareRoom(const std::vector<Share>& boxes, int room) {
  const int missing = sumOf(boxes, &Share::wanted) - room;
  if (missing > 0) return shrunk(boxes, missing);
  std::vector<int> lengths;
  std::vector<int> weights;
  for (const Share& box : boxes) {
    lengths.push_back(box.wanted);
    weights.push_back(box.stretch);
  }
  const auto none = [&] {
    return std::all_of(weights.begin(), weights.end(), [](int w) { return w == 0; });
  };
  if (none())
    for (std::size_t i = 0; i < boxes.size(); ++i) weights[i] = boxes[i].grows ? 1 : 0;
  if (none()) {
    // Nobody asked for more: each place widens alike, and what stands in it stays in its middle.
    const int count = static_cast<int>(boxes.size());
    for (int i = 0; i < count; ++i)
      lengths[static_cast<std::size_t>(i)] += (-missing * (i + 1)) / count - (-missing * i) / count;
    return lengths;
  }
  for (std::size_t i = 0; i < boxes.size(); ++i)
    if (weights[i] == 0) room -= boxes[i].wanted;
  shareByWeight(boxes, std::move(weights), room, lengths);
  return lengths;
}

}  // namespace nerolith::windows_forms
