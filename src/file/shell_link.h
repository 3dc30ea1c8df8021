// The bytes of a shortcut file, in the format that Microsoft publishes as "[MS-SHLLINK]: Shell Link
// (.LNK) Binary File Format".
#pragma once

#include <quorkit/values.h>

#include <cstdint>
#include <string>

namespace quorkit::file {

/// The content of a shortcut. Zeros stand for unknown values.
struct ShellLink {
    /// The full Windows name of a file or folder, "C:\..." or "\\server\share\...", up to its first
    /// U+0000. Any other text is stored like a name on a drive. Empty for a shortcut that leads
    /// nowhere.
    String target;
    /// The text shown for the shortcut, up to its first U+0000 and 32,767 characters of it.
    String description;
    std::uint32_t targetAttributes = 0;  ///< bits of FileAttribute
    std::uint32_t driveType = 0;         ///< of the target, as Drives::GetDriveTypeA numbers them
    std::uint32_t serialNumber = 0;      ///< of the volume of a target on a drive
};

/// The bytes of the file. Readers without Unicode get the texts in code page 1252. The file has no
/// item list, because its items are documented nowhere; so a target of less than 260 characters is
/// repeated where readers look when there is no list (EnvironmentVariableDataBlock).
std::string shellLinkFile(const ShellLink& link);

}  // namespace quorkit::file
