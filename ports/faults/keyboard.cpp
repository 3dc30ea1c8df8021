#include <quorkit/ports/faults.h>

namespace quorkit {

Byte FaultyKeyboard::GetKeyState(int key) {
    return due("GetKeyState") ? Byte{0} : inner_.GetKeyState(key);
}
void FaultyKeyboard::GetKeyboardState(KeyStates& states) {
    if (!due("GetKeyboardState")) inner_.GetKeyboardState(states);
}
void FaultyKeyboard::SetKeyboardState(const KeyStates& states) {
    if (!due("SetKeyboardState")) inner_.SetKeyboardState(states);
}

}  // namespace quorkit
