#include <quorkit/GQuorTools.h>

#include "frame/member_row.h"

namespace quorkit {

using rows::method;

template <>
std::span<const MemberInfo> memberRows<GQuorTools>() {
    using C = GQuorTools;
    static constexpr MemberInfo rows[] = {
        method<&C::IndexOfElementInCollection>(
            0x60030000, "IndexOfElementInCollection", {"vElement", "c"},
            "The position of the first item of a collection that equals a value, or -1."),
        method<&C::isHex>(0x60030002, "isHex", {"sHex"},
                          "Whether a text holds nothing but hexadecimal digits."),
        method<&C::QuickSortVariantArray>(
            0x60030004, "QuickSortVariantArray",
            {"avarIn", "iLowBound", "iHighBound", "bCaseSensitive", "bSortUp"},
            "Sorts a part of an array in place, up or down, with or without letter case."),
    };
    return rows;
}

}  // namespace quorkit
