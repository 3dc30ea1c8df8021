// The window that asks the user to wait.
#pragma once

#include <quorkit/ports/host.h>

namespace quorkit::native {

/// See Host. One for the process; its end takes the window away.
void showWaitWindow(const String& text, WindowHandle owner);
void hideWaitWindow();
/// Over the wait window; no program can change the pointer over windows of others.
void setWaitPointer(Pointer pointer);

}  // namespace quorkit::native
