// Tools that fit nowhere else: searching, sorting, hexadecimal texts. No state.
#pragma once

#include <quorkit/array.h>
#include <quorkit/collection.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorTools {
   public:
    explicit GQuorTools(Ports& = ports::native()) {}

    /// The position, counted from 1, of the first item of `c` that equals `vElement`: numbers by
    /// value, texts with their letter case, Null nothing. -1 when there is none, and for Nothing.
    /// Error 13, 438 or 91 when it meets what cannot be compared: arrays, error values, objects.
    Long IndexOfElementInCollection(Unchanged<Variant> vElement, Unchanged<CollectionRef> c);

    /// Whether `sHex` holds nothing but hexadecimal digits, in any case; so does the empty text.
    Boolean isHex(Unchanged<String> sHex);

    /// Sorts the elements `iLowBound` ... `iHighBound` of a one-dimensional array in place: numbers
    /// by value and before texts, texts by character. Without `bCaseSensitive` all are compared as
    /// texts in capitals; it is forced in a range that starts with neither Empty nor a text. Not
    /// stable: equal elements go where this quick sort, with its pivot in the middle, puts them.
    /// Fast for texts with case and for numbers of one type in any sequence; others may take time
    /// in the square of their count, as when they rise and fall again.
    ///
    /// Never returns when an element cannot be compared (Null, arrays, error values, objects) or a
    /// bound is outside the array: a failing step is retried until it succeeds.
    void QuickSortVariantArray(Array<Variant>& avarIn, Long iLowBound, Long iHighBound,
                               Optional<Boolean, true> bCaseSensitive = {},
                               Optional<Boolean, true> bSortUp = {});
};

}  // namespace quorkit
