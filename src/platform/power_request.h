// Keeps the machine from falling asleep by itself.
#pragma once

namespace nerolith::platform {

/// Held or not; at the start it is not, and what is held ends with the program however that ends.
/// The screen may go dark meanwhile, and the user may send the machine to sleep (a desktop may ask
/// whether that is meant). Never fails and never waits: where nobody can be asked, nothing happens.
/// User-interface thread only.
class PowerRequest {
 public:
  enum class Why { Playing, Recording };

  virtual ~PowerRequest() = default;

  /// Not called twice without `release` in between.
  virtual void hold(Why why) = 0;
  /// Only called while it is held.
  virtual void release() = 0;
};

/// A machine that is not asked.
class NoPowerRequest final : public PowerRequest {
 public:
  void hold(Why) override {}
  void release() override {}
};

}  // namespace nerolith::platform
