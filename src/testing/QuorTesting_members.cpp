#include <quorkit/QuorTesting.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<QuorTesting>() {
    using C = QuorTesting;
    static constexpr MemberInfo rows[] = {
        method<&C::GetRandomLastName>(0x60030000, "GetRandomLastName", {"iMax"},
                                      "A last name by chance."),
        method<&C::GetRandomFirstName>(0x60030001, "GetRandomFirstName", {"sexCode", "iMax"},
                                       "A first name by chance, of a sex or of either."),
        method<&C::GetRandomOE>(0x60030002, "GetRandomOE", {"iMax"},
                                "The name of an organisational unit by chance."),
    };
    return rows;
}

}  // namespace quorkit
