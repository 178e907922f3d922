// Starting the song that the list stands on.
#pragma once

namespace nerolith::player {

/// The operation by which every song starts, whoever chose it.
class SongStarter {
 public:
  virtual ~SongStarter() = default;

  /// Loads and starts the entry at the list's current position; nothing while a start is under way.
  /// Never fails: a failed start has its own handler, which may have started another song by the
  /// time this returns.
  virtual void list1_DblClick() = 0;
};

}  // namespace nerolith::player
