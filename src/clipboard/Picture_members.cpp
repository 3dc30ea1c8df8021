#include <quorkit/picture.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::propertyGet;

template <>
std::span<const MemberInfo> frame::memberRows<Picture>() {
    static constexpr MemberInfo rows[] = {
        propertyGet<&Picture::File>(0x60030000, "File", "The bytes of the picture's file."),
    };
    return rows;
}

}  // namespace quorkit
