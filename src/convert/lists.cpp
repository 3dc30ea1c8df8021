#include <quorkit/GQuorConvert.h>

#include "runtime/convert.h"

namespace quorkit {
namespace {

template <class T>
Variant asItem(const T& element) {
    if constexpr (std::is_same_v<T, Byte>)
        return Integer{element};  // a Variant holds no single Byte
    else
        return element;
}

template <class T>
CollectionRef collected(const Array<T>& array) {
    auto c = Collection::make();
    const std::vector<T>& elements = array.elements();
    if (array.dimensions() < 2) {
        for (const T& element : elements) c->add(asItem(element));
    } else {
        if (array.bounds(1).count != 2) raise(ErrorNumber::TypeMismatch);
        for (std::size_t key = 0; key < elements.size(); key += 2)
            c->add(asItem(elements[key + 1]), runtime::CStr(asItem(elements[key])));
    }
    return c;
}

}  // namespace

CollectionRef GQuorConvert::ArrayToCollection(const Variant& vArray) {
    if (const auto* texts = vArray.getIf<Array<String>>()) return collected(*texts);
    if (const auto* bytes = vArray.getIf<Array<Byte>>()) return collected(*bytes);
    if (const auto* variants = vArray.getIf<Array<Variant>>()) return collected(*variants);
    raise(ErrorNumber::TypeMismatch);
}

Variant GQuorConvert::CollectionToArray(const CollectionRef& c) {
    if (c == nullptr) raise(ErrorNumber::ObjectNotSet);
    const Long count = c->count();
    bool keyed = false;
    for (Long position = 1; position <= count && !keyed; ++position)
        keyed = !c->entry(position).key.empty();
    if (!keyed) {
        Array<Variant> items(Bounds{0, count});
        for (Long i = 0; i < count; ++i) items.at(i) = c->item(i + 1);
        return items;
    }
    Array<Variant> table({0, 2}, {0, count});
    for (Long i = 0; i < count; ++i) {
        const Collection::Entry& entry = c->entry(i + 1);
        table.at(0, i) = entry.key;
        table.at(1, i) = entry.item;
    }
    return table;
}

}  // namespace quorkit
