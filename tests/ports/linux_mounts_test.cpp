// Drives from invented tables of mounts.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/ports/drives.h>
#include <quorkit/utf8.h>

#include "base/name_parts.h"
#include "linux/drive_table.h"
#include "linux/remote_name.h"
#include "linux/volumes.h"

namespace quorkit::test {
namespace {

using native::DriveTable;

/// The mount points in /etc are single files.
DriveTable tableOf(const char* mountinfo) {
    return {native::mountsFrom(mountinfo),
            [](const std::string& path) { return !native::isWithin(path, "/etc"); }};
}

/// "C:/ 3 | D:/media/usb 2", with the types of the drives; devices with the number 8 are removable.
std::string drivesIn(const char* mountinfo) {
    const DriveTable drives = tableOf(mountinfo);
    std::string text;
    for (const native::Drive& drive : drives.all()) {
        const int type = native::driveTypeOf(drive.kind, drive.mount.device.starts_with("8:"));
        text += (text.empty() ? "" : " | ") + toUtf8(String(1, drive.letter)) + ":" +
                drive.mount.point + " " + std::to_string(type);
        if (!drive.remote.empty()) text += " " + toUtf8(drive.remote);
    }
    return text;
}

TEST(LinuxDrives, AreTheMountsThatUsersSee) {
    const std::pair<const char*, const char*> systems[] = {
        {"26 28 0:23 / /run rw - tmpfs tmpfs rw\n"  // a desktop
         "28 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw\n"
         "30 24 0:25 / /dev/shm rw - tmpfs tmpfs rw\n"
         "31 28 259:1 / /boot/efi rw - vfat /dev/nvme0n1p1 rw\n"
         "33 28 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
         "34 28 0:40 / /tmp rw - tmpfs tmpfs rw\n"
         "35 26 0:41 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
         "37 28 8:17 / /media/u/MY\\040STICK rw shared:9 master:2 - vfat /dev/sdb1 rw\n"
         "38 28 11:0 / /media/u/CD ro - iso9660 /dev/sr0 ro\n"
         "39 28 259:3 / /home rw - ext4 /dev/nvme0n1p3 rw\n"
         "40 28 259:9 / /mnt rw - ext4 /dev/sdz1 rw\n"
         "41 28 259:4 / /mnt rw - fuseblk /dev/sda1 rw\n"
         "42 28 259:2 /usr /usr ro - ext4 /dev/nvme0n1p2 ro\n",
         "C:/ 3 | D:/home 3 | E:/media/u/CD 5 | F:/media/u/MY STICK 2 | G:/mnt 3 | H:/tmp 6"},
        {"29 28 0:40 / /srv/n rw - nfs4 files:/export/data rw,addr=10.0.0.1\n"  // a server
         "30 28 0:41 / /srv/c rw - cifs //Win/Share\\040One rw\n"
         "31 28 0:42 / /srv/s rw - fuse.sshfs me@box:/home/me/ rw\n"
         "32 28 0:43 / /tank rw - zfs tank/data rw\n"
         "33 28 0:44 / /srv/enc rw - fuse.gocryptfs /srv/.enc rw\n"
         "34 28 0:45 / /var/lib/docker/overlay2/1/merged rw - overlay overlay rw\n",
         "C:/ 3 | D:/srv/c 4 \\\\Win\\Share One | E:/srv/enc 3 | "
         "F:/srv/n 4 \\\\files\\export\\data | G:/srv/s 4 \\\\box\\home\\me | H:/tank 3"},
        {"1 0 0:90 / / rw - overlay overlay rw\n"  // a container
         "2 1 0:91 / /proc rw - proc proc rw\n"
         "3 2 0:92 / /proc/acpi ro - tmpfs tmpfs ro\n"
         "4 1 254:1 /v/containers/1/hosts /etc/hosts rw - ext4 /dev/vda1 rw\n"
         "5 1 254:1 /v/volumes/data /data rw - ext4 /dev/vda1 rw\n",
         "C:/ 3 | D:/data 3"},
        {"\nnonsense\n1 2 3 - \n1 0 8:1 / relative rw - ext4 /dev/sda1 rw\n", "C:/ 3"}};
    for (const auto& [mountinfo, drives] : systems) EXPECT_EQ(drivesIn(mountinfo), drives);
}

TEST(LinuxDrives, EndWithZ) {
    std::string many;
    for (int i = 10; i < 40; ++i)
        many += "9 1 8:1 / /m/" + std::to_string(i) + " rw - ext4 /dev/sda1 rw\n";
    const DriveTable drives = tableOf(many.c_str());
    EXPECT_EQ(drives.all().size(), 31u);
    EXPECT_EQ(drives.find(u'Z')->mount.point, "/m/32");
    EXPECT_EQ(drives.around("/m/39/x").mount.point, "/m/39");
    EXPECT_EQ(drives.around("/m/39/x", DriveTable::Letter::Required).letter, u'C');
    EXPECT_EQ(drives.around("/m/12x").letter, u'C');
    EXPECT_EQ(drives.around("/m/12").letter, u'F');
}

TEST(LinuxDrives, AreFoundByTheirShares) {
    const DriveTable drives = tableOf(
        "30 28 0:41 / /a rw - cifs //srv/data rw\n"
        "31 28 0:41 / /b rw - cifs //srv/data/deep rw\n");
    const std::pair<StringView, std::string> cases[] = {{u"\\\\SRV\\Data\\x", "/a 2"},
                                                        {u"\\\\srv\\data\\DEEP\\x", "/b 3"},
                                                        {u"\\\\srv\\data", "/a 2"},
                                                        {u"\\\\srv\\data2\\x", ""},
                                                        {u"\\\\srv", ""},
                                                        {u"\\\\", ""}};
    for (const auto& [name, point] : cases) {
        std::size_t used = 0;
        const native::Drive* found = drives.findShare(base::partsOf(name).components, used);
        EXPECT_EQ(found == nullptr ? "" : found->mount.point + " " + std::to_string(used), point);
    }
    const std::pair<const char*, StringView> sources[] = {
        {"[fe80::1%eth0]:/x", u"\\\\[fe80::1%eth0]\\x"},
        {"host:", u"\\\\host"},
        {"u@host:dir/sub", u"\\\\host\\dir\\sub"},
        {"https://u@host:8443/dav/", u"\\\\host\\dav"},
        {"m1:6789,m2:6789:/vol", u"\\\\m1\\vol"},
        {"//u@srv:445/share//", u"\\\\srv\\share"},
        {"tag", u""},
        {":/x", u""}};
    for (const auto& [source, name] : sources) EXPECT_EQ(native::remoteNameOf(source), name);
}

TEST(LinuxDrives, HaveTheSerialNumberOfWindows) {
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"1A2B-3C4D", 0x1A2B3C4D},
        {"01234567fedcba98", 0xFEDCBA98},
        {"1A2B-3C4G", 1},
        {"6f1c2e5a-0000-4000-8000-000000000000", 1}};
    for (const auto& [identifier, expected] : cases) {
        std::uint32_t serial = 1;
        EXPECT_EQ(native::serialFromIdentifier(identifier, serial), expected != 1);
        EXPECT_EQ(serial, expected);
    }
}

}  // namespace
}  // namespace quorkit::test
#endif
