// What a piece of the demo music is made of.
#pragma once

#include <string>
#include <vector>

namespace nerolith::demo {

enum class Voice { ElectricPiano, Pluck, Pad, Bass, Bell, Flute, Kick, Snare, Hat, Shaker };

struct Note {
  Voice voice = Voice::ElectricPiano;
  double start = 0.0;     // beats from the beginning
  double length = 1.0;    // beats
  int pitch = 60;         // MIDI number, 60 is the middle C; drums ignore it
  double velocity = 0.7;  // 0..1
  double pan = 0.0;       // -1 left .. 1 right
};

struct Song {
  std::string title;
  double tempo = 100.0;  // beats in a minute
  double reverb = 0.2;   // share of the room, 0..1
  std::vector<Note> notes;
};

}  // namespace nerolith::demo
