// Turns short texts (chord names, melodies, drum patterns) into notes.
#pragma once

#include <string>
#include <vector>

#include "note.h"

namespace nerolith::demo {

/// Writes the parts of one song over one row of chords. Every method appends to `song`.
/// Texts that do not parse throw std::invalid_argument: the songs are part of the program.
class Arrangement {
 public:
  /// `chords` are names like "Dm9 G13", each lasting `beatsEach`; "Gm9,C13" shares one span.
  /// `swing` delays every second eighth note by that share of an eighth.
  Arrangement(Song& song, const std::string& chords, double beatsEach, double swing = 0.0);

  /// Notes one after the other, "e5/1.5 -/0.5": name with octave (c4 is the middle C), beats.
  void melody(Voice voice, const std::string& text, double velocity, double pan = 0.0);
  /// Held chords around the pitch `centre`, for the whole of each chord.
  void pad(Voice voice, int centre, double velocity);
  /// Whole chords struck where `rhythm` has an x; one character is an eighth, repeated throughout.
  void strum(Voice voice, const std::string& rhythm, int centre, double velocity);
  /// Chord tones one by one, `order` giving the tone's number for each step of `step` beats.
  void arpeggio(Voice voice, const std::string& order, double step, int centre, double velocity);
  /// Root (r), fifth (f), octave (o) or rest (.) for each eighth.
  void bass(const std::string& rhythm, double velocity);
  /// An x strikes, an o strikes softly; one character is a sixteenth, from `fromBeat` on.
  void drum(Voice voice, const std::string& rhythm, double velocity, double pan = 0.0,
            double fromBeat = 0.0);

  double beats() const { return beats_; }

 private:
  struct Chord {
    double start;
    double length;
    int root;                    // 0..11
    std::vector<int> intervals;  // half-tones above the root
  };

  std::vector<int> voicing(const Chord& chord, int centre) const;
  const Chord& chordAt(double beat) const;
  void add(Voice voice, double start, double length, int pitch, double velocity, double pan);
  double human();

  Song& song_;
  double swing_;
  double beats_ = 0.0;
  unsigned random_ = 12345;
  std::vector<Chord> chords_;
};

}  // namespace nerolith::demo
