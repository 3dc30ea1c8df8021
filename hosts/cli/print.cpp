#include "cli/print.h"

#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>
#include <quorkit/utf8.h>

#include "json/plain_text.h"

namespace quorkit::cli {
namespace {

template <class T>
void printArray(std::ostream& out, const Array<T>& array) {
    const auto width =
        array.dimensions() == 2 ? static_cast<std::size_t>(array.bounds(1).count) : std::size_t{1};
    for (std::size_t i = 0; i < array.elements().size(); ++i) {
        if constexpr (std::is_same_v<T, Byte>)
            out << int{array.elements()[i]};
        else
            out << json::plainText(array.elements()[i]);
        out << ((i + 1) % width == 0 ? '\n' : '\t');
    }
}

/// False for an object of which only the class is known.
bool printContent(std::ostream& out, const ObjectRef& object) {
    if (const auto* collection = dynamic_cast<const Collection*>(object.get())) {
        for (Long i = 1; i <= collection->count(); ++i) {
            const Collection::Entry& entry = collection->entry(i);
            if (!entry.key.empty()) out << toUtf8(entry.key) << '\t';
            out << json::plainText(entry.item) << '\n';
        }
        return true;
    }
    if (const auto* dictionary = dynamic_cast<const Dictionary*>(object.get())) {
        for (const Dictionary::Entry& entry : dictionary->entries())
            out << json::plainText(entry.key) << '\t' << json::plainText(entry.item) << '\n';
        return true;
    }
    if (dynamic_cast<const Picture*>(object.get()) != nullptr) {
        out << json::plainText(object) << '\n';
        return true;
    }
    return false;
}

}  // namespace

void printLines(std::ostream& out, const Variant& value) {
    if (const auto* texts = value.getIf<Array<String>>()) return printArray(out, *texts);
    if (const auto* bytes = value.getIf<Array<Byte>>()) return printArray(out, *bytes);
    if (const auto* variants = value.getIf<Array<Variant>>()) return printArray(out, *variants);
    if (const auto* object = value.getIf<ObjectRef>(); object != nullptr && *object != nullptr) {
        if (!printContent(out, *object)) out << (*object)->className() << '\n';
        return;
    }
    if (!value.is<Empty>() && !value.is<ObjectRef>()) out << json::plainText(value) << '\n';
}

}  // namespace quorkit::cli
