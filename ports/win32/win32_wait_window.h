// The window that asks the user to wait.
#pragma once

#include <quorkit/ports/host.h>

namespace quorkit::native {

/// See Host.
void showWaitWindow(const String& text, WindowHandle owner);
void hideWaitWindow();
/// Sets the pointer over the windows of this thread, until something else sets it.
void setPointer(Pointer pointer);

}  // namespace quorkit::native
