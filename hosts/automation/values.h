// A client's values and the library's.
#pragma once

#include <oaidl.h>
#include <quorkit/variant.h>

namespace quorkit::automation {

class Apartment;

/// Error 13 for a VARIANT that automation does not allow: by reference of a type that no variable
/// has, by a null pointer, or to a reference to a VARIANT; a VARIANT by value; an array that
/// checkArray refuses. Reads what the VARIANT refers to, but no elements.
void checkForm(const VARIANT& value);

/// The bytes that a value takes in a client's variable or array. Error 13 for a type that no
/// variable has.
UINT sizeOf(VARTYPE type);

/// The client's value; a value by reference is read. Its objects become objects of the library, the
/// library's own come back as what they are. Error 13 for what the library has no value for and for
/// what checkForm refuses, 28 for arrays within arrays beyond 200. `depth`: of how many arrays the
/// value is an element.
Variant fromVariant(const VARIANT& value, Apartment& apartment, int depth = 0);

/// Makes a VARIANT of the type that the value has; `made` is overwritten, not cleared.
void toVariant(const Variant& value, Apartment& apartment, VARIANT& made);

/// Puts a value where a client's variable is, which keeps its type: `variable` is by reference, of
/// any type that a client can have. Error 13 or 6 when the type cannot hold it, 13 for what
/// checkForm refuses, 10 for an array that is fixed or locked; then the variable is as it was. Does
/// nothing when it is not by reference.
void store(const Variant& value, Apartment& apartment, const VARIANT& variable);

}  // namespace quorkit::automation
