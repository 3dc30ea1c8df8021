// The scripting runtime's dictionary object.
#pragma once

#include <quorkit/catalogue_object.h>
#include <quorkit/variant.h>

#include <memory>
#include <optional>
#include <vector>

namespace quorkit {

class Dictionary;
using DictionaryRef = std::shared_ptr<Dictionary>;

/// Key/value pairs with unique keys, listed in the order in which they were added. A key is any
/// value but an array, which is error 5 in every member. Texts are told apart by code unit, numbers
/// of different types by value, objects by identity; a Boolean or a Date is no number. Members take
/// any object that is one: `make` gives the library's own, `of` makes one of a client's.
class Dictionary : public CatalogueObject {
   public:
    struct Entry {
        Variant key;
        Variant item;
    };

    /// A new one, without pairs.
    static DictionaryRef make();
    /// The object as a dictionary: itself, or for one that is not the library's one that calls the
    /// members Count, Keys, Item, Add, Exists and Remove of it by name. Error 13 when it has no
    /// Keys; Nothing stays Nothing.
    static DictionaryRef of(const ObjectRef& object);

    const ClassInfo& info() const override;

    virtual Long count() const = 0;
    virtual std::vector<Entry> entries() const = 0;
    /// The item under the key.
    virtual std::optional<Variant> find(const Variant& key) const = 0;
    /// Error 457 when the key is present.
    virtual void add(Variant key, Variant item) = 0;
    /// Replaces the item under the key, or adds it.
    virtual void set(Variant key, Variant item) = 0;
    /// False when there is no such key.
    virtual bool remove(const Variant& key) = 0;

    // --- As a late-bound client calls it ---

    void Add(const Variant& Key, const Variant& Item) { add(Key, Item); }
    Boolean Exists(const Variant& Key) const { return find(Key).has_value(); }
    /// A key that is not there is added, without a value: Empty.
    Variant Item(const Variant& Key);
    void setItem(const Variant& Key, const Variant& newValue) { set(Key, newValue); }
    /// Arrays counted from 0.
    Variant Items() const;
    Variant Keys() const;
    /// Error 5 when there is no such key (32811 in the scripting runtime).
    void Remove(const Variant& Key);
    void RemoveAll();
    /// The keys in order.
    Variant elements() override { return Keys(); }

   private:
    void* self() final { return this; }
};

}  // namespace quorkit
