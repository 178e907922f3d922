// composer FOLDER: writes every demo piece into the folder, as WAV and as MIDI.

#include <exception>
#include <iostream>
#include <string>

#include "files.h"
#include "songs.h"
#include "synthesis.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: composer FOLDER\n";
    return 2;
  }
  try {
    const std::string folder = argv[1];
    for (const auto& song : nerolith::demo::allSongs()) {
      nerolith::demo::writeWav(folder + "/" + song.title + ".wav", nerolith::demo::render(song));
      nerolith::demo::writeMidi(folder + "/" + song.title + ".mid", song);
    }
  } catch (const std::exception& failure) {
    std::cerr << "composer: " << failure.what() << "\n";
    return 1;
  }
  return 0;
}
