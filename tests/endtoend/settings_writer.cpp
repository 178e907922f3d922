#include "endtoend/settings_writer.h"

#include <fstream>

namespace nerolith::endtoend {

void writeSettings(const std::filesystem::path& file, const StoredSettings& settings) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file);
  out << "[Microsoft Visual Basic AddIns/Setting]\n"
      << "setting=" << settings.mode << "\nfadem=" << settings.mixLead
      << "\nfadelen=" << settings.fadeLength << "\nlo=" << (settings.loop ? "True" : "False")
      << "\ncolor=" << settings.colour << "\nti=" << (settings.timeInverted ? "True" : "False")
      << "\n\n[Nerolith/Setting]\nenabl=" << (settings.recentRule ? "True" : "False") << "\n";
  if (!settings.folder.empty())
    out << "\n[Velmarion/Path]\npath=" << settings.folder.string() << "\n";
}

std::string storedText(const std::filesystem::path& file, const std::string& group,
                       const std::string& key) {
  std::ifstream in(file);
  std::string current;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("[")) current = line.substr(1, line.find(']') - 1);
    if (current == group && line.starts_with(key + "=")) return line.substr(key.size() + 1);
  }
  return {};
}

}  // namespace nerolith::endtoend
