// What a Windows name says, before any system is asked: where it begins, and the folders it goes
// through.
#pragma once

#include <quorkit/values.h>

#include <vector>

namespace quorkit::base {

/// Refers to the text it was made from.
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
    /// Without empty ones, so that "a\\b\" is "a", "b"; "." and ".." are kept.
    std::vector<StringView> components;
    /// Whether the name ends in a separator.
    bool folder = false;
};

/// Only "\\" begins a network name; "//a" is a name in the root, as it is on Linux.
NameParts partsOf(StringView name);

}  // namespace quorkit::base
