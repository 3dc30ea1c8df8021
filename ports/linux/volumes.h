// Facts about volumes.
#pragma once

#include <quorkit/ports/files.h>

#include <cstdint>
#include <string_view>

#include "linux/mounts.h"

namespace quorkit::native {

/// Whether the medium of the mount's device can be removed.
bool isRemovable(const Mount& mount);

/// The serial number that a FAT, exFAT or NTFS volume has on Windows, from its identifier on Linux:
/// "1A2B-3C4D", or 16 digits of which the last 8 count. False for any other identifier.
bool serialFromIdentifier(std::string_view identifier, std::uint32_t& serial);

/// The serial number of a mounted volume. It is the volume's own, as on Windows, if it has one;
/// otherwise it comes from the identifier of the file system.
ErrorCode serialNumberOf(const Mount& mount, std::uint32_t& serial);

}  // namespace quorkit::native
