#include <quorkit/collection.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;

// The identifiers are those of the automation runtime's collection.
template <>
std::span<const MemberInfo> frame::memberRows<Collection>() {
    using C = Collection;
    static constexpr MemberInfo rows[] = {
        method<&C::Item>(0, "Item", {"Index"}, "The item at a position or under a key."),
        method<&C::Add>(1, "Add", {"Item", "Key", "Before", "After"},
                        "Adds an item at the end, or beside another one."),
        propertyGet<&C::count>(2, "Count", "The number of items."),
        method<&C::Remove>(3, "Remove", {"Index"},
                           "Removes the item at a position or under a key."),
    };
    return rows;
}

}  // namespace quorkit
