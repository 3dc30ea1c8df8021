#include <quorkit/GQuorTools.h>

#include <algorithm>
#include <cmath>
#include <compare>
#include <functional>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "runtime/compare.h"
#include "runtime/convert.h"
#include "tools/quick_sort.h"

namespace quorkit {
namespace {

bool isEmptyOrText(const Variant& value) {
    return value.is<Empty>() || value.is<String>();
}

bool isEmptyOrNumber(const Variant& value) {
    return value.is<Empty>() || value.is<Boolean>() || value.is<Integer>() || value.is<Long>() ||
           value.is<Double>() || value.is<Date>();
}

/// Sorted in place of a Variant, which is large: a key, and the position of the Variant.
template <class Key>
struct Keyed {
    Key key;
    std::uint32_t position;
};

/// Keys ordered by "<"; a NaN equals all of them.
template <class Less>
struct Plain {
    Plain from(const auto&) const { return *this; }
    bool before(const auto& a, const auto& b) const { return Less()(a.key, b.key); }
};

/// A Variant and, if letter case may be ignored, its text in capitals.
struct Both {
    const Variant* value;
    StringView capitals;
};
struct Mixed {
    bool caseSensitive;
    bool up;
    Mixed from(const Keyed<Both>& lowest) const {
        return {caseSensitive || !isEmptyOrText(*lowest.key.value), up};
    }
    bool before(const Keyed<Both>& a, const Keyed<Both>& b) const {
        const std::partial_ordering order =
            caseSensitive ? runtime::compare(*a.key.value, *b.key.value)
                          : std::partial_ordering(a.key.capitals <=> b.key.capitals);
        // Sorting a range with Null never ends, because Null is neither less, greater nor equal.
        if (order == std::partial_ordering::unordered) raise(ErrorNumber::InvalidUseOfNull);
        return up ? std::is_lt(order) : std::is_gt(order);
    }
};

/// Sorts one range of an array. Everything that can fail comes before its elements move.
class Sort {
   public:
    /// Error 9 when the array has no such range.
    Sort(Array<Variant>& array, Long low, Long high, bool caseSensitive, bool up)
        : range_(&array.at(low), &array.at(high) + 1),
          first_(low),
          caseSensitive_(caseSensitive || !isEmptyOrText(range_[0])),
          up_(up) {
        for (const Variant& value : range_) {
            texts_ = texts_ && isEmptyOrText(value);
            numbers_ = numbers_ && isEmptyOrNumber(value);
            oneType_ = oneType_ && value.index() == range_[0].index();
        }
    }

    void run() {
        if (numbers_ && oneType_ && sortEqualsAlike()) return;
        if (!caseSensitive_) {
            capitals_.reserve(range_.size());
            for (const Variant& value : range_)
                capitals_.push_back(base::toUpper(runtime::CStr(value)));
        }
        if (texts_)
            sortPlain([this](std::size_t i) { return text(i); });
        else if (numbers_ && caseSensitive_)
            sortPlain([this](std::size_t i) { return runtime::CDbl(range_[i]); });
        else
            sortMixed();
    }

   private:
    StringView text(std::size_t i) const {
        if (!caseSensitive_) return capitals_[i];
        const auto* text = range_[i].getIf<String>();
        return text == nullptr ? StringView() : StringView(*text);
    }

    /// Sorts numbers of one type. If equal numbers are identical, their order does not matter and
    /// any algorithm will do; otherwise this does nothing and returns false.
    bool sortEqualsAlike() {
        std::vector<Double> numbers;
        numbers.reserve(range_.size());
        for (const Variant& value : range_) numbers.push_back(runtime::CDbl(value));
        if (std::ranges::any_of(numbers, [](Double number) {
                return std::isnan(number) || (number == 0 && std::signbit(number));
            }))
            return false;
        std::ranges::sort(numbers);
        if (!up_) std::ranges::reverse(numbers);
        const auto write = [&]<class T>(const T&) {
            for (std::size_t i = 0; i < numbers.size(); ++i)
                if constexpr (std::is_same_v<T, Date>)
                    range_[i].template get<T>() = {numbers[i]};
                else if constexpr (std::is_arithmetic_v<T>)
                    range_[i].template get<T>() = static_cast<T>(numbers[i]);
        };
        std::visit(write, static_cast<const VariantValue&>(range_[0]));
        return true;
    }

    void sortPlain(auto keyOf) {
        if (up_)
            sortBy(keyOf, Plain<std::less<>>());
        else
            sortBy(keyOf, Plain<std::greater<>>());
    }

    void sortMixed() {
        const auto keyOf = [this](std::size_t i) {
            return Both{&range_[i], caseSensitive_ ? StringView() : capitals_[i]};
        };
        sortBy(keyOf, Mixed{caseSensitive_, up_});
    }

    template <class KeyOf, class Order>
    void sortBy(KeyOf keyOf, Order order) {
        std::vector<Keyed<std::invoke_result_t<KeyOf, std::size_t>>> items;
        items.reserve(range_.size());
        for (std::size_t i = 0; i < range_.size(); ++i)
            items.push_back({keyOf(i), static_cast<std::uint32_t>(i)});
        const bool equalsAlike = texts_ && oneType_ && caseSensitive_;
        if (equalsAlike)
            std::ranges::sort(items,
                              [&](const auto& a, const auto& b) { return order.before(a, b); });
        else
            tools::quickSort(std::span(items), first_, order);
        place(items);
    }

    void place(const auto& items) {
        std::vector<Variant> sorted;
        sorted.reserve(items.size());
        for (const auto& item : items) sorted.push_back(std::move(range_[item.position]));
        std::ranges::move(sorted, range_.begin());
    }

    std::span<Variant> range_;
    Long first_;
    bool caseSensitive_;
    bool up_;
    bool texts_ = true;    ///< only texts and Empty
    bool numbers_ = true;  ///< only numbers and Empty
    bool oneType_ = true;
    std::vector<String> capitals_;
};

}  // namespace

void GQuorTools::QuickSortVariantArray(Array<Variant>& avarIn, Long iLowBound, Long iHighBound,
                                       Optional<Boolean, true> bCaseSensitive,
                                       Optional<Boolean, true> bSortUp) {
    if (iHighBound <= iLowBound) return;
    frame::retryUntilItSucceeds(
        [&] { Sort(avarIn, iLowBound, iHighBound, bCaseSensitive, bSortUp).run(); });
}

}  // namespace quorkit
