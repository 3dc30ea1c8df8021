#include <quorkit/GQuorLanguage.h>

#include "frame/member_row.h"

namespace quorkit {

template <>
std::span<const MemberInfo> frame::memberRows<GQuorLanguage>() {
    return {};
}

}  // namespace quorkit
