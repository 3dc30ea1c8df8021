// The mounts of this system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorkit::native {

struct Mount {
    std::string device;  ///< its numbers, "8:1"
    std::string root;    ///< the mounted folder of the file system, "/" for all of it
    std::string point;   ///< the absolute path of the mount, without a separator at its end
    std::string fileSystem;
    std::string source;  ///< a device, a share, or any other word
};

/// The mounts in a text with the format of /proc/self/mountinfo (see proc(5)), in its order; other
/// lines are left out.
std::vector<Mount> mountsFrom(std::string_view mountinfo);

/// Whether the absolute path `path` is the folder `folder` or is within it.
bool isWithin(std::string_view path, std::string_view folder);

enum class MountKind {
    Hidden,  ///< no place for a user's files: the kernel's own views, packages, boot partitions
    Disk,
    Network,
    Optical,
    Memory,
};
/// The kind of a mount for its users, by its file system, its source and its place.
MountKind kindOf(const Mount& mount);

}  // namespace quorkit::native
