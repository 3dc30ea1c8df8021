// JSON as text, and texts in JSON. A surrogate without its partner is written as an escape such as
// uD800 and read back from it, so that every text survives a round trip.
#pragma once

#include <quorkit/values.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorkit::json {

using Json = nlohmann::json;

struct JsonError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// The single JSON value in the text. JsonError when the text is not one JSON value, or is nested
/// deeper than 200 levels.
Json readJson(std::string_view text);
/// The value as one line.
std::string writeJson(const Json& value);

/// A text as a JSON string, and the text of a string that `readJson` or `jsonString` has made.
Json jsonString(StringView text);
String textOf(const Json& string);

}  // namespace quorkit::json
