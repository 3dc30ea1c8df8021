// Where Linux has what the library uses beside the system itself.
#pragma once

#include <string>

namespace quorkit::native {

/// Full paths; the user's is "" when there is no home folder.
std::string userRegistryFolder();
std::string machineRegistryFolder();

/// The program quorkit-clipboard: a path, or its name when only PATH can have it. "" in a build
/// without display, which does not need it.
std::string clipboardProgram();

}  // namespace quorkit::native
