// Dynamic arrays that carry their own bounds and may be unallocated.
#pragma once

#include <quorkit/errors.h>
#include <quorkit/values.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorkit {

/// One dimension: indexes lower ... lower + count - 1.
struct Bounds {
    Long lower = 0;
    Long count = 0;
    Long upper() const { return lower + count - 1; }
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// An array of one or two dimensions. The first index runs fastest, so a key/value table keeps the
/// two texts of an entry side by side and its last dimension grows without moving what it holds.
template <class T>
class Array {
   public:
    /// An unallocated array. It has no bounds.
    Array() = default;
    /// Error 9 for a negative count and for indexes beyond 32 bits.
    explicit Array(Bounds bounds) : Array(std::vector<Bounds>{bounds}) {}
    Array(Bounds first, Bounds second) : Array(std::vector<Bounds>{first, second}) {}
    /// A one-dimensional array of `elements`, counted from `lower`.
    explicit Array(std::vector<T> elements, Long lower = 0)
        : bounds_{{lower, static_cast<Long>(elements.size())}}, elements_(std::move(elements)) {}

    bool allocated() const { return !bounds_.empty(); }
    /// 0 when unallocated.
    int dimensions() const { return static_cast<int>(bounds_.size()); }

    /// Bounds of a dimension counted from 1. Error 9 when there is no such dimension.
    const Bounds& bounds(int dimension = 1) const {
        if (dimension < 1 || dimension > dimensions()) raise(ErrorNumber::SubscriptOutOfRange);
        return bounds_[static_cast<std::size_t>(dimension) - 1];
    }
    Long lower(int dimension = 1) const { return bounds(dimension).lower; }
    Long upper(int dimension = 1) const { return bounds(dimension).upper(); }

    /// The element at the given indexes. Error 9 when they are out of bounds or their number is
    /// wrong.
    T& at(Long index) { return elements_[offset(index)]; }
    const T& at(Long index) const { return elements_[offset(index)]; }
    T& at(Long first, Long second) { return elements_[offset(first, second)]; }
    const T& at(Long first, Long second) const { return elements_[offset(first, second)]; }

    /// All elements in storage order.
    std::vector<T>& elements() { return elements_; }
    const std::vector<T>& elements() const { return elements_; }

    friend bool operator==(const Array&, const Array&) = default;

   private:
    explicit Array(std::vector<Bounds> bounds) : bounds_(std::move(bounds)) {
        for (const Bounds& one : bounds_)
            if (one.count < 0 || std::int64_t{one.lower} + one.count > INT32_MAX)
                raise(ErrorNumber::SubscriptOutOfRange);
        elements_.resize(size());
    }
    /// More than any vector holds where the product does not fit.
    std::size_t size() const {
        std::uint64_t product = 1;
        for (const Bounds& one : bounds_) product *= static_cast<std::uint64_t>(one.count);
        return static_cast<std::size_t>(std::min<std::uint64_t>(product, SIZE_MAX));
    }
    static std::size_t position(const Bounds& bounds, Long index) {
        const auto distance = static_cast<std::int64_t>(index) - bounds.lower;
        if (distance < 0 || distance >= bounds.count) raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(distance);
    }
    std::size_t offset(Long index) const {
        if (dimensions() != 1) raise(ErrorNumber::SubscriptOutOfRange);
        return position(bounds_[0], index);
    }
    std::size_t offset(Long first, Long second) const {
        if (dimensions() != 2) raise(ErrorNumber::SubscriptOutOfRange);
        return position(bounds_[0], first) +
               position(bounds_[1], second) * static_cast<std::size_t>(bounds_[0].count);
    }

    std::vector<Bounds> bounds_;
    std::vector<T> elements_;
};

}  // namespace quorkit
