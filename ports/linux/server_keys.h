// The keys as a display server has them.
#pragma once

#include <quorkit/ports/keyboard.h>

namespace quorkit {

/// False when there is no server to ask.
bool askServerForKeys(KeyStates& states);

}  // namespace quorkit
