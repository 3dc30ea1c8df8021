#include <quorkit/GQuorKeyboard.h>
#include <quorkit/errors.h>
#include <quorkit/ports/keyboard.h>

namespace quorkit {
namespace {

constexpr Integer kShift = 16;
constexpr Integer kControl = 17;
constexpr Integer kScrollLock = 145;

}  // namespace

Boolean GQuorKeyboard::ScrollLock() {
    return (ports_.keyboard.GetKeyState(kScrollLock) & kKeyOn) != 0;
}

void GQuorKeyboard::setScrollLock(Unchanged<Boolean> value) {
    SetKeyState(kScrollLock, *value);
}

Boolean GQuorKeyboard::ShiftKeyDown() {
    return (ports_.keyboard.GetKeyState(kShift) & kKeyDown) != 0;
}

Boolean GQuorKeyboard::ControlKeyDown() {
    return (ports_.keyboard.GetKeyState(kControl) & kKeyDown) != 0;
}

void GQuorKeyboard::SetKeyState(Unchanged<Integer> intKey, Unchanged<Boolean> fTurnOn) {
    KeyStates states{};
    ports_.keyboard.GetKeyboardState(states);
    const auto key = static_cast<std::size_t>(*intKey);
    if (*intKey < 0 || key >= states.size()) raise(ErrorNumber::SubscriptOutOfRange);
    states[key] = *fTurnOn ? kKeyOn : 0;
    ports_.keyboard.SetKeyboardState(states);
}

}  // namespace quorkit
