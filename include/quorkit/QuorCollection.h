// An ordered list of values, each under a key, reached by position or by key.
//
// Positions count from 1. Keys match without regard to letter case and keep the spelling in which
// they were first set; any text is a key, the empty one too. A value is anything that a Variant
// holds; an object is kept as a reference. A missing position or key is no error: the member gives
// -1, False, "" or the default.
//
// Setting a value, and finding one by key or position, takes the same time for any number of
// elements. One case is slower: finding the position of a key takes log n steps when n elements in
// front of it were removed from the middle. Removing an element moves eight bytes for every element
// on its shorter side. A replaced or removed value is released only when the collection is
// consistent again, so code that the release runs may use the collection.
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
    /// A collection that was moved from may only be destroyed or assigned to.
    QuorCollection(QuorCollection&&) noexcept;
    QuorCollection& operator=(QuorCollection&&) noexcept;
    ~QuorCollection();

    /// Sets the value of a key. An existing key keeps its position and spelling; a new key is
    /// appended. Returns the position of the value.
    Long setValueByKey(Variant vValue, const String& sKey);
    /// Replaces the value at a position; the key stays. Returns `index`, or -1 when it is out of
    /// range; nothing is ever appended.
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
    /// empty collection returns 0 and fills in a single empty text.
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
