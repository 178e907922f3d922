#include "recording/sound_layout.h"

#include <algorithm>
#include <limits>

namespace nerolith::recording {
namespace {

constexpr std::int64_t kFrameBytes = 4;
/// A stop can flush almost the whole buffer as one piece.
constexpr std::int64_t kMostInLast = 2 * kPieceBytes;

}  // namespace

std::optional<SoundLayout> layoutByHeader(std::int64_t length, std::int64_t counted) {
  const std::int64_t extra = length - counted;
  if (extra == 0 && counted == 0) return SoundLayout{};
  if (extra < kExtraBytes || extra % kExtraBytes != 0) return std::nullopt;
  const std::int64_t pieces = extra / kExtraBytes - 1;
  const std::int64_t last = counted - pieces * kPieceBytes;
  if (last < 0 || last > kMostInLast) return std::nullopt;
  return SoundLayout{pieces, last};
}

CutLayout layoutByLength(std::int64_t length) {
  const std::int64_t pieces = length / (kPieceBytes + kExtraBytes);
  const std::int64_t rest = length % (kPieceBytes + kExtraBytes);
  if (rest == 0) return {{pieces, 0}, 0};
  // Sound comes in fours, and the extra sample makes it a number that leaves two.
  const std::int64_t missing = (kFrameBytes + kExtraBytes - rest % kFrameBytes) % kFrameBytes;
  return {{pieces, rest + missing - kExtraBytes}, missing};
}

ExtraSampleFilter::Run ExtraSampleFilter::run() const {
  const std::int64_t piece = kPieceBytes + kExtraBytes;
  const std::int64_t last = layout_.pieces * piece;
  if (reached_ < last) {
    const std::int64_t within = reached_ % piece;
    return within < kPieceBytes ? Run{true, kPieceBytes - within} : Run{false, piece - within};
  }
  const std::int64_t left = last + layout_.lastBytes - reached_;
  if (left > 0) return {true, left};
  return {false, std::numeric_limits<std::int64_t>::max()};
}

std::string ExtraSampleFilter::soundOf(std::string_view bytes) {
  std::string sound;
  while (!bytes.empty()) {
    const Run next = run();
    const auto count = std::min(bytes.size(), static_cast<std::size_t>(next.length));
    if (next.sound) sound += bytes.substr(0, count);
    bytes.remove_prefix(count);
    reached_ += static_cast<std::int64_t>(count);
  }
  return sound;
}

}  // namespace nerolith::recording
