// A client's arrays and the library's.
#pragma once

#include <oaidl.h>
#include <quorkit/variant.h>

namespace quorkit::automation {

class Apartment;

/// Error 13 when the structure says of the array, or of the type of its elements, something else
/// than `type`, and when it has no room for its elements. A null pointer is an unallocated array.
void checkArray(SAFEARRAY* array, VARTYPE type);

/// An array of texts, bytes or Variants as what it is, an array of another type as one of Variants.
/// A null pointer is an unallocated array. Error 13 for more than two dimensions, and for elements
/// that the library has no values for; `type` is that of the elements, as checkArray wants it.
/// `depth`: as for fromVariant.
Variant fromArray(SAFEARRAY* array, VARTYPE type, Apartment& apartment, int depth);

/// A new array with elements of `type`; null for an unallocated one. The value is an array. Error
/// 13 or 6 when an element does not convert.
SAFEARRAY* toArray(const Variant& value, VARTYPE type, Apartment& apartment);

/// The type of the elements that an array of the library has: text, byte or VARIANT; VT_EMPTY when
/// the value is no array.
VARTYPE elementTypeOf(const Variant& value);

/// Error 10 for an array that is locked, which may not be replaced.
void checkUnlocked(const SAFEARRAY* array);

/// Puts an array in the place of a client's. Error 10 when that one is locked, or of a fixed size
/// and of other bounds; then it is as it was.
void storeArray(const Variant& value, VARTYPE type, Apartment& apartment, SAFEARRAY** variable);

}  // namespace quorkit::automation
