#include <quorkit/ports/ports.h>

#include "native/native_desktop.h"
#include "native/native_drives.h"
#include "native/native_files.h"
#include "native/native_host.h"
#include "native/native_processes.h"
#include "native/native_registry.h"
#include "native/native_system.h"

namespace quorkit::ports {

using namespace native;

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
