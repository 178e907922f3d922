// Holds a recording of songs that mix to the rules of the mix.
#pragma once

#include <string>
#include <vector>

#include "endtoend/spectrum.h"

namespace nerolith::endtoend {

/// What is wrong, one sentence each.
using Complaints = std::vector<std::string>;

struct MixedSong {
  std::string name;
  double hertz = 0;
  double attack = 0;  // where in the file the tone begins
  double length = 0;  // of the file
};

struct MixSettings {
  double lead = 0;    // seconds before the end of a song at which the next one starts
  double length = 0;  // nominal seconds of the fade
};

/// The tolerances of the mix, in seconds and decibels.
struct MixTolerance {
  double start = 0.15;  // early or late
  double opening = 0;   // what opening a file may take on top of that
  // By how much a song that is started is heard later than a volume step made at that moment.
  double newSongLag = 0;
  double lagJitter = 0;  // by how much that differs from song to song
  double level = 1.0;    // of every step, down to `lowest`
  double lowest = -40;
  double stepTime = 0.05;  // of every step against a steady 100 ms
  double firstStep = 0.2;  // from the new song's start: one tick, and a volume step's way
  double gone = 0.2;
  double click = 0.002;  // peak between 8 and 16 kHz that is one
};

/// The songs, in this order, each mixing into the next, the last one played to its end. Measures in
/// `sound`: each start against the end of the song before, the fade's steps, the moment the old
/// one is gone, silences and clicks.
/// Returns one line of figures for each mix.
std::vector<std::string> checkMixes(const Sound& sound, const std::vector<MixedSong>& songs,
                                    const MixSettings& settings, Complaints& complaints,
                                    const MixTolerance& tolerance = {});

/// By how many seconds each song but the first begins later than `lead` before the end of the one
/// before it, in the order given. A song that is not heard begins an hour late.
std::vector<double> lateStarts(const Sound& sound, const std::vector<MixedSong>& songs,
                               double lead);

}  // namespace nerolith::endtoend
