// The state of the keys, as the calling thread sees it.
#pragma once

#include <quorkit/values.h>

#include <array>

namespace quorkit {

/// A byte for each virtual key code: kKeyDown while it is down, kKeyOn while a toggle is on.
using KeyStates = std::array<Byte, 256>;

inline constexpr Byte kKeyDown = 128;
inline constexpr Byte kKeyOn = 1;

/// Each thread has a table of its own. It follows the keyboard: a key that is pressed, released or
/// switched has that state from then on, also when the table was told another one before. Without a
/// keyboard to look at, as without an X server on Linux, the table is what it was told.
class Keyboard {
   public:
    virtual ~Keyboard() = default;

    /// `key` is 0 to 255.
    virtual Byte GetKeyState(int key) = 0;
    virtual void GetKeyboardState(KeyStates& states) = 0;
    /// Changes the table of the calling thread alone.
    virtual void SetKeyboardState(const KeyStates& states) = 0;
};

}  // namespace quorkit
