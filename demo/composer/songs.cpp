#include "songs.h"

#include "arrangement.h"

namespace nerolith::demo {
namespace {

// A bossa for the way to town.
Song morningTram() {
  Song song{"Morning Tram", 112.0, 0.16, {}};
  Arrangement part(song, "Cmaj9 A7 Dm9 G13 Em7 Am9 Dm9 G7 Cmaj9 Cmaj9", 4.0);
  part.strum(Voice::ElectricPiano, "x..x..x...x..x..", 62, 0.42);
  part.bass("r..rf..f", 0.75);
  part.drum(Voice::Shaker, "x.o.x.o.", 0.3, 0.4);
  part.drum(Voice::Snare, "x.....x.....x.......x.....x.....", 0.16, -0.3, 8.0);
  part.melody(Voice::Flute,
              "e5/1 g5/.5 b5/1.5 a5/.5 g5/.5 g5/1 e5/.5 c#5/1.5 -/1 "
              "f5/1 a5/.5 c6/1.5 b5/.5 a5/.5 b5/1 a5/.5 e5/1.5 -/1 "
              "g5/.5 b5/.5 d6/1 b5/.5 g5/1.5 a5/1 e5/.5 c5/1.5 -/1 "
              "d5/.5 f5/.5 a5/1 c6/.5 a5/.5 f5/1 e5/.5 d5/.5 b4/1 d5/.5 f5/.5 e5/.5 d5/.5 "
              "e5/3 g5/1 b5/4",
              0.6, 0.15);
  return song;
}

// Plucked strings in the evening air.
Song paperLanterns() {
  Song song{"Paper Lanterns", 84.0, 0.3, {}};
  Arrangement part(song, "Dm9 Bbmaj7 Fadd9 C6 Dm9 Bbmaj7 Gm9 Fadd9", 4.0);
  part.arpeggio(Voice::Pluck, "02134312", 0.5, 57, 0.45);
  part.pad(Voice::Pad, 60, 0.16);
  part.bass("r.......", 0.55);
  part.melody(Voice::Pluck,
              "a5/1.5 g5/.5 f5/1 d5/1 f5/2 -/.5 d5/.5 f5/1 g5/1.5 a5/.5 c6/2 a5/1 g5/1 e5/2 "
              "d6/1.5 c6/.5 a5/1 f5/1 d5/1 f5/1 a5/2 bb5/1 a5/.5 g5/.5 d5/1 f5/1 "
              "a5/.5 g5/.5 f5/3",
              0.85, 0.1);
  return song;
}

// A slow swing after closing time.
Song harbourLights() {
  Song song{"Harbour Lights", 76.0, 0.22, {}};
  Arrangement part(song, "Fmaj9 Dm9 Gm9 C13 Am7 D7 Gm9,C13 Fmaj9", 4.0, 0.3);
  part.strum(Voice::ElectricPiano, "x..x....", 60, 0.5);
  part.bass("r.....frr..f..o.", 0.75);
  part.drum(Voice::Kick, "x.....o.x.......", 0.6);
  part.drum(Voice::Snare, "....x.......x..o", 0.34, 0.1);
  part.drum(Voice::Hat, "x.o.x.o.", 0.22, 0.35);
  part.melody(Voice::Bell,
              "c5/.5 e5/.5 g5/1 a5/1.5 g5/.5 f5/1 e5/.5 c5/1.5 -/1 "
              "bb4/.5 d5/.5 f5/1 a5/1 g5/1 e5/1.5 d5/.5 c5/1 -/1 "
              "c5/.5 e5/.5 g5/1 e5/1 c5/1 f#5/1 a5/.5 c6/1.5 a5/1 "
              "bb5/1 g5/.5 d5/.5 e5/1 a5/1 g5/1 a5/3",
              0.5, 0.2);
  return song;
}

// Three to the bar, wide and quiet.
Song slowRiver() {
  Song song{"Slow River", 66.0, 0.38, {}};
  Arrangement part(song, "Gadd9 Em7 Cmaj7 Dsus4 Gadd9 Em7 Am9 Cmaj7 Gadd9", 3.0);
  part.pad(Voice::Pad, 62, 0.26);
  part.arpeggio(Voice::Pluck, "012321", 0.5, 55, 0.36);
  part.bass("r.....", 0.6);
  part.melody(Voice::Flute,
              "b4/2 d5/1 g5/2 f#5/1 e5/1.5 d5/.5 c5/1 d5/2 a4/1 b4/1 d5/1 g5/1 b5/2 a5/1 "
              "g5/1.5 e5/.5 c5/1 b4/1 e5/1 g5/1 d5/3",
              0.62);
  return song;
}

// Drops on a roof, never quite in step.
Song copperRain() {
  Song song{"Copper Rain", 126.0, 0.28, {}};
  Arrangement part(song, "Am9 Fmaj7 Cadd9 G6 Am9 Fmaj9", 8.0);
  part.arpeggio(Voice::Pluck, "042314", 0.5, 60, 0.5);
  part.arpeggio(Voice::Bell, "0...4....2...3..", 0.5, 72, 0.22);
  part.pad(Voice::Pad, 57, 0.17);
  part.bass("r..r..o.", 0.62);
  part.drum(Voice::Kick, "x.......", 0.5, 0.0, 16.0);
  part.drum(Voice::Hat, "..x...x...x..ox.", 0.2, -0.35, 16.0);
  part.drum(Voice::Shaker, "o.x.o.x.", 0.2, 0.35, 32.0);
  part.melody(Voice::Bell,
              "e6/3 d6/1 c6/2 b5/2 a5/3 c6/1 e6/4 g5/3 d6/1 e6/2 g6/2 b5/3 a5/1 g5/4 "
              "e6/3 c6/1 b5/2 a5/2 a5/2 g5/2 c6/4",
              0.42, 0.1);
  return song;
}

// A waltz for the country line.
Song windowSeat() {
  Song song{"Window Seat", 132.0, 0.24, {}};
  Arrangement part(song,
                   "Bbmaj7 Gm7 Cm7 F7 Dm7 Gm7 Cm7 F7 "
                   "Bbmaj7 Bb7 Ebmaj7 Ebm6 Dm7 G7 Cm7,F7 Bb6",
                   3.0);
  part.bass("r.....", 0.6);
  part.strum(Voice::ElectricPiano, "..x.x.", 60, 0.42);
  part.pad(Voice::Pad, 65, 0.2);
  part.melody(Voice::ElectricPiano,
              "d5/2 f5/1 bb5/3 g5/1 eb5/1 c5/1 a4/3 f5/2 d5/1 bb4/2 d5/1 eb5/1 g5/1 bb5/1 a5/3 "
              "d6/2 a5/1 ab5/2 f5/1 g5/1 bb5/1 d6/1 c6/2 gb5/1 f5/2 a5/1 b5/1 g5/1 f5/1 "
              "eb5/1 a4/1 c5/1 bb4/3",
              0.85);
  return song;
}

// The beat of the road, and nobody else aboard.
Song lastBusHome() {
  Song song{"Last Bus Home", 92.0, 0.2, {}};
  Arrangement part(song, "Em9 Cmaj7 Gadd9 D6 Em9 Cmaj7 Am9 Bm7 Em9", 4.0, 0.12);
  part.pad(Voice::Pad, 62, 0.22);
  part.strum(Voice::ElectricPiano, "x.....x...x.....", 64, 0.4);
  part.bass("r..r.ro.", 0.8);
  part.drum(Voice::Kick, "x.....x...x.....", 0.75);
  part.drum(Voice::Snare, "....x.......x...", 0.4, 0.05);
  part.drum(Voice::Hat, "x.xox.xo", 0.2, 0.3, 8.0);
  part.melody(Voice::ElectricPiano,
              "b4/.5 e5/.5 g5/1 f#5/1.5 e5/.5 e5/1 d5/.5 b4/1.5 -/1 "
              "d5/.5 g5/.5 a5/1 b5/1.5 a5/.5 f#5/2 d5/1 -/1 "
              "g5/.5 f#5/.5 e5/1 b5/1.5 g5/.5 e5/1.5 g5/.5 b5/2 "
              "c6/1 b5/.5 a5/.5 e5/2 d5/.5 e5/.5 f#5/1 a5/1 f#5/1 e5/4",
              0.8, 0.1);
  return song;
}

}  // namespace

std::vector<Song> allSongs() {
  return {copperRain(),    harbourLights(), lastBusHome(), morningTram(),
          paperLanterns(), slowRiver(),     windowSeat()};
}

}  // namespace nerolith::demo
