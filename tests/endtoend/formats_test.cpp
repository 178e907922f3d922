#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/stage.h"
#include "linux_sound/midi_file.h"

namespace nerolith::endtoend {
namespace {

// What the mix is not measured with. A piece of notes has no tone of its own to be known by: it
// comes last, and is what is heard when the song before it is over.
Outcome containersAndNotes() {
  Stage stage;
  stage.prepare({"1.asf", "2.mpg"}, 3);
  const auto notes = sound_tests::midiSong(16);  // eight seconds
  std::ofstream(stage.desktop.music() / "3.mid", std::ios::binary)
      .write(reinterpret_cast<const char*>(notes.data()),
             static_cast<std::streamsize>(notes.size()));
  stage.open({.mode = 2, .mixLead = 0.5, .fadeLength = 0.5});
  for (const Song& song : stage.songs)
    if (!stage.recording->waitForTone(song.hertz, 15))
      return stage.outcome({song.file.filename().string() + " is not heard"});
  pauseFor(stage.songs.back().length + 5);
  const Sound sound = stage.recording->sound();
  int heard = 0;  // tenths of a second; some instruments are 30 dB down
  for (double time = sound.length() - 4; time < sound.length() - 0.1; time += 0.1)
    heard += strongestFrequencyAt(sound, time) > 0;
  if (heard < 5) return stage.outcome({"3.mid is not heard"});
  return stage.outcome({}, {figure("notes heard in", heard / 10.0, "s of 4")});
}

TEST(Formats, ContainersAndNotesAreHeardLikeTheRest) { measure(containersAndNotes); }

}  // namespace
}  // namespace nerolith::endtoend
