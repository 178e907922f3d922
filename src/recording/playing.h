// What the recording section needs of the player.
#pragma once

#include <cstdint>

namespace nerolith::recording {

/// User-interface thread only.
class Playing {
 public:
  virtual ~Playing() = default;

  /// The transport's Stop. Never fails.
  virtual void stop() = 0;
  /// Plays the list's current song, or its first if none is current; nothing with an empty list.
  /// Never fails.
  virtual void play() = 0;
  /// Marks the current deck to fade out.
  virtual void fadeOutCurrent() = 0;
  /// How long a fade-out nominally takes, in seconds, now.
  virtual float fadeLength() const = 0;

  /// One of the decks fades out; the current one does.
  virtual bool anyFades() const = 0;
  virtual bool currentFades() const = 0;
  /// The level that the current song began with, in hundredths of a decibel.
  virtual std::int16_t startVolume() const = 0;
  /// The current deck's level. Fails when it plays nothing; setting fails outside -10000..0 too.
  virtual std::int32_t volume() const = 0;
  virtual void setVolume(std::int32_t hundredthsOfDecibel) = 0;
};

}  // namespace nerolith::recording
