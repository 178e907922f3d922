#include "recording/recording_texts.h"

namespace nerolith::recording {

// clang-format off
const std::string_view kHowToText =
    "First, give a name to the file you want to create for this recording.  \r\n"
    "'Select Filename for Recording'\r\n"
    "Create a playlistfile from the music you selected. 'options-playlist actions'\r\n"
    "Now import this playlist file, and select all songs.\r\n"
    "Go to in the 'options-seletion functions-total duration selected files',\r\n"
    "so you can see the total duration of the songs in your playlist. Fill your playlist with music from\r\n"
    "different directories (if you want) until you have the correct duration (e.g. playtime of 74 min.).\r\n"
    "You can also fill the playlist with 1 song at the time, so you can create the playing\r\n"
    "order you want to hear the songs. In this case, select 'auto-next' and \r\n"
    "unselect 'loop' so the music stops when the last song is completed. Import this playlist,\r\n"
    "select the song on top of the playlist, press 'Start playing and record the sound to the selected file'\r\n"
    "The Sound you hear will now be recorded to a WAV file.\r\n"
    "When the last song is played, the recording stops.";

const std::string_view kVolumeSettingsText =
    "From your volume control box, choose 'Options' > 'Properties' > 'Recording'.\r\n"
    "Make sure 'Wave', 'Mixed Out' or 'Wave Out Mix' or 'Stereo Mixed' (differs per system)\r\n"
    "is selected from the 'Show the following volume controls:' box below and click 'OK'.\r\n"
    "Now select that volume slider for the 'Mixed Output' as the only\r\n"
    "recording source and slide the slider to the maximum level. (See 'Calibrate Sound levels')\r\n"
    "From the Nerolith's recording box, you should be able to see the\r\n"
    "volume indicator change, indicating there is sound. (Volume adjust must be enabled)\r\n"
    "To enable the volume adjust, just click on it once.\r\n"
    "\r\n"
    "\r\n"
    "The WAV file you are about to record is directly usable to make an\r\n"
    "audio CD of, with your standard burning software.";

const std::string_view kCalibrationText =
    "Open your Volume controls and set the slider of your wave-out to max.\r\n"
    "Open the recording properties of your Volume controles.\r\n"
    "Make sure 'Wave', 'Mixed Out' or 'Wave Out Mix' or 'Stereo Mixed' (differs per system)\r\n"
    "is selected, and adjust the slider so that the volume Peak-meter in the\r\n"
    "Nerolith recording section, is just turning Orange.\r\n"
    "\r\n"
    "Some systems may need additional calibration, regardless of the orange indiactor.\r\n"
    "In these rare cases, position the recording slider to your own satisfaction.";
// clang-format on

std::string unfinishedText(const std::string& path) {
  return "This recording was cut off before it was finished:\r\n\r\n" + path +
         "\r\n\r\nShall its sound be made playable now?";
}

std::string noRecorderText(const std::string& whereToObtain) {
  return "Error implementing Sound Recorder.\r\n"
         "DirectX 8 or better must be installed,\r\n"
         "in order to be able to do sound recording\r\n"
         "and automatic volume correction.\r\n" +
         whereToObtain +
         "\r\n"
         "On top of that you have to use a soundcard\r\n"
         "that supports Full Duplex.";
}

}  // namespace nerolith::recording
