// The display server's state of the keys.
#pragma once

#include <quorkit/ports/keyboard.h>

namespace quorkit::native {

/// False when there is no server to ask.
bool askServerForKeys(KeyStates& states);

}  // namespace quorkit::native
