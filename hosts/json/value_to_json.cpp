#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>

#include "json/base64.h"
#include "json/iso_date.h"
#include "json/value_json.h"

namespace quorkit::json {
namespace {

Json tagged(const char* tag, Json content) {
    Json json = Json::object();
    json[tag] = std::move(content);
    return json;
}

/// Writes a value; one overload for each type.
struct Writer {
    ObjectTable& objects;

    Json operator()(Empty) const { return nullptr; }
    Json operator()(Null) const { return tagged("null", true); }
    Json operator()(ErrorValue value) const {
        return Variant(value).isMissing() ? tagged("missing", true) : tagged("error", value.code);
    }
    Json operator()(Boolean value) const { return value; }
    Json operator()(Integer value) const { return tagged("integer", value); }
    Json operator()(Long value) const { return value; }
    Json operator()(Double value) const { return value; }
    Json operator()(Byte value) const { return value; }
    Json operator()(Date value) const {
        const auto text = toIsoDate(value);
        return tagged("date", text ? Json(*text) : Json(value.days));
    }
    Json operator()(const String& value) const { return jsonString(value); }
    Json operator()(const Variant& value) const { return toJson(value, objects); }

    template <class T>
    Json operator()(const Array<T>& array) const {
        const auto& elements = array.elements();
        if (elements.empty()) return {{"array", Json::array()}, {"lower", 0}};
        if (array.dimensions() == 2) {
            Json rows = Json::array();
            const auto width = static_cast<std::size_t>(array.bounds(1).count);
            for (std::size_t start = 0; start < elements.size(); start += width) {
                Json row = Json::array();
                for (std::size_t i = start; i < start + width; ++i)
                    row.push_back((*this)(elements[i]));
                rows.push_back(std::move(row));
            }
            return {{"table", std::move(rows)}, {"lower", {array.lower(1), array.lower(2)}}};
        }
        if constexpr (std::is_same_v<T, Byte>) {
            return {{"bytes", toBase64(elements)}, {"lower", array.lower()}};
        } else {
            Json items = Json::array();
            for (const T& element : elements) items.push_back((*this)(element));
            return {{"array", std::move(items)}, {"lower", array.lower()}};
        }
    }

    Json operator()(const ObjectRef& object) const {
        if (object == nullptr) return tagged("nothing", true);
        Json items = Json::array();
        if (const auto* collection = dynamic_cast<const Collection*>(object.get())) {
            for (Long i = 1; i <= collection->count(); ++i) {
                const Collection::Entry& entry = collection->entry(i);
                Json item = tagged("item", (*this)(entry.item));
                if (!entry.key.empty()) item["key"] = jsonString(entry.key);
                items.push_back(std::move(item));
            }
            return tagged("collection", std::move(items));
        }
        if (const auto* dictionary = dynamic_cast<const Dictionary*>(object.get())) {
            for (const Dictionary::Entry& entry : dictionary->entries())
                items.push_back(Json::array({(*this)(entry.key), (*this)(entry.item)}));
            return tagged("dictionary", std::move(items));
        }
        if (const auto* picture = dynamic_cast<const Picture*>(object.get())) {
            const std::string& file = picture->file();
            return tagged("picture",
                          toBase64({reinterpret_cast<const Byte*>(file.data()), file.size()}));
        }
        return tagged("object", objects.numberOf(object));
    }
};

}  // namespace

Json toJson(const Variant& value, ObjectTable& objects) {
    return std::visit(Writer{objects}, static_cast<const VariantValue&>(value));
}

Json toJson(const CallResult& result, ObjectTable& objects) {
    Json arguments = Json::array();
    for (const Variant& one : result.arguments) arguments.push_back(toJson(one, objects));
    return {{"result", toJson(result.result, objects)}, {"args", std::move(arguments)}};
}

}  // namespace quorkit::json
