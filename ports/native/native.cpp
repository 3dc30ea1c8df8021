#include <quorkit/ports/ports.h>

#include "native/drives.h"
#include "native/files.h"
#include "native/host.h"
#include "native/registry.h"
#include "native/system.h"

namespace quorkit::ports {

Ports& native() {
    static NativeFiles files;
    static NativeDrives drives;
    static NativeSystem system;
    static NativeHost host;
    static Ports ports{files, drives, nativeRegistry(), system, host};
    return ports;
}

}  // namespace quorkit::ports
