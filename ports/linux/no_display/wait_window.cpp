#include "linux/wait_window.h"

#include "linux/no_display/nothing.h"

namespace quorkit {

void showWaitWindow(const String&, WindowHandle) {
    nothing<bool>();
}

void hideWaitWindow() {}
void setWaitPointer(Pointer) {}

}  // namespace quorkit
