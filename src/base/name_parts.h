// The parts of a Windows name, as far as the name alone tells: where it begins, and the folders on
// its way.
#pragma once

#include <quorkit/values.h>

#include <vector>

namespace quorkit::base {

/// Refers to the text of the name, which must outlive it.
struct NameParts {
    enum Start {
        Here,         ///< "a\b": in the current folder
        Root,         ///< "\a" or "/a": in the root of the current drive
        Drive,        ///< "C:\a": in the root of a drive
        HereOnDrive,  ///< "C:a": in the current folder of a drive
        Network,      ///< "\\server\share\a": in a share; the first components are the server's
                      ///< name and the share's
    };
    Start start = Here;
    char16_t drive = 0;  ///< the letter, a capital
    /// Empty components are left out, so "a\\b\" gives "a" and "b"; "." and ".." are kept.
    std::vector<StringView> components;
    /// Whether the name ends in a separator.
    bool folder = false;
};

/// Only "\\" begins a network name; "//a" is a name in the root, as on Linux.
NameParts partsOf(StringView name);

}  // namespace quorkit::base
