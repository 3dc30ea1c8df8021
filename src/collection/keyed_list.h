// Values in order, each under a key that matches without regard to letter case.
#pragma once

#include <quorkit/variant.h>

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <utility>

#include "base/letter_case.h"

namespace quorkit::collection {

/// Nothing is ever inserted in the middle. So each element gets a running number, its stamp, and
/// the stamp leads to its position; a removal moves only pointers.
class KeyedList {
   public:
    struct Content {
        Variant value;
        std::int64_t stamp = 0;
    };
    using Elements = std::unordered_map<String, Content, base::KeyHash, base::KeyEqual>;
    /// A key with its content. Its address stays the same until it is removed.
    using Element = Elements::value_type;

    Long count() const { return static_cast<Long>(order_.size()); }
    void reserve(Long count) { elements_.reserve(static_cast<std::size_t>(count)); }

    /// The element at a position counted from 1; null when there is none.
    Element* at(Long position) const {
        if (position < 1 || position > count()) return nullptr;
        return order_[static_cast<std::size_t>(position) - 1];
    }
    /// The element under a key; null when there is none.
    Element* find(StringView key);
    Long positionOf(const Element& element) const;

    /// The element under a key; if there is none, one with an Empty value is appended.
    Element& obtain(const String& key);
    /// Removes the element at 1 ... count(). Its value is released with the result.
    Elements::node_type remove(Long position);

   private:
    Elements elements_;
    std::deque<Element*> order_;
    std::int64_t nextStamp_ = 0;
};

}  // namespace quorkit::collection
