// The state of Shift, Control and Scroll Lock, as the calling thread sees it. The class has no
// state of its own; ports/keyboard.h tells what each system knows of its keys.
#pragma once

#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorKeyboard {
   public:
    explicit GQuorKeyboard(Ports& ports = ports::native()) : ports_(ports) {}

    /// Whether Scroll Lock is on.
    Boolean ScrollLock();
    /// Switches Scroll Lock for the calling thread alone; its light stays as it is.
    void setScrollLock(Unchanged<Boolean> value);
    /// Whether a Shift key is held down, the left or the right one.
    Boolean ShiftKeyDown();
    /// Whether a Control key is held down.
    Boolean ControlKeyDown();
    /// Sets the state of the virtual key `intKey` for the calling thread alone: on or off, and in
    /// both cases not held down. Error 9, and no change, for a key outside 0 ... 255.
    void SetKeyState(Unchanged<Integer> intKey, Unchanged<Boolean> fTurnOn);

   private:
    Ports& ports_;
};

}  // namespace quorkit
