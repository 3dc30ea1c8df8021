// Drive letters for mounts.
#pragma once

#include <quorkit/values.h>

#include <functional>
#include <string_view>
#include <vector>

#include "linux/mounts.h"

namespace quorkit::native {

/// The drive of the root file system.
inline constexpr char16_t kRootDrive = u'C';

/// A mount that is a drive for users.
struct Drive {
    char16_t letter = 0;  ///< 0 when no letter was left
    MountKind kind = MountKind::Disk;
    Mount mount;
    String remote = {};  ///< "\\server\share" of a network mount; "" when it has no such name
};

class DriveTable {
   public:
    using IsFolder = std::function<bool(const std::string& path)>;

    /// C: is the root; D: to Z: are the other mounts that users see, sorted by the bytes of their
    /// mount points. Of several mounts on one point the last counts. A mounted part of a file
    /// system may be a single file; `isFolder` is called to find that out.
    DriveTable(std::vector<Mount> mounts, const IsFolder& isFolder);
    /// The current drives, from the system's table of mounts.
    static DriveTable ofThisSystem();

    /// In the order of their letters; drives without a letter come last.
    const std::vector<Drive>& all() const& { return drives_; }
    void all() && = delete;  // it would not outlive the table
    /// Null when there is none.
    const Drive* find(char16_t letter) const;
    /// The network mount whose remote name the components of a name begin with, the longest if
    /// there are several. `used` receives the number of these components. Null when there is none.
    const Drive* findShare(const std::vector<StringView>& components, std::size_t& used) const;
    enum class Letter { Optional, Required };
    /// The innermost drive that contains an absolute path.
    const Drive& around(std::string_view path, Letter letter = Letter::Optional) const;

   private:
    std::vector<Drive> drives_;
};

/// The type of a drive by the numbers of Win32. `removable` matters only for disks.
int driveTypeOf(MountKind kind, bool removable);

}  // namespace quorkit::native
