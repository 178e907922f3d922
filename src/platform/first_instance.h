// One player for each user and desktop: a later start hands over what it was asked for.
#pragma once

#include <functional>
#include <string>

namespace nerolith::platform {

/// A start of the program.
struct StartRequest {
  /// Whole path of the folder that it was started in: relative names count from there.
  std::string directory;
  /// The whole command line as one text, without the program's own name; empty for none.
  std::string commandLine;

  bool operator==(const StartRequest&) const = default;
};

/// Asked before anything else of a player is made. Starts that need no player (--help, --version,
/// --repair, --standard, "?") do not ask.
///
/// The first run holds its place until this object is gone, or the process, however it ends. A
/// first run that does not answer within five seconds does not stand in the way of a new one.
/// Never fails: where runs cannot find each other, each is a first one. User-interface thread only.
class FirstInstance {
 public:
  virtual ~FirstInstance() = default;

  /// True: this run is the player. False: the first one has taken `request`, and comes to the
  /// front; this run has nothing more to do.
  virtual bool claim(const StartRequest& request) = 0;

  /// The requests of later starts come here from now on, each as an event of its own; those that
  /// came since `claim` first.
  virtual void listen(std::function<void(const StartRequest&)> laterStart) = 0;
};

}  // namespace nerolith::platform
