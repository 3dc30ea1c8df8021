// Quick sort with the element in the middle as the pivot.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorkit::tools {

/// Sorts `items`, the first of which has the index `first`. The positions of equal items are
/// defined: the pivot of low ... high is item (low + high) / 2, both sides swap items up to and
/// including those that equal it, and then low ... j and i ... high are sorted in the same way.
///
/// `order.before(a, b)` returns whether a comes before b. `order.from(item)` returns the order for
/// a range that starts with that item, and for the ranges inside it. If one of them throws, the
/// items are left in any order.
template <class Item, class Order>
void quickSort(std::span<Item> items, std::int64_t first, Order whole) {
    struct Range {
        std::int64_t low;
        std::int64_t high;
        [[no_unique_address]] Order order;
    };
    const auto at = [&](std::int64_t index) -> Item& {
        return items[static_cast<std::size_t>(index - first)];
    };
    std::vector<Range> open = {{first, first + std::ssize(items) - 1, whole}};
    while (!open.empty()) {
        auto [low, high, order] = open.back();
        open.pop_back();
        while (low < high) {
            order = order.from(at(low));
            const Item pivot = at((low + high) / 2);
            std::int64_t i = low;
            std::int64_t j = high;
            while (i <= j) {
                // Neither loop leaves the range: first the pivot stops it, later an item that was
                // swapped.
                while (order.before(at(i), pivot)) ++i;
                while (order.before(pivot, at(j))) --j;
                if (i <= j) std::swap(at(i++), at(j--));
            }
            // Sorting the smaller side first keeps the stack of open ranges small; the result is
            // the same.
            if (j - low < high - i) {
                open.push_back({i, high, order});
                high = j;
            } else {
                open.push_back({low, j, order});
                low = i;
            }
        }
    }
}

}  // namespace quorkit::tools
