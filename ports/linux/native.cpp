#include <quorkit/ports/ports.h>

#include "files.h"
#include "system.h"

namespace quorkit::ports {

Ports& native() {
    static LinuxFiles files;
    static LinuxSystem system;
    static Ports ports{files, system};
    return ports;
}

}  // namespace quorkit::ports
