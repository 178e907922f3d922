#include "arrangement.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

namespace nerolith::demo {
namespace {

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, separator);) {
    if (!piece.empty()) {
      pieces.push_back(piece);
    }
  }
  return pieces;
}

// Reads a note's letter with its accidentals, 0..11, and says where the rest of the text begins.
int pitchClass(const std::string& name, size_t& next) {
  static const std::string kLetters = "c d ef g a b";
  const auto place = kLetters.find(static_cast<char>(name.at(0) | 0x20));
  if (place == std::string::npos) {
    throw std::invalid_argument("no such note: " + name);
  }
  int pitch = static_cast<int>(place);
  for (next = 1; next < name.size() && (name[next] == '#' || name[next] == 'b'); ++next) {
    pitch += name[next] == '#' ? 1 : -1;
  }
  return (pitch + 12) % 12;
}

const std::vector<int>& intervals(const std::string& quality) {
  static const std::map<std::string, std::vector<int>> kQualities = {
      {"", {0, 4, 7}},           {"m", {0, 3, 7}},           {"6", {0, 4, 7, 9}},
      {"m6", {0, 3, 7, 9}},      {"7", {0, 4, 7, 10}},       {"m7", {0, 3, 7, 10}},
      {"maj7", {0, 4, 7, 11}},   {"add9", {0, 2, 4, 7}},     {"sus4", {0, 5, 7}},
      {"m9", {0, 3, 7, 10, 14}}, {"13", {0, 4, 10, 14, 21}}, {"maj9", {0, 4, 7, 11, 14}},
  };
  const auto found = kQualities.find(quality);
  if (found == kQualities.end()) {
    throw std::invalid_argument("no such chord: " + quality);
  }
  return found->second;
}

}  // namespace

Arrangement::Arrangement(Song& song, const std::string& chords, double beatsEach, double swing)
    : song_(song), swing_(swing) {
  for (const auto& span : split(chords, ' ')) {
    const auto names = split(span, ',');
    for (const auto& name : names) {
      size_t next = 0;
      const int root = pitchClass(name, next);
      const double length = beatsEach / static_cast<double>(names.size());
      chords_.push_back({beats_, length, root, intervals(name.substr(next))});
      beats_ += length;
    }
  }
}

void Arrangement::melody(Voice voice, const std::string& text, double velocity, double pan) {
  double beat = 0.0;
  for (const auto& token : split(text, ' ')) {
    const auto slash = token.find('/');
    const double length = std::stod(token.substr(slash + 1));
    if (token[0] != '-') {
      size_t next = 0;
      const int pitch = pitchClass(token, next);
      add(voice, beat, length, 12 * (token.at(next) - '0' + 1) + pitch, velocity, pan);
    }
    beat += length;
  }
  if (std::abs(beat - beats_) > 1e-9) {
    throw std::invalid_argument(song_.title + ": the melody does not fill the chords");
  }
}

void Arrangement::pad(Voice voice, int centre, double velocity) {
  for (const auto& chord : chords_) {
    const auto pitches = voicing(chord, centre);
    for (size_t i = 0; i < pitches.size(); ++i) {
      const double pan = -0.6 + 1.2 * static_cast<double>(i) / static_cast<double>(pitches.size());
      add(voice, chord.start, chord.length, pitches[i], velocity, pan);
    }
  }
}

void Arrangement::strum(Voice voice, const std::string& rhythm, int centre, double velocity) {
  size_t step = 0;
  for (double beat = 0.0; beat < beats_; beat += 0.5, ++step) {
    if (rhythm[step % rhythm.size()] != 'x') {
      continue;
    }
    double spread = 0.0;
    for (const int pitch : voicing(chordAt(beat), centre)) {
      add(voice, beat + spread, 0.9, pitch, velocity, -0.25);
      spread += 0.012;
    }
  }
}

void Arrangement::arpeggio(Voice voice, const std::string& order, double step, int centre,
                           double velocity) {
  size_t count = 0;
  for (double beat = 0.0; beat < beats_ - 1e-9; beat += step, ++count) {
    const char digit = order[count % order.size()];
    if (digit == '.') {
      continue;
    }
    const auto pitches = voicing(chordAt(beat), centre);
    const auto tone = static_cast<size_t>(digit - '0');
    const int octave = 12 * static_cast<int>(tone / pitches.size());
    const double pan = 0.5 * std::sin(0.7 * static_cast<double>(count));
    add(voice, beat, step * 1.8, pitches[tone % pitches.size()] + octave, velocity, pan);
  }
}

void Arrangement::bass(const std::string& rhythm, double velocity) {
  size_t step = 0;
  for (double beat = 0.0; beat < beats_; beat += 0.5, ++step) {
    const char tone = rhythm[step % rhythm.size()];
    if (tone == '.') {
      continue;
    }
    size_t rests = 1;
    while (rests < rhythm.size() && rhythm[(step + rests) % rhythm.size()] == '.') {
      ++rests;
    }
    const int above = tone == 'f' ? 7 : tone == 'o' ? 12 : 0;
    const int root = 36 + (chordAt(beat).root + 8) % 12 - 8;
    add(Voice::Bass, beat, 0.5 * static_cast<double>(rests), root + above, velocity, 0.0);
  }
}

void Arrangement::drum(Voice voice, const std::string& rhythm, double velocity, double pan,
                       double fromBeat) {
  size_t step = 0;
  for (double beat = 0.0; beat < beats_; beat += 0.25, ++step) {
    const char mark = rhythm[step % rhythm.size()];
    if (mark != '.' && beat >= fromBeat) {
      add(voice, beat, 0.25, 60, mark == 'x' ? velocity : 0.55 * velocity, pan);
    }
  }
}

// Each tone goes to the octave nearest the centre: neighbouring chords then share their tones or
// move by steps, as a player's hand would.
std::vector<int> Arrangement::voicing(const Chord& chord, int centre) const {
  std::vector<int> pitches;
  for (const int interval : chord.intervals) {
    const int above = ((chord.root + interval - (centre - 6)) % 12 + 12) % 12;
    pitches.push_back(centre - 6 + above);
  }
  std::sort(pitches.begin(), pitches.end());
  return pitches;
}

const Arrangement::Chord& Arrangement::chordAt(double beat) const {
  const auto after = std::find_if(chords_.begin(), chords_.end(), [beat](const Chord& chord) {
    return beat < chord.start + chord.length - 1e-9;
  });
  return after == chords_.end() ? chords_.back() : *after;
}

void Arrangement::add(Voice voice, double start, double length, int pitch, double velocity,
                      double pan) {
  const double inBeat = start - std::floor(start);
  if (inBeat > 0.45 && inBeat < 0.55) {
    start += 0.5 * swing_;
  }
  start = std::max(0.0, start + 0.012 * human());
  velocity = std::clamp(velocity * (1.0 + 0.12 * human()), 0.05, 1.0);
  song_.notes.push_back({voice, start, length, pitch, velocity, pan});
}

// A little unevenness, the same in every build: -1..1.
double Arrangement::human() {
  random_ = random_ * 1664525U + 1013904223U;
  return static_cast<double>(random_ >> 8U) / 8388608.0 - 1.0;
}

}  // namespace nerolith::demo
