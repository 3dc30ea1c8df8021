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

/// Pairs of unique keys and values, listed in the order in which they were added. Any value but an
/// array can be a key; an array is error 5 in every member. Text keys are compared by code unit,
/// numbers of any type by value, objects by identity; a Boolean or a Date never equals a number.
/// Members accept the library's own dictionaries, from `make`, and objects of a client's, which
/// `of` wraps.
class Dictionary : public CatalogueObject {
   public:
    struct Entry {
        Variant key;
        Variant item;
    };

    /// A new, empty dictionary.
    static DictionaryRef make();
    /// The object as a dictionary. An object that is not the library's is wrapped: the result calls
    /// its members Count, Keys, Item, Add, Exists and Remove by name. Error 13 when it has no Keys;
    /// Nothing stays Nothing.
    static DictionaryRef of(const ObjectRef& object);

    const ClassInfo& info() const override;

    virtual Long count() const = 0;
    virtual std::vector<Entry> entries() const = 0;
    /// The item under the key.
    virtual std::optional<Variant> find(const Variant& key) const = 0;
    /// Error 457 when the key exists.
    virtual void add(Variant key, Variant item) = 0;
    /// Replaces the item under the key, or adds it.
    virtual void set(Variant key, Variant item) = 0;
    /// False when there is no such key.
    virtual bool remove(const Variant& key) = 0;

    // --- As a late-bound client calls it ---

    void Add(const Variant& Key, const Variant& Item) { add(Key, Item); }
    Boolean Exists(const Variant& Key) const { return find(Key).has_value(); }
    /// Adds a missing key with the value Empty.
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
