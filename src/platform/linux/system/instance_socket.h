// One player for each user and desktop, by a lock and a socket in the user's runtime folder.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "platform/first_instance.h"

namespace nerolith::system {

/// The lock (flock) tells which run is the first; the kernel drops it with the process, so what a
/// dead run leaves behind stands in nobody's way. The socket takes what later runs hand over: one
/// packet each, answered once the first run has taken it. Without a folder for them every run is a
/// first one.
class InstanceSocket : public platform::FirstInstance {
 public:
  /// Calls `readable` on the user-interface thread whenever `descriptor` can be read; the program's
  /// event loop does that.
  using Watch = std::function<void(int descriptor, std::function<void()> readable)>;

  struct Place {
    std::string folder;  // empty: there is none
    std::string name;
    /// How long a first run may take to answer.
    std::chrono::milliseconds patience = std::chrono::seconds(5);
  };

  /// The place of this user and this desktop.
  static Place usualPlace();

  explicit InstanceSocket(Place place, Watch watch);
  ~InstanceSocket() override;
  InstanceSocket(const InstanceSocket&) = delete;
  InstanceSocket& operator=(const InstanceSocket&) = delete;

  bool claim(const platform::StartRequest& request) override;
  void listen(std::function<void(const platform::StartRequest&)> laterStart) override;

 private:
  enum class Delivery { Taken, NobodyThere };

  bool lock();
  void openSocket();
  Delivery handOver(const platform::StartRequest& request,
                    std::chrono::steady_clock::time_point latest) const;
  std::optional<platform::StartRequest> take() const;

  Place place_;
  Watch watch_;
  std::function<void(const platform::StartRequest&)> laterStart_;
  int folder_ = -1;
  int lock_ = -1;
  int socket_ = -1;
};

}  // namespace nerolith::system
