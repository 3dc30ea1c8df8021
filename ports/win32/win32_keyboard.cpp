#include <windows.h>

#include "native/native_desktop.h"

namespace quorkit::native {

Byte NativeKeyboard::GetKeyState(int key) {
    const auto state = static_cast<unsigned>(::GetKeyState(key));
    return static_cast<Byte>((state & 0x8000 ? kKeyDown : 0) | (state & kKeyOn));
}

void NativeKeyboard::GetKeyboardState(KeyStates& states) {
    // Asking for a key makes the system update the table.
    ::GetKeyState(0);
    static_cast<void>(::GetKeyboardState(states.data()));
}

void NativeKeyboard::SetKeyboardState(const KeyStates& states) {
    KeyStates copy = states;
    static_cast<void>(::SetKeyboardState(copy.data()));
}

}  // namespace quorkit::native
