// Where the sound lies in a file of the recorder's. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nerolith::recording {

/// Bytes of sound in a half, and of the sample of zero behind every piece.
inline constexpr std::int64_t kPieceBytes = 352800;
inline constexpr std::int64_t kExtraBytes = 2;

/// Behind the header: `pieces` times a half of sound and its extra sample, then `lastBytes` of
/// sound, which have an extra sample too unless they were cut off.
struct SoundLayout {
  std::int64_t pieces = 0;
  std::int64_t lastBytes = 0;

  std::int64_t soundBytes() const { return pieces * kPieceBytes + lastBytes; }
  bool operator==(const SoundLayout&) const = default;
};

/// For a finished file with `length` bytes behind its header, which says that `counted` of them
/// are sound. Nothing when the two do not go together.
std::optional<SoundLayout> layoutByHeader(std::int64_t length, std::int64_t counted);

/// For a file whose recording was cut off: whole pieces as far as they go, then what is left.
/// `missing` bytes at the end (0..3) would complete its last sample and the extra one.
struct CutLayout {
  SoundLayout layout;
  std::int64_t missing = 0;
};
CutLayout layoutByLength(std::int64_t length);

/// Lets the sound through and keeps the extra samples back.
class ExtraSampleFilter {
 public:
  explicit ExtraSampleFilter(const SoundLayout& layout) : layout_(layout) {}

  /// What of `bytes`, the next behind the header, is sound.
  std::string soundOf(std::string_view bytes);

 private:
  /// Bytes from the place reached on that are all sound, or all not.
  struct Run {
    bool sound;
    std::int64_t length;
  };
  Run run() const;

  SoundLayout layout_;
  std::int64_t reached_ = 0;
};

}  // namespace nerolith::recording
