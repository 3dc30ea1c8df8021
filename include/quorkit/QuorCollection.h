// An ordered list of values, each under a key, reached by position or by key.
//
// Positions count from 1. Keys match without regard to letter case and are kept in the spelling in
// which they came first; any text is a key, the empty one too. Values are anything a Variant holds;
// an object is kept and given back as a reference to itself. Positions and keys that are not there
// are no errors: they give -1, False, "" or the default.
//
// Setting, and finding by key or position, take the same time however many elements there are; a
// position sought by key behind n elements that went from the middle takes log n steps. Removing
// moves eight bytes for every element on the shorter side. A value that is replaced or removed is
// released when the collection is whole again, so what its release calls may use the collection.
#pragma once

#include <quorkit/array.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <memory>

namespace quorkit {

namespace collection {
class KeyedList;
}

class QuorCollection {
   public:
    explicit QuorCollection(Ports& ports = ports::native());
    /// The collection that was moved from may only be destroyed or assigned to.
    QuorCollection(QuorCollection&&) noexcept;
    QuorCollection& operator=(QuorCollection&&) noexcept;
    ~QuorCollection();

    /// Sets the value of a key where it stands, its spelling kept; a new key is appended. The
    /// position of the value.
    Long setValueByKey(Variant vValue, const String& sKey);
    /// Replaces the value at a position, the key stays. `index`, or -1 out of range; nothing is
    /// ever appended.
    Long setValueByIndex(Variant vValue, Long index);

    /// The position of a key, -1 when it is absent.
    Long GetIndex(const String& sKey) const;
    /// The key at a position as it was first spelled; "" out of range. Never an error.
    String getKey(Long index) const;

    /// The value of a key, the default when the key is absent.
    Variant getValueByKey(const String& sKey,
                          const Optional<Variant, Text(u"")>& vDefaultValue = {}) const;
    /// The value at a position, an empty text out of range.
    Variant getValueByIndex(Long index) const;

    /// Removes an element; those behind it move up. False when it is not there.
    Boolean removeByIndex(Long index);
    Boolean removeByKey(const String& sKey);

    /// The number of elements.
    Long count() const;

    /// Fills `saKeyNames` with all keys in order, counted from 1, and returns their number. An
    /// empty collection gives one empty text, and 0.
    Long getAllKeyNames(Out<Array<String>> saKeyNames) const;

    /// A new collection with the same keys and values; objects are shared with this one.
    QuorCollection clone() const;

    /// Removes all elements.
    void letGo();

   private:
    Ports* ports_;
    std::unique_ptr<collection::KeyedList> list_;
};

}  // namespace quorkit
