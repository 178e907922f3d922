// The words a shell user may ask a program for.
#pragma once

namespace nerolith::platform::linux_desktop {

inline constexpr const char* kHelp =
    "Usage: velmarion [FILE|FOLDER][,MODE]\n"
    "       velmarion MODE\n"
    "       velmarion --repair FILE.wav\n"
    "       velmarion --standard FILE.wav OUT.wav\n"
    "Plays the music of a folder; each song starts while the one before fades away.\n"
    "\n"
    "  FILE     opens its folder and plays it\n"
    "  FOLDER   opens it; with mode 2 or 3 the first song starts\n"
    "  FILE.m3u imports it; with mode 2 or 3 the first song starts\n"
    "  MODE     1 Single, 2 Auto next, 3 Random\n"
    "\n"
    "  --repair   gives back the sound of a recording that was cut off\n"
    "  --standard copies a recording for programs that are strict about WAV files\n"
    "  --help     shows this text\n"
    "  --version  shows the version\n"
    "\n"
    "Examples: velmarion ~/Music,3    velmarion 2    velmarion song.mp3\n";

}  // namespace nerolith::platform::linux_desktop
