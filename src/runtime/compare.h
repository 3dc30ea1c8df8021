// The runtime's comparison of two Variants, on which every search and sort of values rests.
#pragma once

#include <quorkit/variant.h>

#include <compare>

namespace quorkit::runtime {

/// How `a` stands to `b`. Numbers, Booleans (-1 and 0) and dates compare by value, texts by code
/// unit; any number is less than any text, also than one that spells a number. Empty is 0 beside a
/// number and "" beside a text. A NaN equals every number, so that no algorithm loops over one.
/// Unordered, which makes every comparison untrue, when either is Null.
/// Error 13 for arrays, error values and missing arguments, 438 for objects, 91 for Nothing, also
/// beside Null.
std::partial_ordering compare(const Variant& a, const Variant& b);

/// Whether `a` equals `b`: as `compare` has it, but two error values may stand beside each other
/// and are equal when their codes are.
bool equal(const Variant& a, const Variant& b);

}  // namespace quorkit::runtime
