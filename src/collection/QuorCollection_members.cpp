#include <quorkit/QuorCollection.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;

// The identifiers follow the order of the class's procedures; 0 is a private one, and count is at
// the place of 9.
template <>
std::span<const MemberInfo> frame::memberRows<QuorCollection>() {
    using C = QuorCollection;
    static constexpr MemberInfo rows[] = {
        method<&C::setValueByKey>(0x60030001, "setValueByKey", {"vValue", "sKey"},
                                  "Sets the value of a key, appending a new one; its position."),
        method<&C::setValueByIndex>(0x60030002, "setValueByIndex", {"vValue", "index"},
                                    "Replaces the value at a position; the position, or -1 when it "
                                    "is out of range."),
        method<&C::GetIndex>(0x60030003, "GetIndex", {"sKey"},
                             "The position of a key, -1 when it is absent."),
        method<&C::getKey>(0x60030004, "getKey", {"index"},
                           "The key at a position as it was first spelled."),
        method<&C::getValueByKey>(0x60030005, "getValueByKey", {"sKey", "vDefaultValue"},
                                  "The value of a key, or the default when it is absent."),
        method<&C::getValueByIndex>(0x60030006, "getValueByIndex", {"index"},
                                    "The value at a position, an empty text out of range."),
        method<&C::removeByIndex>(0x60030007, "removeByIndex", {"index"},
                                  "Removes the element at a position; whether there was one."),
        method<&C::removeByKey>(0x60030008, "removeByKey", {"sKey"},
                                "Removes the element of a key; whether there was one."),
        propertyGet<&C::count>(0x68030000, "count", "The number of elements."),
        method<&C::getAllKeyNames>(0x6003000A, "getAllKeyNames", {"saKeyNames"},
                                   "Fills an array with all keys in order; their number."),
        method<&C::clone>(0x6003000B, "clone",
                          "A new collection with the same keys and values in the same order."),
    };
    return rows;
}

}  // namespace quorkit
