#include "collection/keyed_list.h"

#include <algorithm>

namespace quorkit::collection {
namespace {

std::int64_t stampOf(const KeyedList::Element* element) {
    return element->second.stamp;
}

}  // namespace

KeyedList::Element* KeyedList::find(StringView key) {
    const auto found = elements_.find(key);
    return found == elements_.end() ? nullptr : &*found;
}

Long KeyedList::positionOf(const Element& element) const {
    // A side has at most as many elements as stamps were given to it, which limits the search.
    // Without a gap in the middle both limits are equal, and nothing is left to search.
    const auto last = static_cast<std::int64_t>(order_.size()) - 1;
    const std::int64_t stamp = element.second.stamp;
    const std::int64_t high = std::min(last, stamp - stampOf(order_.front()));
    const std::int64_t low = std::max(std::int64_t{0}, last - (stampOf(order_.back()) - stamp));
    // Both are positions in the list, so that they fit whatever its iterators count with.
    const auto at = [&](std::int64_t index) {
        return order_.begin() + static_cast<std::ptrdiff_t>(index);
    };
    const auto found = std::ranges::lower_bound(at(low), at(high), stamp, {}, stampOf);
    return static_cast<Long>(found - order_.begin()) + 1;
}

KeyedList::Element& KeyedList::obtain(const String& key) {
    const auto [at, added] = elements_.try_emplace(key);
    if (!added) return *at;
    try {
        order_.push_back(&*at);
    } catch (...) {
        elements_.erase(at);
        throw;
    }
    at->second.stamp = nextStamp_++;
    return *at;
}

KeyedList::Elements::node_type KeyedList::remove(Long position) {
    const auto at = order_.begin() + position - 1;
    auto removed = elements_.extract(elements_.find((*at)->first));
    order_.erase(at);
    return removed;
}

}  // namespace quorkit::collection
