// The automation runtime's collection object.
#pragma once

#include <quorkit/catalogue_object.h>
#include <quorkit/parameters.h>
#include <quorkit/variant.h>

#include <memory>

namespace quorkit {

class Collection;
using CollectionRef = std::shared_ptr<Collection>;

/// An ordered list of Variants counted from 1. Each may have a unique key, which is matched without
/// regard to case and keeps its spelling. Members accept the library's own collections, from
/// `make`, and objects of a client's, which `of` wraps.
class Collection : public CatalogueObject {
   public:
    struct Entry {
        String key;  ///< empty when the item has none, or the key is not known
        Variant item;
    };

    /// A new, empty collection.
    static CollectionRef make();
    /// The object as a collection. An object that is not the library's is wrapped: the result calls
    /// its members Count, Item, Add and Remove by name. Error 13 when it has no Count; Nothing
    /// stays Nothing.
    static CollectionRef of(const ObjectRef& object);

    const ClassInfo& info() const override;

    virtual Long count() const = 0;
    /// Error 9 when `position` is not in 1 ... count().
    virtual Entry entry(Long position) const = 0;
    /// Error 5 when there is no such key.
    virtual Entry entry(StringView key) const = 0;
    virtual bool contains(StringView key) const = 0;
    /// Inserts an entry at `position`, in front of the one that is there. Error 9 when `position`
    /// is not in 1 ... count() + 1, 457 when the key exists.
    virtual void insert(Long position, Entry entry) = 0;
    /// Error 9 when `position` is not in 1 ... count().
    virtual void remove(Long position) = 0;
    /// Error 5 when there is no such key.
    virtual void remove(StringView key) = 0;

    /// Appends an item; an empty key means no key. Error 457 when the key exists.
    void add(Variant item, String key = {}) {
        insert(count() + 1, {std::move(key), std::move(item)});
    }
    Variant item(Long position) const { return entry(position).item; }
    Variant item(StringView key) const { return entry(key).item; }

    // --- As a late-bound client calls it; an index is a position, or a key when it is a text ---

    /// Inserts in front of the item with the index `Before`, or behind that of `After`. Error 5 for
    /// both.
    void Add(const Variant& Item, const Optional<Variant>& Key = {},
             const Optional<Variant>& Before = {}, const Optional<Variant>& After = {});
    Variant Item(const Variant& Index) const;
    void Remove(const Variant& Index);
    /// The items in order.
    Variant elements() override;

   private:
    void* self() final { return this; }
    Long positionOf(const Variant& index) const;
};

}  // namespace quorkit
