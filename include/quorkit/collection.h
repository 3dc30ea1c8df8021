// The automation runtime's collection object.
#pragma once

#include <quorkit/variant.h>

#include <memory>
#include <unordered_map>
#include <vector>

namespace quorkit {

/// An ordered list of Variants counted from 1, each optionally under a unique key that is matched
/// without regard to case and kept as spelled.
class Collection final : public Object {
   public:
    struct Entry {
        String key;  ///< empty when the item has none
        Variant item;
    };

    const char* className() const override { return "Collection"; }
    void letGo() override;

    /// Appends an item; an empty key is no key. Error 457 when the key is present.
    void add(Variant item, String key = {});
    /// Puts an item without a key in front of the one at `position`. Error 9 out of 1 ... count().
    void insertBefore(Long position, Variant item);

    Long count() const { return static_cast<Long>(entries_.size()); }
    /// Error 9 when `position` is not in 1 ... count().
    const Variant& item(Long position) const { return entry(position).item; }
    const Entry& entry(Long position) const;
    /// Error 5 when there is no such key.
    const Variant& item(StringView key) const { return entry(key).item; }
    const Entry& entry(StringView key) const;
    bool contains(StringView key) const;

    /// Error 9 when `position` is not in 1 ... count().
    void remove(Long position);
    /// Error 5 when there is no such key.
    void remove(StringView key);

   private:
    std::size_t index(Long position) const;

    std::vector<std::unique_ptr<Entry>> entries_;
    std::unordered_map<String, const Entry*> byKey_;  // folded key; entries keep their address
};

using CollectionRef = std::shared_ptr<Collection>;

}  // namespace quorkit
