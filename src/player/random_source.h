// Where random play's draws come from.
#pragma once

#include <cstdint>
#include <random>

namespace nerolith::player {

/// A uniform generator in [0, 1), the same sequence in every run and on every machine: it starts
/// from one fixed seed and nothing ever seeds it from a clock. Each draw uses exactly one number of
/// the generator, so discarding n draws is the same as making them.
class RandomSource {
 public:
  /// 0 <= draw < 1.
  double draw();
  void discard(std::uint64_t draws);

 private:
  static constexpr std::uint32_t kSeed = 20061;
  std::mt19937 generator_{kSeed};
};

}  // namespace nerolith::player
