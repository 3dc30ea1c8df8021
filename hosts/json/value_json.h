// Values as JSON. Values that JSON knows are written directly, others as an object with one name:
//
//     "text"  true  5 (Long)  5.0 (Double)  null (Empty)   {"missing":true}  {"null":true}
//     {"integer":5}  {"date":"2024-01-31T13:45:00"}  {"error":2147614725}
//     {"array":[...],"lower":0}  {"bytes":"<base64>","lower":1}
//     {"table":[[key,value],...],"lower":[0,0]}  {"collection":[{"key":k,"item":v},{"item":v}]}
//     {"dictionary":[[k,v],...]}  {"picture":"<base64>"}  {"object":n}  {"nothing":true}
//
// An array without elements is {"array":[],"lower":0}, whether allocated or not, and is read as an
// unallocated one. Arrays and tables of texts only become String arrays, all others Variant arrays.
// Any array of two dimensions is a table; it has one row for each last index.
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

/// An object that is no collection, dictionary or picture gets a number in `objects`. A date
/// outside the calendar is written as its number; a number that is not finite becomes null.
Json toJson(const Variant& value, ObjectTable& objects);

/// Missing "lower" means 0, and a bare JSON array is an array counted from 0. An integer outside 32
/// bits is a Double. BadValue for anything else that is not this notation; error 424 for an object
/// that is not in the table, 457 for a collection or dictionary with a key twice, 481 for bytes
/// that are no picture.
Variant fromJson(const Json& json, const ObjectTable& objects);

/// {"result": value, "args": [value, ...]}, for a call that succeeded.
Json toJson(const CallResult& result, ObjectTable& objects);

}  // namespace quorkit::json
