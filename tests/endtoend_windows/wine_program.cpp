// The Windows program under Wine. The tests share two prefixes, as setting one up takes ten seconds
// and two of them run at a time; each finds the registry as it was when its prefix was new, and a
// Wine of its own.
#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "endtoend/shipped_program.h"

namespace nerolith::endtoend {
namespace {

/// The first prefix that no other test is in, made by scripts/wine_test.sh. This test is in it
/// until its process ends.
std::filesystem::path takeFolder() {
  for (const char* name : {"1", "2"}) {
    const auto candidate = std::filesystem::path(NEROLITH_WINE_FOLDER) / name;
    if (!std::filesystem::exists(candidate / "ready"))
      throw std::runtime_error("Wine's folder is not set up: " + candidate.string());
    if (takeForThisProcess(candidate / "taken")) return candidate;
  }
  throw std::runtime_error("other tests are in both of Wine's folders");
}

const std::filesystem::path& folder() {
  static const std::filesystem::path taken = takeFolder();
  return taken;
}

std::filesystem::path registry() { return folder() / "prefix/user.reg"; }

constexpr const char* kSettings = "Software\\\\VB and VBA Program Settings\\\\";

// Wine's server, its services and the sound all belong to the desktop that is told here.
Command wineCommand(const PrivateDesktop& desktop, std::vector<std::string> words) {
  Command command = desktop.command(std::move(words));
  command.environment["WINEPREFIX"] = folder() / "prefix";
  command.environment["WINEDEBUG"] = "-all";
  // A crash ends the program at once instead of showing a dialog.
  command.environment["WINEDLLOVERRIDES"] = "mscoree,mshtml=;winedbg.exe=d";
  // Wine asks for so small a buffer that a busy machine breaks the sound; this is its usual cure.
  command.environment["PULSE_LATENCY_MSEC"] = "150";
  return command;
}

// A running Wine keeps its registry in memory and its windows on the screen that it saw first.
void endWine(const PrivateDesktop& desktop) {
  runToEnd(wineCommand(desktop, {"wineserver", "-k"}));
  runToEnd(wineCommand(desktop, {"wineserver", "-w"}));
}

void takeTheRegistryOfANewPrefix() {
  const auto unused = folder() / "user.reg.new";
  if (!std::filesystem::exists(unused)) std::filesystem::copy_file(registry(), unused);
  std::filesystem::copy_file(unused, registry(), std::filesystem::copy_options::overwrite_existing);
}

// A text as Wine's registry file has it.
std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char sign : text) {
    if (sign == '\\' || sign == '"') result += '\\';
    result += sign;
  }
  return result + '"';
}

std::string plain(const std::string& stored) {
  std::string result;
  for (std::size_t i = 1; i + 1 < stored.size(); ++i) {
    if (stored[i] == '\\') ++i;
    result += stored[i];
  }
  return result;
}

}  // namespace

void writeSettings(const PrivateDesktop& desktop, const StoredSettings& settings) {
  endWine(desktop);
  takeTheRegistryOfANewPrefix();
  std::ofstream out(registry(), std::ios::app);
  const auto put = [&](const char* key, const auto& value) {
    std::ostringstream text;
    text << value;
    out << quoted(key) << '=' << quoted(text.str()) << '\n';
  };
  const auto truth = [](bool value) { return value ? "True" : "False"; };
  out << "\n[" << kSettings << "Microsoft Visual Basic AddIns\\\\Setting] 1700000000\n";
  put("setting", settings.mode);
  put("fadem", settings.mixLead);
  put("fadelen", settings.fadeLength);
  put("lo", truth(settings.loop));
  put("color", settings.colour);
  put("ti", truth(settings.timeInverted));
  // On a screen without a tray Wine puts the icons into a window of its own, which takes the keys.
  out << "\n[Software\\\\Wine\\\\X11 Driver] 1700000000\n";
  put("ShowSystray", "N");
  out << "\n[" << kSettings << "Nerolith\\\\Setting] 1700000000\n";
  put("enabl", truth(settings.recentRule));
  put("mark_for_deletion", truth(settings.markDeletions));
  if (settings.folder.empty()) return;
  out << "\n[" << kSettings << "Velmarion\\\\Path] 1700000000\n";
  put("path", toldAs(settings.folder));
}

std::string storedText(const PrivateDesktop& desktop, const std::string& group,
                       const std::string& key) {
  endWine(desktop);
  std::string section = group;
  section.replace(section.find('/'), 1, "\\\\");
  const std::string head = "[" + std::string(kSettings) + section + "]";
  std::ifstream in(registry());
  bool inside = false;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("[")) inside = line.starts_with(head);
    if (inside && line.starts_with(quoted(key) + "=")) return plain(line.substr(key.size() + 3));
  }
  return {};
}

Command startOf(const PrivateDesktop& desktop, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"wine", NEROLITH_WINDOWS_PROGRAM});
  return wineCommand(desktop, std::move(arguments));
}

std::string toldAs(const std::filesystem::path& path) {
  std::string text = "Z:" + path.string();
  if (std::filesystem::is_directory(path) && !text.ends_with('/')) text += '/';
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

void endLeftovers(const PrivateDesktop& desktop) { endWine(desktop); }

// Measured, and told in docs/testing.md: Wine opens a file in 15 to 35 ms on a quiet machine and in
// up to 530 ms on a busy one; a song is heard 245 to 275 ms after it is run, a volume step after
// 45; and nothing is ramped, so that each step of 2.38 dB is a jump of up to 6 % of full scale, and
// a song that is cut in mid-swing one of up to 25 %. A bare DirectShow graph that is paused and run
// again breaks off for 6 to 14 ms, about 160 ms after it is heard again; 32 ms on a busy machine.
// On a busy machine its wma decoder may begin a song with a frame that it had decoded ahead.
SoundDemands demands() {
  SoundDemands wine;
  wine.mix.opening = 0.45;
  wine.mix.newSongLag = 0.2;
  wine.mix.lagJitter = 0.15;
  wine.mix.click = 0.015;
  wine.lastMixed = "5 fifth.mp3";
  wine.cut = 0.055;
  wine.resumeGap = 0.06;
  return wine;
}

}  // namespace nerolith::endtoend
