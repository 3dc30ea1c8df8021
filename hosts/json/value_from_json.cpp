#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>

#include <algorithm>
#include <limits>

#include "json/base64.h"
#include "json/iso_date.h"
#include "json/value_json.h"

namespace quorkit::json {
namespace {

template <class T>
T integer(const Json& json) {
    const bool fits =
        json.is_number_unsigned()
            ? json.get<std::uint64_t>() <= static_cast<std::uint64_t>(std::numeric_limits<T>::max())
            : json.is_number_integer() && json.get<std::int64_t>() >= std::numeric_limits<T>::min();
    if (!fits) throw BadValue("not an integer of the wanted size");
    return json.get<T>();
}

const std::string& string(const Json& json) {
    if (!json.is_string()) throw BadValue("not a string");
    return json.get_ref<const std::string&>();
}

const Json& array(const Json& json, std::size_t size) {
    if (!json.is_array() || json.size() != size) throw BadValue("not an array of the wanted size");
    return json;
}

const Json::array_t& array(const Json& json) {
    if (!json.is_array()) throw BadValue("not an array");
    return json.get_ref<const Json::array_t&>();
}

Variant flag(const Json& content, Variant value) {
    if (content != true) throw BadValue("only true can stand here");
    return value;
}

Bounds bounds(const Json& lower, std::size_t count) {
    const Long first = integer<Long>(lower);
    if (count > static_cast<std::size_t>(std::numeric_limits<Long>::max()) ||
        first + static_cast<std::int64_t>(count) - 1 > std::numeric_limits<Long>::max())
        throw BadValue("bounds out of range");
    return {first, static_cast<Long>(count)};
}

/// `make` gets texts when all elements are texts; otherwise it gets the elements as they are.
template <class Make>
Variant ofElements(std::vector<Variant> elements, Make make) {
    if (!std::ranges::all_of(elements, [](const Variant& one) { return one.is<String>(); }))
        return make(std::move(elements));
    std::vector<String> texts;
    texts.reserve(elements.size());
    for (Variant& element : elements) texts.push_back(std::move(element.get<String>()));
    return make(std::move(texts));
}

Variant readArray(const Json& content, const Json& lower, const ObjectTable& objects) {
    std::vector<Variant> elements;
    for (const Json& item : array(content)) elements.push_back(fromJson(item, objects));
    const Long first = bounds(lower, elements.size()).lower;
    // Only an unallocated array of Variants converts to every other type of array.
    if (elements.empty()) return Array<Variant>();
    return ofElements(std::move(elements), [&]<class T>(std::vector<T> all) -> Variant {
        return Array<T>(std::move(all), first);
    });
}

Variant readTable(const Json& content, const Json& lower, const ObjectTable& objects) {
    const Json::array_t& rows = array(content);
    if (rows.empty()) return Array<Variant>();
    const std::size_t width = array(rows.front()).size();
    std::vector<Variant> elements;
    for (const Json& row : rows)
        for (const Json& item : array(row, width)) elements.push_back(fromJson(item, objects));
    const Json origin = lower == 0 ? Json{0, 0} : lower;
    if (elements.empty()) return Array<Variant>();
    const Bounds columns = bounds(array(origin, 2)[0], width);
    const Bounds lines = bounds(origin[1], rows.size());
    return ofElements(std::move(elements), [&]<class T>(std::vector<T> all) -> Variant {
        Array<T> table(columns, lines);
        table.elements() = std::move(all);
        return table;
    });
}

std::vector<Byte> bytesIn(const Json& content) {
    auto bytes = fromBase64(string(content));
    if (!bytes) throw BadValue("not base 64");
    return *std::move(bytes);
}

Variant readBytes(const Json& content, const Json& lower) {
    std::vector<Byte> bytes = bytesIn(content);
    const Long first = bounds(lower, bytes.size()).lower;
    return bytes.empty() ? Array<Byte>() : Array<Byte>(std::move(bytes), first);
}

Variant readPicture(const Json& content) {
    const std::vector<Byte> bytes = bytesIn(content);
    return std::make_shared<Picture>(std::string(bytes.begin(), bytes.end()));
}

Variant readCollection(const Json& content, const ObjectTable& objects) {
    const auto collection = Collection::make();
    for (const Json& entry : array(content)) {
        const bool keyed = entry.is_object() && entry.contains("key");
        if (!entry.is_object() || !entry.contains("item") || entry.size() != (keyed ? 2u : 1u))
            throw BadValue(R"(an item of a collection is {"key":k,"item":v} or {"item":v})");
        if (keyed) string(entry["key"]);
        collection->add(fromJson(entry["item"], objects), keyed ? textOf(entry["key"]) : String());
    }
    return collection;
}

Variant readDictionary(const Json& content, const ObjectTable& objects) {
    const auto dictionary = Dictionary::make();
    for (const Json& pair : array(content)) {
        array(pair, 2);
        dictionary->add(fromJson(pair[0], objects), fromJson(pair[1], objects));
    }
    return dictionary;
}

Variant readDate(const Json& content) {
    if (content.is_number()) return Date{content.get<Double>()};
    const auto date = fromIsoDate(string(content));
    if (!date) throw BadValue("not a date");
    return *date;
}

Variant readTagged(const Json& json, const ObjectTable& objects) {
    const bool bounded = json.contains("lower");
    if (json.size() != (bounded ? 2u : 1u)) throw BadValue("not a value");
    const auto& [tag, content] =
        *std::ranges::find_if(json.get_ref<const Json::object_t&>(),
                              [](const auto& member) { return member.first != "lower"; });
    const Json lower = bounded ? json["lower"] : Json(0);
    if (tag == "array") return readArray(content, lower, objects);
    if (tag == "table") return readTable(content, lower, objects);
    if (tag == "bytes") return readBytes(content, lower);
    if (bounded) throw BadValue("only arrays have a lower bound");
    if (tag == "collection") return readCollection(content, objects);
    if (tag == "dictionary") return readDictionary(content, objects);
    if (tag == "picture") return readPicture(content);
    if (tag == "date") return readDate(content);
    if (tag == "integer") return integer<Integer>(content);
    if (tag == "error") return ErrorValue{integer<std::uint32_t>(content)};
    if (tag == "object") return objects.at(integer<std::int64_t>(content));
    if (tag == "missing") return flag(content, Variant::missing());
    if (tag == "null") return flag(content, Null());
    if (tag == "nothing") return flag(content, ObjectRef());
    throw BadValue("not a value");
}

}  // namespace

Variant fromJson(const Json& json, const ObjectTable& objects) {
    switch (json.type()) {
        case Json::value_t::null:
            return {};
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::string:
            return textOf(json);
        case Json::value_t::array:
            return readArray(json, 0, objects);
        case Json::value_t::object:
            return readTagged(json, objects);
        default: {
            const Double number = json.get<Double>();
            if (json.is_number_float() || number < std::numeric_limits<Long>::min() ||
                number > std::numeric_limits<Long>::max())
                return number;
            return json.get<Long>();
        }
    }
}

}  // namespace quorkit::json
