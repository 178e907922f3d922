// The desktop's media controls: keys of the keyboard, buttons of a headset, the panel's player.
#pragma once

#include <cstdint>
#include <string>

namespace nerolith::platform {

enum class PlayState { Stopped, Playing, Paused };

/// What begins again by itself: nothing, the song (loop in Single), or the list (loop in Auto next
/// and Random).
enum class Repeat { Off, Song, List };

/// What the desktop shows of the player, as it is now.
struct MediaStatus {
  PlayState state = PlayState::Stopped;
  /// The song in the current deck, from its start until Stop: also when it is paused, and when it
  /// came to its end and nothing followed. 0: there is none, and what is said of it is empty. Else
  /// another number for each start, so that a song that follows itself is another one.
  std::uint64_t song = 0;
  std::string title;    // the file's name without folder and ending, UTF-8 or a file's bytes
  std::string path;     // whole path
  double length = 0;    // seconds
  double position = 0;  // seconds, 0..length
  /// What is taken off the song's loudness, as a factor: 1 is untouched. Not to be set from
  /// outside: fades and volume correction own it.
  double volume = 1;
  Repeat repeat = Repeat::Off;
  bool shuffle = false;  // Random

  bool canPlay = false;  // start, or go on
  bool canPause = false;
  bool canSeek = false;
  bool canGoNext = false;  // going back does not exist: what came before is not kept

  bool operator==(const MediaStatus&) const = default;
};

/// What the desktop asks for. Called on the user-interface thread, as an event of its own. Nothing
/// fails: what cannot be done now is passed over.
class MediaCommands {
 public:
  virtual ~MediaCommands() = default;

  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void playOrPause() = 0;
  virtual void stop() = 0;
  virtual void next() = 0;
  /// Seconds from where the song stands, forward or back. Before the start is the start, behind the
  /// end is the next song.
  virtual void seekBy(double seconds) = 0;
  /// Seconds from the start; nothing outside the song.
  virtual void seekTo(double seconds) = 0;
  virtual void setRepeat(Repeat repeat) = 0;
  virtual void setShuffle(bool shuffle) = 0;
  /// Shows the main window, in front.
  virtual void raise() = 0;
  /// Closes the player as its own close button does.
  virtual void quit() = 0;
  /// A file or folder, by its whole path, as a start of the program with it would.
  virtual void openFile(const std::string& path) = 0;
};

/// Lifecycle: open once the window is up -> show ... -> close. Nothing here fails: on a desktop
/// without media controls the player just is not shown there. User-interface thread only.
class MediaControls {
 public:
  virtual ~MediaControls() = default;

  /// Commands come from now on until `close`, which `commands` outlives. Never from within a call
  /// of this interface.
  virtual void open(MediaCommands& commands) = 0;
  /// Called ten times a second: what is told to the desktop, and how often, is up to the backend.
  virtual void show(const MediaStatus& status) = 0;
  /// The song goes on from elsewhere. `show` has told where.
  virtual void seeked(double position) = 0;
  virtual void close() = 0;
};

/// A desktop without any.
class NoMediaControls final : public MediaControls {
 public:
  void open(MediaCommands&) override {}
  void show(const MediaStatus&) override {}
  void seeked(double) override {}
  void close() override {}
};

}  // namespace nerolith::platform
