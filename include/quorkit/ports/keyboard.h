// The state of the keys, as the calling thread sees it.
#pragma once

#include <quorkit/values.h>

#include <array>

namespace quorkit {

/// One byte for each virtual key code: kKeyDown while the key is down, kKeyOn while a toggle is on.
using KeyStates = std::array<Byte, 256>;

inline constexpr Byte kKeyDown = 128;
inline constexpr Byte kKeyOn = 1;

/// Each thread has a table of its own, which follows the keyboard: when a key is pressed, released
/// or switched, that state replaces one that was set before. Without a keyboard, as on Linux
/// without an X server, the table has the states that were set.
class Keyboard {
   public:
    virtual ~Keyboard() = default;

    /// `key` is in 0 ... 255.
    virtual Byte GetKeyState(int key) = 0;
    virtual void GetKeyboardState(KeyStates& states) = 0;
    /// Changes the table of the calling thread alone.
    virtual void SetKeyboardState(const KeyStates& states) = 0;
};

}  // namespace quorkit
