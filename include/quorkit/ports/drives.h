// Drives, their volumes, and the network names behind them.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

#include <cstdint>
#include <vector>

namespace quorkit {

/// A network share, "\\server\share", and its drive letter, "X:"; the local name is empty when the
/// share has no drive letter.
struct NetworkConnection {
    String localName;
    String remoteName;
};

/// On Linux `C:` is the root file system. Mounts follow as further drives, in the order of their
/// names: disks, network shares, media, and memory where users keep files. Mounts that serve the
/// system itself, such as /proc, /boot and packages, are left out. The name of a share is made from
/// its source: "\\server\a\b" for "server:/a/b".
class Drives {
   public:
    virtual ~Drives() = default;

    /// The type of a drive such as "C:" or "C:\", by the numbers of Win32: 2 removable, 3 fixed, 4
    /// network, 5 optical, 6 memory; 1 when there is no such drive, 0 when its type is unknown. On
    /// Linux a name such as "/media/stick/x" gives the type of the drive that holds it.
    virtual int GetDriveTypeA(const String& root) = 0;
    /// The roots of all drives, such as "C:\", in alphabetical order.
    virtual std::vector<String> GetLogicalDriveStringsA() = 0;
    /// The serial number of the volume whose root is "C:\" or "\\server\share\". For FAT, exFAT and
    /// NTFS volumes Linux gives the same number as Windows.
    virtual ErrorCode VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) = 0;
    /// The network connections, in the system's order.
    virtual ErrorCode ListConnections(std::vector<NetworkConnection>& connections) = 0;
};

}  // namespace quorkit
