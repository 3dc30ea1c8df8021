// Each thread's table of keys, kept up to date with the display server.
#include "linux/server_keys.h"
#include "native/native_desktop.h"

namespace quorkit::native {
namespace {

struct Table {
    KeyStates states{};
    KeyStates server{};  ///< the server's state when it was last asked
};
thread_local Table table;

/// Applies all changes on the keyboard since the last call.
KeyStates& lookAtKeys() {
    KeyStates now{};
    if (!askServerForKeys(now)) return table.states;
    for (std::size_t key = 0; key < now.size(); ++key)
        if (now[key] != table.server[key]) table.states[key] = now[key];
    table.server = now;
    return table.states;
}

}  // namespace

Byte NativeKeyboard::GetKeyState(int key) {
    return lookAtKeys().at(static_cast<std::size_t>(key));
}

void NativeKeyboard::GetKeyboardState(KeyStates& states) {
    states = lookAtKeys();
}

void NativeKeyboard::SetKeyboardState(const KeyStates& states) {
    lookAtKeys() = states;
}

}  // namespace quorkit::native
