// Tells what the player changed from what the user did.
#pragma once

namespace nerolith::controls {

/// While a renderer's widget is brought in line with its model it reports changes as if the user
/// had made them; `held()` says that they are only the echo.
class EchoGuard {
 public:
  class Hold {
   public:
    explicit Hold(EchoGuard& guard) : guard_(guard) { ++guard_.depth_; }
    ~Hold() { --guard_.depth_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    EchoGuard& guard_;
  };

  bool held() const { return depth_ > 0; }

 private:
  int depth_ = 0;
};

}  // namespace nerolith::controls
