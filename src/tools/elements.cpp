#include <quorkit/GQuorTools.h>

#include "runtime/compare.h"

namespace quorkit {

Long GQuorTools::IndexOfElementInCollection(Unchanged<Variant> vElement,
                                            Unchanged<CollectionRef> c) {
    constexpr Long absent = -1;
    if (*c == nullptr) return absent;
    for (Long position = 1; position <= (*c)->count(); ++position)
        if (runtime::equal((*c)->item(position), vElement)) return position;
    return absent;
}

Boolean GQuorTools::isHex(Unchanged<String> sHex) {
    return sHex->find_first_not_of(u"0123456789ABCDEFabcdef") == String::npos;
}

}  // namespace quorkit
