// What a volume says of itself.
#pragma once

#include <quorkit/ports/files.h>

#include <cstdint>
#include <string_view>

#include "linux/mounts.h"

namespace quorkit::native {

/// Whether a mount lies on a device whose medium can be taken out.
bool isRemovable(const Mount& mount);

/// The serial number that a FAT, exFAT or NTFS volume has on Windows, from the identifier that
/// Linux shows of it: "1A2B-3C4D", or 16 digits of which the last 8 count. False for another one.
bool serialFromIdentifier(std::string_view identifier, std::uint32_t& serial);

/// The serial number of a mounted volume: its own where it has one, so that it is the same on
/// Windows, else what its file system tells it apart by.
ErrorCode serialNumberOf(const Mount& mount, std::uint32_t& serial);

}  // namespace quorkit::native
