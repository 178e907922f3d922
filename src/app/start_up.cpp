#include "app/start_up.h"

#include <algorithm>
#include <cmath>

#include "base/failure_policy.h"

namespace nerolith::app {

using base::goOn;

void StartUp::load() {
  forms::MainForm& window = parts_.window;
  goOn([this] { showSkin(); });
  goOn([this] { showVersion(); });
  window.Label1.setCaption("00:00");
  goOn([this] { startDirectory_ = machine_.files.currentDirectory(); });
  goOn([this] { parts_.browser.readDrives(); });
  goOn([this] { parts_.browser.setFolder(startDirectory_); });
  goOn([&] { window.HScroll1.setMin(1); });
  goOn([&] { window.Option1.setValue(true); });
  goOn([this] { settingsAbsent_ = parts_.stored.readColour(); });
  goOn([this] { parts_.player.timeLabel().showColour(); });
  goOn([this] { parts_.stored.readTimeInvertedAndLoop(); });
  goOn([&] { window.Check1.setValue(base::isSet(parts_.live.loop) ? 1 : 0); });
  goOn([this] { parts_.stored.readMix(); });
  goOn([this] { parts_.stored.readKeyTexts(); });
  goOn([this] { parts_.stored.readRecentRule(); });
  goOn([this] { restoreFolder(); });
  goOn([this] { parts_.stored.readMode(); });
  goOn([this] { tickMode(parts_.live.modeCode); });
  goOn([this] { stirRandomNumbers(); });
  goOn([this] { parts_.songs.readListCount(); });
  goOn([&] { window.List1.setListIndex(-1); });
  goOn([this] { parts_.player.modes().Check1_Click(); });
}

/// The user's own skin goes before the one that came with the program.
void StartUp::showSkin() {
  const std::string name = std::string(1, machine_.files.separator()) + "skin.jpg";
  for (const std::string& folder :
       {machine_.files.userDataFolder(), machine_.files.programFolder()}) {
    if (!machine_.files.fileExists(folder + name)) continue;
    if (goOn([&] { parts_.window.form.setPicture(machine_.pictures.load(folder + name)); })) return;
  }
}

void StartUp::showVersion() {
  const std::string version = NEROLITH_VERSION;
  const auto minorEnd = version.find('.', version.find('.') + 1);
  controls::Label& label = parts_.window.captionLabel;
  label.setCaption(label.caption() + " v" + version.substr(0, minorEnd));
}

/// The folder of the last run; where that is gone, the one that the program was started in.
void StartUp::restoreFolder() {
  if (!parts_.browser.setFolder(parts_.stored.readPath(startDirectory_)))
    parts_.browser.setFolder(startDirectory_);
}

void StartUp::tickMode(const std::string& modeCode) {
  if (modeCode == "1") parts_.window.Option1.setValue(true);
  if (modeCode == "2") parts_.window.Option2.setValue(true);
  if (modeCode == "3") parts_.window.Option3.setValue(true);
}

/// The generator starts from one fixed seed; drawing by clock and date makes runs differ.
void StartUp::stirRandomNumbers() {
  const double draws = machine_.clock.secondsSinceMidnight() + machine_.clock.today();
  parts_.player.random().discard(static_cast<std::uint64_t>(std::max(0.0, std::floor(draws))));
}

void StartUp::begin(const std::string& commandLine) {
  if (!commandLine.empty()) return follow(read(commandLine, startDirectory_));
  if (settingsAbsent_) goOn([this] { parts_.stored.saveAll(parts_.browser.folder()); });
  goOn([this] { reopenLastPlaylist(); });
  if (parts_.live.modeCode != "1") goOn([this] { parts_.player.speelvolgendeknop(); });
}

void StartUp::reopenLastPlaylist() {
  const std::string playlist = parts_.stored.readPlaylist();
  if (!playlist.empty() && machine_.files.fileExists(playlist))
    parts_.neighbours.playlists.openPlaylist(playlist);
}

void StartUp::beginAgain(const platform::StartRequest& later) {
  if (later.commandLine.empty()) return;
  CommandLine line = read(later.commandLine, later.directory);
  if (line.asksForUsage()) return;
  if (!line.fileName.empty()) {
    const std::string path = wholePath(line.fileName, later.directory);
    const bool bare = line.fileName.find(machine_.files.separator()) == line.fileName.npos;
    if (!bare || namesPlaylist(path) || machine_.files.fileExists(path) ||
        machine_.files.folderExists(path))
      line.fileName = path;
  }
  follow(line);
}

void StartUp::open(const std::string& path) {
  const bool given = fileGiven_;
  follow({path, parts_.live.modeCode});
  fileGiven_ = given;
}

/// A name may have a comma in it: what is there by the whole text is meant by it.
CommandLine StartUp::read(const std::string& commandLine, const std::string& directory) const {
  const std::string path = wholePath(commandLine, directory);
  const bool named = commandLine.find(',') != commandLine.npos &&
                     (machine_.files.fileExists(path) || machine_.files.folderExists(path));
  return named ? CommandLine{commandLine, "1"} : parseCommandLine(commandLine);
}

void StartUp::follow(const CommandLine& line) {
  goOn([this] { tickMode("1"); });
  goOn([&] { tickMode(line.modeCode); });
  if (line.asksForUsage()) {
    goOn([this] { machine_.dialogs.showMessage({kUsageText}); });
    machine_.events.quit();
    return;
  }
  if (!line.fileName.empty()) fileGiven_ = true;
  bool played = false;
  if (namesPlaylist(line.fileName)) {
    goOn([&] {
      parts_.neighbours.playlists.openPlaylist(wholePath(line.fileName, startDirectory_));
    });
  } else {
    goOn([&] { openFolderOf(line.fileName); });
    goOn([&] { played = playNamedSong(); });
  }
  if (!played) goOn([this] { startWithoutSong(); });
}

std::string StartUp::wholePath(const std::string& fileName, const std::string& directory) const {
  return absolutePath(fileName, directory, machine_.files.separator());
}

/// A bare name leaves the folder as it is; a relative one counts from where the program was
/// started. A folder without a separator at its end is still that folder.
void StartUp::openFolderOf(const std::string& fileName) {
  if (fileName.empty()) return;
  const char separator = machine_.files.separator();
  std::string path = wholePath(fileName, startDirectory_);
  const bool bare = fileName.find(separator) == fileName.npos;
  if (machine_.files.folderExists(path)) {
    if (path.back() != separator) path += separator;
  } else if (bare) {
    parts_.songs.text1().setText(fileName);
    return;
  }
  const FolderAndName at = splitPath(path, separator);
  parts_.songs.text1().setText(at.name);
  parts_.browser.setFolder(at.folder);
}

bool StartUp::playNamedSong() {
  controls::ListBox& list = parts_.window.List1;
  const auto& items = list.items();
  const auto found = std::find(items.begin(), items.end(), parts_.songs.text1().text());
  if (found != items.end()) {
    list.setListIndex(static_cast<int>(found - items.begin()));
    parts_.player.list1_DblClick();
    return true;
  }
  if (!items.empty()) list.setListIndex(0);
  return false;
}

void StartUp::startWithoutSong() {
  controls::ListBox& list = parts_.window.List1;
  if (parts_.live.modeCode == "1") return;
  list.setListIndex(parts_.live.modeCode == "2" || list.count() == 0 ? -1 : 0);
  parts_.player.speelvolgendeknop();
}

}  // namespace nerolith::app
