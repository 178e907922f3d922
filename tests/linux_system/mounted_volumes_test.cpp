#include "platform/linux/system/mounted_volumes.h"

#include <gtest/gtest.h>

namespace nerolith::system {
namespace {

using Names = std::vector<std::string>;

constexpr char kDesktop[] =
    "22 29 0:21 / /sys rw,nosuid - sysfs sysfs rw\n"
    "23 29 0:22 / /proc rw,nosuid - proc proc rw\n"
    "24 29 0:5 / /dev rw,nosuid - devtmpfs udev rw\n"
    "29 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
    "40 29 8:1 / /boot/efi rw,relatime shared:30 - vfat /dev/sda1 rw\n"
    "41 29 8:3 / /home rw,relatime shared:31 - ext4 /dev/sda3 rw\n"
    "50 29 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n"
    "60 29 8:17 / /media/user/USB\\040STICK rw shared:40 - vfat /dev/sdb1 rw\n"
    "61 29 0:55 / /mnt/nas rw shared:41 master:2 - nfs4 nas:/export rw\n"
    "62 29 0:56 / /srv/share rw - cifs //nas/share rw\n"
    "63 29 0:57 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
    "64 29 0:58 / /run/user/1000/doc rw - fuse.portal portal rw\n"
    "65 29 0:59 / /var/lib/docker/x rw - overlay overlay rw\n"
    "66 29 0:60 / /mnt/ram rw - tmpfs tmpfs rw\n"
    "67 29 0:61 / /run/media/user/disc rw - iso9660 /dev/sr0 rw\n";

Names rootsOf(std::string_view mountInfo, const std::string& home) {
  Names roots;
  for (const auto& drive : chooseVolumes(mountInfo, home)) roots.push_back(drive.root);
  return roots;
}

TEST(MountedVolumes, AreTheRootTheHomeRemovableAndNetworkOnes) {
  EXPECT_EQ(rootsOf(kDesktop, "/home/user"),
            (Names{"/", "/home", "/run/media/user/disc", "/run/user/1000/gvfs", "/mnt/nas",
                   "/srv/share", "/media/user/USB STICK"}));
}

TEST(MountedVolumes, TheHomeOnTheRootIsNoVolumeOfItsOwn) {
  EXPECT_EQ(rootsOf("29 1 8:2 / / rw - ext4 /dev/sda2 rw\n", "/home/user"), Names{"/"});
  EXPECT_EQ(rootsOf("41 29 8:3 / /hom rw - ext4 /dev/sda3 rw\n", "/home/user"), Names{"/"});
}

TEST(MountedVolumes, AHomeOnANetworkIsListedOnce) {
  EXPECT_EQ(rootsOf("41 29 0:3 / /home/user rw - nfs nas:/u rw\n", "/home/user"),
            (Names{"/", "/home/user"}));
}

TEST(MountedVolumes, AMountThatIsCoveredByAnotherCountsAsTheOther) {
  EXPECT_EQ(rootsOf("1 0 0:1 / /mnt/a rw - autofs x rw\n2 1 0:2 / /mnt/a rw - nfs4 n:/a rw\n", "/"),
            (Names{"/", "/mnt/a"}));
  EXPECT_EQ(rootsOf("1 0 0:1 / /mnt/a rw - nfs4 n:/a rw\n2 1 0:2 / /mnt/a rw - tmpfs x rw\n", "/"),
            Names{"/"});
}

TEST(MountedVolumes, AreCalledByTheirNames) {
  const auto drives = chooseVolumes(kDesktop, "/home/user");
  EXPECT_EQ(drives.front().label, "/");
  EXPECT_EQ(drives.back().label, "USB STICK (/media/user/USB STICK)");
}

TEST(MountedVolumes, NonsenseLeavesTheRoot) {
  for (const char* text : {"", "\n\n", "garbage", "1 2 3 4 5 6 7", "1 2 3 4 /mnt/x rw nfs",
                           "1 2 3 4 relative rw - nfs a rw", " - nfs x", "1 2 3 4 /mnt/x\\9 -"})
    EXPECT_EQ(rootsOf(text, "/home/user"), Names{"/"}) << text;
}

TEST(MountedVolumes, APathLiesOnTheDeepestOfThem) {
  const auto drives = chooseVolumes(kDesktop, "/home/user");
  EXPECT_EQ(volumeOf(drives, "/home/user/Music"), "/home");
  EXPECT_EQ(volumeOf(drives, "/homework"), "/");
  EXPECT_EQ(volumeOf(drives, "/mnt/nas"), "/mnt/nas");
  EXPECT_EQ(volumeOf(drives, "relative"), "");
}

}  // namespace
}  // namespace nerolith::system
