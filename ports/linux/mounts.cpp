#include "linux/mounts.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quorkit::native {
namespace {

using std::string_view;
using namespace std::string_view_literals;

constexpr std::array kNetworkFileSystems = {
    "9p"sv,
    "afs"sv,
    "beegfs"sv,
    "ceph"sv,
    "cifs"sv,
    "davfs"sv,
    "fuse.ceph"sv,
    "fuse.curlftpfs"sv,
    "fuse.davfs"sv,
    "fuse.davfs2"sv,
    "fuse.glusterfs"sv,
    "fuse.rclone"sv,
    "fuse.s3fs"sv,
    "fuse.smbnetfs"sv,
    "fuse.sshfs"sv,
    "glusterfs"sv,
    "lustre"sv,
    "ncpfs"sv,
    "nfs"sv,
    "nfs4"sv,
    "smb2"sv,
    "smb3"sv,
    "smbfs"sv,
    "vboxsf"sv,
    "virtiofs"sv,
};
constexpr std::array kOpticalFileSystems = {"iso9660"sv, "udf"sv};
constexpr std::array kMemoryFileSystems = {"tmpfs"sv, "ramfs"sv};
/// Disk file systems whose source is not a path.
constexpr std::array kPoolFileSystems = {"bcachefs"sv, "jffs2"sv, "ubifs"sv, "zfs"sv};

/// Places of the system's own mounts: boot partitions, packages, containers.
constexpr std::array kOwnPlaces = {
    "/boot"sv,           "/efi"sv,
    "/snap"sv,           "/var/lib/containers"sv,
    "/var/lib/docker"sv, "/var/lib/kubelet"sv,
    "/var/lib/snapd"sv,
};
/// Places of memory file systems that are not for users.
constexpr std::array kOwnMemory = {"/dev"sv, "/proc"sv, "/run"sv, "/sys"sv};

template <class List>
bool isOneOf(const List& list, string_view word) {
    return std::ranges::find(list, word) != std::end(list);
}
template <class List>
bool isWithinOneOf(const List& folders, string_view path) {
    return std::ranges::any_of(folders, [&](string_view one) { return isWithin(path, one); });
}

/// The table writes a blank, a line end and a backslash as "\" and three octal digits.
std::string unescaped(string_view text) {
    const auto isOctal = [](char digit) { return digit >= '0' && digit <= '7'; };
    std::string result;
    while (!text.empty()) {
        if (text.size() >= 4 && text[0] == '\\' &&
            std::ranges::all_of(text.substr(1, 3), isOctal)) {
            const int code = (text[1] - '0') * 64 + (text[2] - '0') * 8 + (text[3] - '0');
            result += static_cast<char>(code);
            text.remove_prefix(4);
        } else {
            result += text[0];
            text.remove_prefix(1);
        }
    }
    return result;
}

/// The next word of a line, which may be empty.
std::string takeWord(string_view& line) {
    const string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(line.size(), word.size() + 1));
    return unescaped(word);
}

/// False for a line in another format.
bool readMount(string_view line, Mount& mount) {
    takeWord(line);  // number of the mount
    takeWord(line);  // number of the mount around it
    mount.device = takeWord(line);
    mount.root = takeWord(line);
    mount.point = takeWord(line);
    const auto dash = line.find(" - ");  // behind options, of which the last ones may be missing
    if (dash == string_view::npos) return false;
    line.remove_prefix(dash + 3);
    mount.fileSystem = takeWord(line);
    mount.source = takeWord(line);
    return mount.point.starts_with('/');
}

}  // namespace

std::vector<Mount> mountsFrom(string_view mountinfo) {
    std::vector<Mount> mounts;
    while (!mountinfo.empty()) {
        const string_view line = mountinfo.substr(0, mountinfo.find('\n'));
        mountinfo.remove_prefix(std::min(mountinfo.size(), line.size() + 1));
        Mount mount;
        if (readMount(line, mount)) mounts.push_back(std::move(mount));
    }
    return mounts;
}

bool isWithin(string_view path, string_view folder) {
    if (!path.starts_with(folder)) return false;
    return folder.ends_with('/') || path.size() == folder.size() || path[folder.size()] == '/';
}

MountKind kindOf(const Mount& mount) {
    const string_view system = mount.fileSystem;
    const bool root = mount.point == "/";
    if (isWithinOneOf(kOwnPlaces, mount.point)) return MountKind::Hidden;
    if (isOneOf(kNetworkFileSystems, system)) return MountKind::Network;
    if (isOneOf(kOpticalFileSystems, system)) return MountKind::Optical;
    if (isOneOf(kMemoryFileSystems, system))
        return isWithinOneOf(kOwnMemory, mount.point) ? MountKind::Hidden : MountKind::Memory;
    if (root || isOneOf(kPoolFileSystems, system)) return MountKind::Disk;
    // A file system on a disk names its device. A program's own file system, if it has files at
    // all, names a folder that it shows in another form.
    const bool device = mount.source.starts_with("/dev/") && mount.source != "/dev/fuse";
    const bool view =
        system.starts_with("fuse") && mount.source.starts_with('/') && mount.source != "/dev/fuse";
    return device || view ? MountKind::Disk : MountKind::Hidden;
}

}  // namespace quorkit::native
