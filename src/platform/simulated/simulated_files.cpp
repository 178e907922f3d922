#include "platform/simulated/simulated_files.h"

#include <algorithm>

#include "base/file_pattern.h"
#include "base/letter_case.h"
#include "platform/failure.h"

namespace nerolith::platform::simulated {
namespace {

/// A dot in front hides a name on a Linux machine.
std::vector<std::string> shownNames(const std::map<std::string, std::string>& names,
                                    char separator) {
  std::vector<std::string> values;
  values.reserve(names.size());
  for (const auto& [key, name] : names)
    if (separator == '\\' || !name.starts_with('.')) values.push_back(name);
  base::sortNames(values);
  return values;
}

}  // namespace

SimulatedFiles::SimulatedFiles(char separator, Doorway& doorway)
    : separator_(separator), doorway_(doorway) {
  if (separator == '\\') {
    addDrive("C:\\", "C:");
    setProgramFolder("C:\\Program Files\\Velmarion");
    userDataFolder_ = "C:\\Users\\User\\AppData\\Roaming\\Velmarion";
    currentDirectory_ = "C:\\Users\\User";
  } else {
    addDrive("/", "/");
    setProgramFolder("/opt/velmarion");
    userDataFolder_ = "/home/user/.local/share/velmarion";
    currentDirectory_ = "/home/user";
  }
  addFolder(currentDirectory_);
  currentFolders_[*rootOf(currentDirectory_)] = currentDirectory_;
}

void SimulatedFiles::addDrive(const std::string& root, const std::string& label) {
  drives_.push_back({root, label});
  folders_[key(plain(root))].path = plain(root);
}

void SimulatedFiles::removeDrive(const std::string& root) {
  std::erase_if(drives_, [&](const controls::DriveEntry& drive) { return drive.root == root; });
  remove(root);
}

void SimulatedFiles::addFolder(const std::string& path) {
  const std::string folder = plain(path);
  Folder& made = folders_[key(folder)];
  if (!made.path.empty()) return;
  made.path = folder;
  if (isRoot(folder)) return;
  const Place place = split(folder);
  addFolder(place.folder);
  folders_[key(place.folder)].folders[key(place.name)] = place.name;
}

void SimulatedFiles::addFile(const std::string& path, const SimulatedFile& file) {
  const Place place = split(path);
  addFolder(place.folder);
  Folder& folder = folders_[key(place.folder)];
  folder.files[key(place.name)] = file;
  folder.fileNames[key(place.name)] = place.name;
}

void SimulatedFiles::remove(const std::string& path) {
  const std::string gone = plain(path);
  const Place place = split(gone);
  if (const auto parent = folders_.find(key(place.folder)); parent != folders_.end()) {
    parent->second.files.erase(key(place.name));
    parent->second.fileNames.erase(key(place.name));
    parent->second.folders.erase(key(place.name));
  }
  const std::string below = gone.back() == separator_ ? key(gone) : key(gone) + separator_;
  std::erase_if(folders_, [&](const auto& folder) {
    return folder.first == key(gone) || folder.first.starts_with(below);
  });
}

void SimulatedFiles::setUnreadable(const std::string& folder, bool unreadable) {
  addFolder(folder);
  folders_[key(plain(folder))].unreadable = unreadable;
}

void SimulatedFiles::setProgramFolder(const std::string& path) {
  addFolder(path);
  programFolder_ = path;
}

const SimulatedFile* SimulatedFiles::find(const std::string& path) const {
  const Place place = split(path);
  const Folder* folder = folderAt(place.folder);
  if (!folder) return nullptr;
  const auto file = folder->files.find(key(place.name));
  return file == folder->files.end() ? nullptr : &file->second;
}

std::string SimulatedFiles::currentDirectory() const {
  look("cd?");
  return currentDirectory_;
}

void SimulatedFiles::setCurrentDirectory(const std::string& path) {
  act("cd", path);
  const Folder* folder = folderAt(path);
  if (!folder) doorway_.refuse(path + ": no such folder");
  currentDirectory_ = plain(path);
  if (const auto root = rootOf(path)) currentFolders_[*root] = currentDirectory_;
}

std::vector<controls::DriveEntry> SimulatedFiles::drives() const {
  act("drives");
  return drives_;
}

std::string SimulatedFiles::driveOf(const std::string& path) const {
  look("driveOf", path);
  const auto root = rootOf(path);
  if (!root) doorway_.refuse(path + ": lies on no drive");
  return *root;
}

std::string SimulatedFiles::currentFolderOf(const std::string& driveRoot) const {
  look("currentFolderOf", driveRoot);
  const auto root = rootOf(driveRoot);
  if (!root || key(*root) != key(driveRoot)) doorway_.refuse(driveRoot + ": no such drive");
  const auto current = currentFolders_.find(*root);
  return current != currentFolders_.end() && folderAt(current->second) ? current->second : *root;
}

std::vector<std::string> SimulatedFiles::ancestors(const std::string& path) const {
  std::vector<std::string> way{plain(path)};
  while (!isRoot(way.back()) && way.back().find(separator_) != std::string::npos)
    way.push_back(split(way.back()).folder);
  std::reverse(way.begin(), way.end());
  return way;
}

std::vector<std::string> SimulatedFiles::folders(const std::string& path) const {
  act("folders", path);
  return shownNames(listable(path).folders, separator_);
}

std::vector<std::string> SimulatedFiles::files(const std::string& path,
                                               const std::string& patterns) const {
  act("files", path + " " + patterns);
  std::vector<std::string> names = shownNames(listable(path).fileNames, separator_);
  const base::FilePattern pattern(patterns);
  std::erase_if(names, [&](const std::string& name) { return !pattern.matches(name); });
  return names;
}

bool SimulatedFiles::fileExists(const std::string& path) const { return find(path) != nullptr; }

bool SimulatedFiles::folderExists(const std::string& path) const {
  return folderAt(path) != nullptr;
}

double SimulatedFiles::lastModified(const std::string& path) const {
  look("lastModified", path);
  const SimulatedFile* file = find(path);
  if (!file) doorway_.refuse(path + ": no such file");
  return file->modified;
}

void SimulatedFiles::makePlainArchive(const std::string& path) {
  act("plain", path);
  fileFor(path).readOnly = false;
}

void SimulatedFiles::deleteFile(const std::string& path) {
  act("delete", path);
  if (fileFor(path).readOnly) doorway_.refuse(path + ": is read-only");
  remove(path);
}

/// Without a separator at the end, unless it is a root.
std::string SimulatedFiles::plain(std::string path) const {
  while (path.size() > 1 && path.back() == separator_ && !isRoot(path)) path.pop_back();
  return path;
}

std::string SimulatedFiles::key(const std::string& text) const {
  return separator_ == '\\' ? base::foldCase(text) : text;
}

bool SimulatedFiles::isRoot(const std::string& path) const {
  if (path == "/" && separator_ == '/') return true;
  return path.size() == 3 && path[1] == ':' && path[2] == '\\' && separator_ == '\\';
}

/// The longest drive root that the path begins with.
std::optional<std::string> SimulatedFiles::rootOf(const std::string& path) const {
  const std::string wanted = key(path);
  std::optional<std::string> best;
  for (const controls::DriveEntry& drive : drives_) {
    const std::string root = key(drive.root);
    const bool inside = wanted == root || (root.back() == separator_ && wanted.starts_with(root)) ||
                        wanted.starts_with(root + separator_);
    if (inside && (!best || drive.root.size() > best->size())) best = drive.root;
  }
  return best;
}

SimulatedFiles::Place SimulatedFiles::split(const std::string& path) const {
  const std::size_t end = path.rfind(separator_);
  if (end == std::string::npos) return {"", path};
  std::string folder = path.substr(0, end);
  if (folder.empty() || isRoot(folder + separator_)) folder += separator_;
  return {folder, path.substr(end + 1)};
}

const SimulatedFiles::Folder* SimulatedFiles::folderAt(const std::string& path) const {
  const auto folder = folders_.find(key(plain(path)));
  return folder == folders_.end() ? nullptr : &folder->second;
}

const SimulatedFiles::Folder& SimulatedFiles::listable(const std::string& path) const {
  const Folder* folder = folderAt(path);
  if (!folder) doorway_.refuse(path + ": no such folder");
  if (folder->unreadable) doorway_.refuse(path + ": cannot be read");
  return *folder;
}

SimulatedFile& SimulatedFiles::fileFor(const std::string& path) {
  const SimulatedFile* file = find(path);
  if (!file) doorway_.refuse(path + ": no such file");
  return const_cast<SimulatedFile&>(*file);
}

void SimulatedFiles::act(std::string_view verb, std::string_view argument) const {
  doorway_.act({Door::Files, "files", verb, argument});
}

void SimulatedFiles::look(std::string_view verb, std::string_view argument) const {
  doorway_.look({Door::Files, "files", verb, argument});
}

}  // namespace nerolith::platform::simulated
