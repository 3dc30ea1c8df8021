// Values as JSON. What JSON has is itself; the rest is an object with one telling name:
//
//     "text"  true  5 (Long)  5.0 (Double)  null (Empty)   {"missing":true}  {"null":true}
//     {"integer":5}  {"date":"2024-01-31T13:45:00"}  {"error":2147614725}
//     {"array":[...],"lower":0}  {"bytes":"<base64>","lower":1}
//     {"table":[[key,value],...],"lower":[0,0]}  {"collection":[{"key":k,"item":v},{"item":v}]}
//     {"dictionary":[[k,v],...]}  {"picture":"<base64>"}  {"object":n}  {"nothing":true}
//
// An array without elements is {"array":[],"lower":0}, allocated or not, and is read as an
// unallocated one. Arrays and tables of texts alone become String arrays, all others Variant
// arrays. A table is any array of two dimensions, one row for each last index.
#pragma once

#include <quorkit/dispatch.h>
#include <quorkit/variant.h>

#include <stdexcept>

#include "json/json_text.h"
#include "json/object_table.h"

namespace quorkit::json {

struct BadValue : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Objects other than collections, dictionaries and pictures get a number in `objects`. A date that
/// is no date of the calendar is written as its number; numbers that are not finite become null.
Json toJson(const Variant& value, ObjectTable& objects);

/// Also reads "lower" left out as 0, and a bare JSON array as an array counted from 0. An integer
/// outside 32 bits is a Double. BadValue when it is no such notation; error 424 for an object that
/// is not in the table, 457 for a collection or dictionary with a key twice, 481 for bytes that are
/// no picture.
Variant fromJson(const Json& json, const ObjectTable& objects);

/// {"result": value, "args": [value, ...]}, for a call that succeeded.
Json toJson(const CallResult& result, ObjectTable& objects);

}  // namespace quorkit::json
