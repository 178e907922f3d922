#include <fstream>

#include "endtoend/shipped_program.h"

namespace nerolith::endtoend {

void writeSettings(const PrivateDesktop& desktop, const StoredSettings& settings) {
  std::filesystem::create_directories(desktop.settingsFile().parent_path());
  std::ofstream out(desktop.settingsFile());
  out << "[Microsoft Visual Basic AddIns/Setting]\n"
      << "setting=" << settings.mode << "\nfadem=" << settings.mixLead
      << "\nfadelen=" << settings.fadeLength << "\nlo=" << (settings.loop ? "True" : "False")
      << "\ncolor=" << settings.colour << "\nti=" << (settings.timeInverted ? "True" : "False")
      << "\n\n[Nerolith/Setting]\nenabl=" << (settings.recentRule ? "True" : "False")
      << "\nmark_for_deletion=" << (settings.markDeletions ? "True" : "False") << "\n";
  if (!settings.folder.empty())
    out << "\n[Velmarion/Path]\npath=" << settings.folder.string() << "\n";
}

std::string storedText(const PrivateDesktop& desktop, const std::string& group,
                       const std::string& key) {
  std::ifstream in(desktop.settingsFile());
  std::string current;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("[")) current = line.substr(1, line.find(']') - 1);
    if (current == group && line.starts_with(key + "=")) return line.substr(key.size() + 1);
  }
  return {};
}

Command startOf(const PrivateDesktop& desktop, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), NEROLITH_PROGRAM);
  return desktop.command(std::move(arguments));
}

std::string toldAs(const std::filesystem::path& path) { return path.string(); }

void endLeftovers(const PrivateDesktop&) {}

SoundDemands demands() { return {}; }

}  // namespace nerolith::endtoend
