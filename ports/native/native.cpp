#include <quorkit/ports/ports.h>

#include "native/desktop.h"
#include "native/drives.h"
#include "native/files.h"
#include "native/host.h"
#include "native/processes.h"
#include "native/registry.h"
#include "native/system.h"

namespace quorkit::ports {

Ports& native() {
    static NativeFiles files;
    static NativeFolders folders;
    static NativeDrives drives;
    static NativeSystem system;
    static NativeHost host;
    static NativeProcesses processes;
    static NativeDesktop desktop;
    static NativeKeyboard keyboard;
    static NativeClipboard clipboard;
    static Ports ports{files, folders,   drives,  nativeRegistry(), system,
                       host,  processes, desktop, keyboard,         clipboard};
    return ports;
}

}  // namespace quorkit::ports
