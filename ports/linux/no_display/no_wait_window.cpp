#include "linux/linux_wait_window.h"
#include "linux/no_display/no_display.h"

namespace quorkit::native {

void showWaitWindow(const String&, WindowHandle) {
    nothing<bool>();
}

void hideWaitWindow() {}
void setWaitPointer(Pointer) {}

}  // namespace quorkit::native
