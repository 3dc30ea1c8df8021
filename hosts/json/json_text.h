// JSON as text, and texts in JSON. UTF-16 text can hold surrogates without a partner; they are
// written as \uD800 escapes and read back from them, so that every text survives the way.
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

/// The one JSON value that the text is. JsonError when it is none, or is nested deeper than 200
/// levels.
Json readJson(std::string_view text);
/// The value as one line.
std::string writeJson(const Json& value);

/// A text as a JSON string, and the text of one that `readJson` or `jsonString` has made.
Json jsonString(StringView text);
String textOf(const Json& string);

}  // namespace quorkit::json
