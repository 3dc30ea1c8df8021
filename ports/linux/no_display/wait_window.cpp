#include "linux/wait_window.h"

namespace quorkit {

void showWaitWindow(const String&, WindowHandle) {}
void hideWaitWindow() {}
void setWaitPointer(Pointer) {}

}  // namespace quorkit
