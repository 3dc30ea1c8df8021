#include "json/plain_text.h"

#include <quorkit/utf8.h>

#include <charconv>

#include "json/iso_date.h"
#include "json/value_json.h"

namespace quorkit::json {
namespace {

std::string shortest(Double value) {
    char text[32];
    return {text, std::to_chars(text, std::end(text), value).ptr};
}

}  // namespace

std::string plainText(const Variant& value) {
    if (const auto* text = value.getIf<String>()) return toUtf8(*text);
    if (const auto* flag = value.getIf<Boolean>()) return *flag ? "True" : "False";
    if (const auto* number = value.getIf<Integer>()) return std::to_string(*number);
    if (const auto* number = value.getIf<Long>()) return std::to_string(*number);
    if (const auto* number = value.getIf<Double>()) return shortest(*number);
    if (const auto* date = value.getIf<Date>())
        return toIsoDate(*date).value_or(shortest(date->days));
    if (value.is<Empty>() || value.isMissing() || value == Variant(ObjectRef())) return {};
    ObjectTable objects;
    return writeJson(toJson(value, objects));
}

}  // namespace quorkit::json
