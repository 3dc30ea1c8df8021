// Arrays in and out.
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "c/open_library.h"
#include "c/text.h"

namespace quorkit::c {
namespace {

/// An array of these bounds with the elements that `make` makes.
template <class T>
Array<T> arrayOf(std::vector<T> elements, int dimensions, const quorkit_bounds* bounds) {
    if (dimensions < 0 || dimensions > 2) throw Misuse{QUORKIT_TOO_LONG};
    std::size_t count = dimensions == 0 ? 0 : 1;
    for (int i = 0; i < dimensions; ++i) {
        need(bounds);
        // An array of no elements is as long as its other dimension says.
        if (bounds[i].count < 0 ||
            (count != 0 && static_cast<std::size_t>(bounds[i].count) > elements.size() / count))
            throw Misuse{QUORKIT_TOO_LONG};
        count *= static_cast<std::size_t>(bounds[i].count);
    }
    if (count != elements.size()) throw Misuse{QUORKIT_TOO_LONG};
    const auto boundsAt = [&](int i) { return Bounds{bounds[i].lower, bounds[i].count}; };
    Array<T> made = dimensions == 0   ? Array<T>()
                    : dimensions == 1 ? Array<T>(boundsAt(0))
                                      : Array<T>(boundsAt(0), boundsAt(1));
    made.elements() = std::move(elements);
    return made;
}

std::vector<String> textsOf(const std::vector<Variant>& items) {
    std::vector<String> texts;
    texts.reserve(items.size());
    for (const Variant& item : items) {
        const auto* text = item.getIf<String>();
        if (text == nullptr) throw Misuse{QUORKIT_WRONG_KIND};
        texts.push_back(*text);
    }
    return texts;
}

/// Calls `use` with the array of any kind that the value holds.
template <class Use>
void withArray(const Variant& value, Use use) {
    if (const auto* texts = value.getIf<Array<String>>())
        use(*texts);
    else if (const auto* bytes = value.getIf<Array<Byte>>())
        use(*bytes);
    else if (const auto* values = value.getIf<Array<Variant>>())
        use(*values);
    else
        throw Misuse{QUORKIT_WRONG_KIND};
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

int quorkit_set_bytes(quorkit_library library, quorkit_values values, size_t index,
                      const unsigned char* bytes, size_t length, int lower) {
    return inside(library, [&](OpenLibrary& own) {
        if (length != 0) need(bytes);
        if (!std::in_range<int>(length)) throw Misuse{QUORKIT_TOO_LONG};
        const quorkit_bounds bounds = {lower, static_cast<int>(length)};
        const int dimensions = bytes == nullptr ? 0 : 1;
        auto made = arrayOf(std::vector<Byte>(bytes, bytes + length), dimensions, &bounds);
        own.put(values, index) = std::move(made);
    });
}

int quorkit_set_array(quorkit_library library, quorkit_values values, size_t index,
                      quorkit_values elements, int kind, int dimensions,
                      const quorkit_bounds* bounds) {
    return inside(library, [&](OpenLibrary& own) {
        const std::vector<Variant>& items = own.list(elements).items;
        Variant made;
        if (kind == QUORKIT_TEXT_ARRAY)
            made = arrayOf(textsOf(items), dimensions, bounds);
        else if (kind == QUORKIT_VALUE_ARRAY)
            made = arrayOf(items, dimensions, bounds);
        else
            throw Misuse{QUORKIT_WRONG_KIND};
        own.put(values, index) = std::move(made);
    });
}

int quorkit_get_bytes(quorkit_library library, quorkit_values values, size_t index,
                      const unsigned char** bytes, size_t* length) {
    return inside(library, [&](OpenLibrary& own) {
        need(bytes);
        need(length);
        const auto* array = own.at(values, index).getIf<Array<Byte>>();
        if (array == nullptr) throw Misuse{QUORKIT_WRONG_KIND};
        *bytes = array->elements().data();
        *length = array->elements().size();
    });
}

int quorkit_get_bounds(quorkit_library library, quorkit_values values, size_t index,
                       int* dimensions, quorkit_bounds* bounds) {
    return inside(library, [&](OpenLibrary& own) {
        need(dimensions);
        need(bounds);
        withArray(own.at(values, index), [&](const auto& array) {
            *dimensions = array.dimensions();
            for (int i = 0; i < *dimensions; ++i)
                bounds[i] = {array.bounds(i + 1).lower, array.bounds(i + 1).count};
        });
    });
}

int quorkit_get_elements(quorkit_library library, quorkit_values values, size_t index,
                         quorkit_values elements) {
    return inside(library, [&](OpenLibrary& own) {
        std::vector<Variant> items;
        withArray(own.at(values, index), [&](const auto& array) {
            if constexpr (std::is_same_v<decltype(array), const Array<Byte>&>)
                throw Misuse{QUORKIT_WRONG_KIND};
            else
                items.assign(array.elements().begin(), array.elements().end());
        });
        Values& all = own.list(elements);
        all.clear();
        all.items = std::move(items);
    });
}
