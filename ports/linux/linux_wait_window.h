// The window that asks the user to wait.
#pragma once

#include <quorkit/ports/host.h>

namespace quorkit::native {

/// See Host. There is one for the process; when the process ends, the window disappears.
void showWaitWindow(const String& text, WindowHandle owner);
void hideWaitWindow();
/// Sets the pointer over the wait window only; no program can change it over windows of others.
void setWaitPointer(Pointer pointer);

}  // namespace quorkit::native
