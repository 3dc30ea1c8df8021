// A collection of texts as one text, for tables.
#pragma once

#include <quorkit/collection.h>

namespace quorkit::test {

/// "key:item|key:item|", an item without a key as ":item|".
inline String flat(const Variant& value) {
    String text;
    const auto c = std::dynamic_pointer_cast<Collection>(value.get<ObjectRef>());
    for (Long i = 1; i <= c->count(); ++i)
        text += c->entry(i).key + u":" + c->entry(i).item.get<String>() + u"|";
    return text;
}

}  // namespace quorkit::test
