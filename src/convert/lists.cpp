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
    auto c = std::make_shared<Collection>();
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
    std::vector<Variant> items;
    items.reserve(static_cast<std::size_t>(c->count()));
    for (Long position = 1; position <= c->count(); ++position) items.push_back(c->item(position));
    return Array<Variant>(std::move(items));
}

}  // namespace quorkit
