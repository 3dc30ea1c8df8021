// Windows has all that the library uses.
#include <quorkit/ports/surroundings.h>

namespace quorkit::ports {

std::vector<Tool> tools() {
    return {};
}

std::vector<String> registryFolders() {
    return {};
}

}  // namespace quorkit::ports
