#include <quorkit/dictionary.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;
using frame::propertyLet;

// The identifiers are those of the scripting runtime's dictionary.
template <>
std::span<const MemberInfo> frame::memberRows<Dictionary>() {
    using C = Dictionary;
    static constexpr MemberInfo rows[] = {
        propertyGet<&C::Item>(0, "Item", {"Key"}, "The item under a key; a new key is added."),
        propertyLet<&C::setItem>(0, "Item", {"Key", "newValue"}, "Sets the item under a key."),
        method<&C::Add>(1, "Add", {"Key", "Item"}, "Adds an item under a new key."),
        propertyGet<&C::count>(2, "Count", "The number of pairs."),
        method<&C::Exists>(3, "Exists", {"Key"}, "Whether there is such a key."),
        method<&C::Items>(4, "Items", "All items, in the order of their adding."),
        method<&C::Keys>(6, "Keys", "All keys, in the order of their adding."),
        method<&C::Remove>(7, "Remove", {"Key"}, "Removes a pair."),
        method<&C::RemoveAll>(8, "RemoveAll", "Removes all pairs."),
    };
    return rows;
}

}  // namespace quorkit
