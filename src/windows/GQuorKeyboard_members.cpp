#include <quorkit/GQuorKeyboard.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;
using frame::propertyLet;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorKeyboard>() {
    using C = GQuorKeyboard;
    static constexpr MemberInfo rows[] = {
        propertyGet<&C::ScrollLock>(0x68030000, "ScrollLock", "Whether Scroll Lock is on."),
        propertyLet<&C::setScrollLock>(0x68030000, "ScrollLock",
                                       "Switches Scroll Lock for the calling thread."),
        propertyGet<&C::ShiftKeyDown>(0x68030001, "ShiftKeyDown",
                                      "Whether a Shift key is held down."),
        propertyGet<&C::ControlKeyDown>(0x68030002, "ControlKeyDown",
                                        "Whether a Control key is held down."),
        method<&C::SetKeyState>(0x60030000, "SetKeyState", {"intKey", "fTurnOn"},
                                "Switches a key on or off for the calling thread."),
    };
    return rows;
}

}  // namespace quorkit
