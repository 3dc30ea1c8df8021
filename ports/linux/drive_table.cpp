#include "linux/drive_table.h"

#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <map>

#include "base/letter_case.h"
#include "base/name_parts.h"
#include "linux/remote_name.h"

namespace quorkit::native {
namespace {

/// Whether a mount shows a part of the root file system at its usual place, with other rights.
bool showsItself(const Mount& mount, const Mount& root) {
    const std::string_view around = root.root == "/" ? std::string_view() : root.root;
    return mount.device == root.device && mount.root.starts_with(around) &&
           std::string_view(mount.root).substr(around.size()) == mount.point;
}

}  // namespace

DriveTable::DriveTable(std::vector<Mount> mounts, const IsFolder& isFolder) {
    std::map<std::string, Mount> points;
    points["/"].point = "/";
    for (Mount& mount : mounts) {
        Mount& onPoint = points[mount.point];
        onPoint = std::move(mount);
    }
    const Mount root = points["/"];
    char16_t letter = kRootDrive;
    for (auto& [point, mount] : points) {
        const bool isRoot = point == "/";
        const MountKind kind = kindOf(mount);
        if (!isRoot && (kind == MountKind::Hidden || showsItself(mount, root))) continue;
        // A network mount is not examined, because it may not answer.
        if (!isRoot && kind != MountKind::Network && mount.root != "/" && !isFolder(point))
            continue;
        Drive drive{letter, kind, std::move(mount)};
        if (kind == MountKind::Network) drive.remote = remoteNameOf(drive.mount.source);
        drives_.push_back(std::move(drive));
        if (letter != 0) letter = letter == u'Z' ? u'\0' : static_cast<char16_t>(letter + 1);
    }
}

DriveTable DriveTable::ofThisSystem() {
    std::ifstream file("/proc/self/mountinfo", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return {mountsFrom(text), [](const std::string& path) {
                struct stat about = {};
                return stat(path.c_str(), &about) == 0 && S_ISDIR(about.st_mode);
            }};
}

const Drive* DriveTable::find(char16_t letter) const {
    for (const Drive& drive : drives_)
        if (drive.letter == letter) return &drive;
    return nullptr;
}

const Drive* DriveTable::findShare(const std::vector<StringView>& components,
                                   std::size_t& used) const {
    const Drive* found = nullptr;
    used = 0;
    for (const Drive& drive : drives_) {
        const base::NameParts remote = base::partsOf(drive.remote);
        const std::size_t length = remote.components.size();
        if (length <= used || length > components.size()) continue;
        if (!std::equal(remote.components.begin(), remote.components.end(), components.begin(),
                        base::sameText))
            continue;
        found = &drive;
        used = length;
    }
    return found;
}

const Drive& DriveTable::around(std::string_view path, Letter letter) const {
    const Drive* innermost = &drives_.front();
    for (const Drive& drive : drives_) {
        const bool counts = letter == Letter::Optional || drive.letter != 0;
        if (counts && isWithin(path, drive.mount.point) &&
            drive.mount.point.size() > innermost->mount.point.size())
            innermost = &drive;
    }
    return *innermost;
}

int driveTypeOf(MountKind kind, bool removable) {
    switch (kind) {
        case MountKind::Network:
            return 4;
        case MountKind::Optical:
            return 5;
        case MountKind::Memory:
            return 6;
        default:
            return removable ? 2 : 3;
    }
}

}  // namespace quorkit::native
