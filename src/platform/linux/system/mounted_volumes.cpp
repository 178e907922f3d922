#include "platform/linux/system/mounted_volumes.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/letter_case.h"

namespace nerolith::system {
namespace {

struct Mount {
  std::string point;
  std::string kind;
};

constexpr std::array<std::string_view, 17> kNetworkKinds = {"nfs",
                                                            "nfs4",
                                                            "cifs",
                                                            "smb3",
                                                            "smbfs",
                                                            "afs",
                                                            "ceph",
                                                            "glusterfs",
                                                            "davfs",
                                                            "9p",
                                                            "vboxsf",
                                                            "virtiofs",
                                                            "fuse.sshfs",
                                                            "fuse.rclone",
                                                            "fuse.glusterfs",
                                                            "fuse.gvfsd-fuse",
                                                            "fuse.vmhgfs-fuse"};

constexpr std::array<std::string_view, 3> kRemovablePlaces = {"/media", "/run/media", "/mnt"};

/// Made of memory, or of other mounts: nothing a person put there.
constexpr std::array<std::string_view, 13> kMadeUpKinds = {
    "tmpfs",   "ramfs",   "proc",   "sysfs",    "devtmpfs", "devpts",     "cgroup",
    "cgroup2", "overlay", "autofs", "squashfs", "mqueue",   "fuse.portal"};

constexpr std::array<std::string_view, 8> kSystemPlaces = {"/proc", "/sys", "/dev",     "/boot",
                                                           "/snap", "/run", "/var/lib", "/etc"};

template <std::size_t N>
bool contains(const std::array<std::string_view, N>& all, std::string_view one) {
  return std::find(all.begin(), all.end(), one) != all.end();
}

bool liesIn(std::string_view path, std::string_view folder) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

template <std::size_t N>
bool liesInAny(std::string_view path, const std::array<std::string_view, N>& folders) {
  return std::any_of(folders.begin(), folders.end(),
                     [&](std::string_view folder) { return liesIn(path, folder); });
}

std::string_view cutField(std::string_view& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string_view field = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return field;
}

/// Blanks, line ends and backslashes stand in octal: "\040".
std::string unescaped(std::string_view text) {
  std::string out;
  const auto digit = [&](std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '7' ? text[at] - '0' : -1;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && digit(i + 1) >= 0 && digit(i + 2) >= 0 && digit(i + 3) >= 0) {
      out += static_cast<char>(digit(i + 1) * 64 + digit(i + 2) * 8 + digit(i + 3));
      i += 3;
    } else {
      out += text[i];
    }
  }
  return out;
}

/// "ID PARENT MAJOR:MINOR ROOT POINT OPTIONS [OPTIONAL...] - KIND SOURCE OPTIONS".
std::optional<Mount> parseLine(std::string_view line) {
  for (int skipped = 0; skipped < 4; ++skipped) cutField(line);
  Mount mount;
  mount.point = unescaped(cutField(line));
  const std::size_t dash = line.find(" - ");
  if (dash == std::string_view::npos || !mount.point.starts_with('/')) return std::nullopt;
  line.remove_prefix(dash + 3);
  mount.kind = std::string(cutField(line));
  return mount;
}

std::vector<Mount> parse(std::string_view mountInfo) {
  std::vector<Mount> mounts;
  while (!mountInfo.empty()) {
    const std::size_t end = std::min(mountInfo.find('\n'), mountInfo.size());
    if (auto mount = parseLine(mountInfo.substr(0, end))) {
      // A later mount on the same point covers the earlier one.
      std::erase_if(mounts, [&](const Mount& other) { return other.point == mount->point; });
      mounts.push_back(std::move(*mount));
    }
    mountInfo.remove_prefix(std::min(end + 1, mountInfo.size()));
  }
  return mounts;
}

bool wouldBeChosen(const Mount& mount) {
  if (mount.kind == "fuse.gvfsd-fuse") return true;  // the desktop's own network shares
  if (liesInAny(mount.point, kRemovablePlaces)) return !contains(kMadeUpKinds, mount.kind);
  return contains(kNetworkKinds, mount.kind) && !liesInAny(mount.point, kSystemPlaces);
}

std::string homeVolume(const std::vector<Mount>& mounts, const std::string& homeFolder) {
  std::string best = "/";
  for (const Mount& mount : mounts)
    if (liesIn(homeFolder, mount.point) && mount.point.size() > best.size()) best = mount.point;
  return best;
}

/// The volume's name first, which is what a person knows it by.
std::string labelOf(const std::string& point) {
  const std::string name = point.substr(point.rfind('/') + 1);
  return name.empty() ? point : name + " (" + point + ")";
}

}  // namespace

std::vector<controls::DriveEntry> chooseVolumes(std::string_view mountInfo,
                                                const std::string& homeFolder) {
  const std::vector<Mount> mounts = parse(mountInfo);
  const std::string home = homeVolume(mounts, homeFolder);
  std::vector<std::string> others;
  for (const Mount& mount : mounts)
    if (mount.point != "/" && mount.point != home && wouldBeChosen(mount))
      others.push_back(mount.point);
  std::sort(others.begin(), others.end(), [](const std::string& a, const std::string& b) {
    const std::string keyA = base::sortKey(a.substr(a.rfind('/') + 1));
    const std::string keyB = base::sortKey(b.substr(b.rfind('/') + 1));
    return keyA != keyB ? keyA < keyB : a < b;
  });

  std::vector<controls::DriveEntry> drives{{"/", "/"}};
  if (home != "/") drives.push_back({home, labelOf(home)});
  for (const std::string& point : others) drives.push_back({point, labelOf(point)});
  return drives;
}

std::string volumeOf(const std::vector<controls::DriveEntry>& drives, const std::string& path) {
  std::string best;
  for (const controls::DriveEntry& drive : drives)
    if (liesIn(path, drive.root) && drive.root.size() > best.size()) best = drive.root;
  return best;
}

}  // namespace nerolith::system
