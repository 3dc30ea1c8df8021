#include <windows.h>

#include "native/desktop.h"

namespace quorkit {

Byte NativeKeyboard::GetKeyState(int key) {
    return static_cast<Byte>(::GetKeyState(key) & 0xFF) |
           ((::GetKeyState(key) & 0x8000) != 0 ? kKeyDown : 0);
}

void NativeKeyboard::GetKeyboardState(KeyStates& states) {
    static_cast<void>(::GetKeyboardState(states.data()));
}

void NativeKeyboard::SetKeyboardState(const KeyStates& states) {
    KeyStates copy = states;
    static_cast<void>(::SetKeyboardState(copy.data()));
}

}  // namespace quorkit
