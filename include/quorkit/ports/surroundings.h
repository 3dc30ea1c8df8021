// What the library uses of this machine beside the system itself, for a person who asks why
// something does not work. Asking changes nothing.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <vector>

namespace quorkit::ports {

/// A program that the library starts.
struct Tool {
    std::string name;
    /// What for, such as "messages and dialogs". Tools with the same use replace each other.
    std::string use;
    std::string path;  ///< where it would be started; "" when it is not there
};

/// All such programs; of those with the same use the preferred one first. None on Windows.
std::vector<Tool> tools();

/// The folders of the registry, when it is the library's own: the user's, "" without a home folder,
/// and the machine's. They need not exist. None when the registry is the system's.
std::vector<String> registryFolders();

}  // namespace quorkit::ports
