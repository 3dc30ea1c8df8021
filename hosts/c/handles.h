// Handles: numbers that stand for things, and are known when they stand for nothing any more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <new>
#include <optional>
#include <utility>

namespace quorkit::c {

/// A thing's place among others and how often the place was used before. The low bits hold the
/// place, counted from 1, so that no handle is 0.
struct Handle {
    static constexpr unsigned kPlaceBits = sizeof(std::uintptr_t) == 8 ? 32 : 20;
    static constexpr std::uintptr_t kPlaces = (std::uintptr_t{1} << kPlaceBits) - 1;

    static std::uintptr_t of(std::size_t place, std::uintptr_t used) {
        return used << kPlaceBits | (place + 1);
    }
    static std::size_t placeOf(std::uintptr_t handle) {
        return static_cast<std::size_t>((handle & kPlaces) - 1);
    }
    static bool isOf(std::uintptr_t handle, std::uintptr_t used) {
        return handle >> kPlaceBits == ((used << kPlaceBits) >> kPlaceBits);
    }
};

/// The things that a client holds. They stay where they are in memory, and when one is given back,
/// its memory waits for the next.
template <class Thing>
class Handles {
   public:
    /// std::bad_alloc also when there are more things than handles.
    std::uintptr_t add(Thing thing) {
        if (free_.empty()) {
            if (places_.size() >= Handle::kPlaces) throw std::bad_alloc();
            places_.emplace_back();
            free_.push_back(places_.size() - 1);
        }
        const std::size_t place = free_.front();
        places_[place].thing = std::move(thing);
        free_.pop_front();
        return Handle::of(place, places_[place].used);
    }
    /// Null when the handle is none, or its thing was given back.
    Thing* find(std::uintptr_t handle) {
        const std::size_t place = Handle::placeOf(handle);
        if (place >= places_.size()) return nullptr;
        Place& found = places_[place];
        return found.thing && Handle::isOf(handle, found.used) ? &*found.thing : nullptr;
    }
    /// The thing, which the caller lets go of when all else is in order.
    std::optional<Thing> take(std::uintptr_t handle) {
        if (find(handle) == nullptr) return {};
        const std::size_t place = Handle::placeOf(handle);
        free_.push_back(place);  // the one that was given back first is used again first
        ++places_[place].used;
        return std::exchange(places_[place].thing, std::nullopt);
    }

   private:
    struct Place {
        std::optional<Thing> thing;
        std::uintptr_t used = 0;
    };
    std::deque<Place> places_;
    std::deque<std::size_t> free_;
};

}  // namespace quorkit::c
