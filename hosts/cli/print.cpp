#include "cli/print.h"

#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>

#include <charconv>

#include "cli/iso_date.h"
#include "cli/utf8.h"
#include "cli/value_json.h"

namespace quorkit::cli {
namespace {

std::string shortest(Double value) {
    char text[32];
    return {text, std::to_chars(text, std::end(text), value).ptr};
}

template <class T>
void printArray(std::ostream& out, const Array<T>& array) {
    const auto width =
        array.dimensions() == 2 ? static_cast<std::size_t>(array.bounds(1).count) : std::size_t{1};
    for (std::size_t i = 0; i < array.elements().size(); ++i) {
        if constexpr (std::is_same_v<T, Byte>)
            out << int{array.elements()[i]};
        else
            out << plainText(array.elements()[i]);
        out << ((i + 1) % width == 0 ? '\n' : '\t');
    }
}

/// False when it is an object of which nothing but its class can be told.
bool printContent(std::ostream& out, const ObjectRef& object) {
    if (const auto* collection = dynamic_cast<const Collection*>(object.get())) {
        for (Long i = 1; i <= collection->count(); ++i) {
            const Collection::Entry& entry = collection->entry(i);
            if (!entry.key.empty()) out << toUtf8(entry.key) << '\t';
            out << plainText(entry.item) << '\n';
        }
        return true;
    }
    if (const auto* dictionary = dynamic_cast<const Dictionary*>(object.get())) {
        for (const Dictionary::Entry& entry : dictionary->entries())
            out << plainText(entry.key) << '\t' << plainText(entry.item) << '\n';
        return true;
    }
    if (dynamic_cast<const Picture*>(object.get()) != nullptr) {
        out << plainText(object) << '\n';
        return true;
    }
    return false;
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

void printLines(std::ostream& out, const Variant& value) {
    if (const auto* texts = value.getIf<Array<String>>()) return printArray(out, *texts);
    if (const auto* bytes = value.getIf<Array<Byte>>()) return printArray(out, *bytes);
    if (const auto* variants = value.getIf<Array<Variant>>()) return printArray(out, *variants);
    if (const auto* object = value.getIf<ObjectRef>(); object != nullptr && *object != nullptr) {
        if (!printContent(out, *object)) out << (*object)->className() << '\n';
        return;
    }
    if (!value.is<Empty>() && !value.is<ObjectRef>()) out << plainText(value) << '\n';
}

}  // namespace quorkit::cli
