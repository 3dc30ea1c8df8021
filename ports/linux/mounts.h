// The mounts of this system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorkit::native {

struct Mount {
    std::string device;  ///< its numbers, "8:1"
    std::string root;    ///< which folder of the file system is mounted, "/" for all of it
    std::string point;   ///< where, an absolute path without a separator at its end
    std::string fileSystem;
    std::string source;  ///< a device, a share, or any word
};

/// The mounts that a text of the form of /proc/self/mountinfo tells of, in its order; lines of
/// another form are left out. Format: proc(5).
std::vector<Mount> mountsFrom(std::string_view mountinfo);

/// Whether the absolute path `path` is the folder `folder` or lies in it.
bool isWithin(std::string_view path, std::string_view folder);

enum class MountKind {
    Hidden,  ///< no place for a user's files: the kernel's own views, packages, start partitions
    Disk,
    Network,
    Optical,
    Memory,
};
/// What a mount is to a user, by its file system, its source and its place.
MountKind kindOf(const Mount& mount);

}  // namespace quorkit::native
