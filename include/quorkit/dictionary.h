// The scripting runtime's dictionary object.
#pragma once

#include <quorkit/variant.h>

#include <memory>
#include <unordered_map>
#include <vector>

namespace quorkit {

/// Key/value pairs with unique keys, listed in the order in which they were added. A key is any
/// value but an array, which is error 5 in every member. Texts are told apart by code unit, numbers
/// of different types by value, objects by identity; a Boolean or a Date is no number.
class Dictionary final : public Object {
   public:
    struct Entry {
        Variant key;
        Variant item;
    };

    const char* className() const override { return "Dictionary"; }
    void letGo() override;

    /// Error 457 when the key is present.
    void add(Variant key, Variant item);
    /// Replaces the item under the key, or adds it.
    void set(Variant key, Variant item);
    /// The item under the key, or null.
    const Variant* find(const Variant& key) const;
    Long count() const { return static_cast<Long>(entries_.size()); }
    const std::vector<Entry>& entries() const { return entries_; }

   private:
    std::vector<Entry> entries_;
    std::unordered_map<String, std::size_t> positions_;  // by a text that is unique per key
};

using DictionaryRef = std::shared_ptr<Dictionary>;

}  // namespace quorkit
