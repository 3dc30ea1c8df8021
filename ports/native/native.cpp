#include <quorkit/ports/ports.h>

#include "native/files.h"
#include "native/system.h"

namespace quorkit::ports {

Ports& native() {
    static NativeFiles files;
    static NativeSystem system;
    static Ports ports{files, system};
    return ports;
}

}  // namespace quorkit::ports
