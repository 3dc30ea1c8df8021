// Values in order, each under a key that matches without regard to letter case.
#pragma once

#include <quorkit/variant.h>

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <utility>

#include "base/letter_case.h"

namespace quorkit {

/// Nothing is ever put in between, so elements are stamped with a running number, and an element's
/// stamp tells where it stands; removing moves no more than pointers.
class KeyedList {
   public:
    struct Content {
        Variant value;
        std::int64_t stamp = 0;
    };
    using Elements = std::unordered_map<String, Content, base::KeyHash, base::KeyEqual>;
    /// A key with its content; stays where it is until it is removed.
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

    /// The element under a key, appended with an Empty value when there is none.
    Element& obtain(const String& key);
    /// Takes the element at 1 ... count() out. Its value is released with the result.
    Elements::node_type remove(Long position);

   private:
    Elements elements_;
    std::deque<Element*> order_;
    std::int64_t nextStamp_ = 0;
};

}  // namespace quorkit
