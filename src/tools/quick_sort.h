// Quick sort with the element in the middle as the pivot.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorkit::tools {

/// Sorts `items`, whose first one has the index `first`. Where equal items end up is settled: the
/// pivot of low ... high is item (low + high) / 2, both sides are swapped up to and including items
/// that equal it, and then low ... j and i ... high are sorted alike.
///
/// `order.before(a, b)` tells whether a stands before b, and `order.from(item)` gives the order
/// for a range that starts with that item and for the ranges inside it. When one of them throws,
/// the items are in any order.
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
                // Neither runs away: the pivot stops both, and later the items swapped before.
                while (order.before(at(i), pivot)) ++i;
                while (order.before(pivot, at(j))) --j;
                if (i <= j) std::swap(at(i++), at(j--));
            }
            // The smaller side first keeps the open ranges few; their sequence does not matter.
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
