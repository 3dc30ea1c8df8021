// The bytes of a shortcut file, in the format that Microsoft publishes as "[MS-SHLLINK]: Shell Link
// (.LNK) Binary File Format".
#pragma once

#include <quorkit/values.h>

#include <cstdint>
#include <string>

namespace quorkit::file {

/// What a shortcut says. Zeros stand for what is not known.
struct ShellLink {
    /// The full Windows name of a file or folder, "C:\..." or "\\server\share\..."; any other text
    /// is stored as if it were one on a drive. Counts up to its first U+0000. Empty for a shortcut
    /// that leads nowhere.
    String target;
    /// What is shown of the shortcut; counts up to its first U+0000, and 32,767 characters of it.
    String description;
    std::uint32_t targetAttributes = 0;  ///< bits of FileAttribute
    std::uint32_t driveType = 0;         ///< of the target, as Drives::GetDriveTypeA numbers them
    std::uint32_t serialNumber = 0;      ///< of the volume of a target on a drive
};

/// The content of the file. Readers without Unicode get the texts in code page 1252. No item list
/// is written, as its items are documented nowhere: a target of less than 260 characters stands
/// also where readers look when there is none (EnvironmentVariableDataBlock).
std::string shellLinkFile(const ShellLink& link);

}  // namespace quorkit::file
