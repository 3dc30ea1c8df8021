// Values in and out.
#include "c/values.h"

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include "c/open_library.h"
#include "c/text.h"

namespace quorkit::c {
namespace {

// The kinds are those of Variant in their order.
static_assert(
    std::is_same_v<std::variant_alternative_t<QUORKIT_ERROR_VALUE, VariantValue>, ErrorValue>);
static_assert(std::is_same_v<std::variant_alternative_t<QUORKIT_TEXT, VariantValue>, String>);
static_assert(std::is_same_v<std::variant_alternative_t<QUORKIT_OBJECT, VariantValue>, ObjectRef>);

int put(quorkit_library library, quorkit_values values, size_t index, Variant value) {
    return inside(library, [&](OpenLibrary& own) { own.put(values, index) = std::move(value); });
}

template <class T>
const T& of(OpenLibrary& own, quorkit_values values, size_t index) {
    const T* const value = own.at(values, index).getIf<T>();
    if (value == nullptr) throw Misuse{QUORKIT_WRONG_KIND};
    return *value;
}

/// Reads a value of one kind and hands it to `take`.
template <class T, class Place, class Take>
int read(quorkit_library library, quorkit_values values, size_t index, Place* place, Take take) {
    return inside(library, [&](OpenLibrary& own) {
        need(place);
        *place = take(of<T>(own, values, index));
    });
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

int quorkit_new_values(quorkit_library library, quorkit_values* values) {
    return inside(library, [&](OpenLibrary& own) {
        need(values);
        *values = reinterpret_cast<quorkit_values>(own.values.add({}));
    });
}

int quorkit_release_values(quorkit_library library, quorkit_values values) {
    return inside(library, [&](OpenLibrary& own) {
        if (!own.values.take(reinterpret_cast<std::uintptr_t>(values)))
            throw Misuse{QUORKIT_BAD_HANDLE};
    });
}

int quorkit_count(quorkit_library library, quorkit_values values, size_t* count) {
    return inside(library, [&](OpenLibrary& own) {
        need(count);
        *count = own.list(values).items.size();
    });
}

int quorkit_clear(quorkit_library library, quorkit_values values) {
    return inside(library, [&](OpenLibrary& own) { own.list(values).clear(); });
}

int quorkit_kind_of(quorkit_library library, quorkit_values values, size_t index, int* kind) {
    return inside(library, [&](OpenLibrary& own) {
        need(kind);
        *kind = static_cast<int>(own.at(values, index).index());
    });
}

int quorkit_set_empty(quorkit_library library, quorkit_values values, size_t index) {
    return put(library, values, index, Empty());
}

int quorkit_set_null(quorkit_library library, quorkit_values values, size_t index) {
    return put(library, values, index, Null());
}

int quorkit_set_error(quorkit_library library, quorkit_values values, size_t index,
                      unsigned int code) {
    return put(library, values, index, ErrorValue{code});
}

int quorkit_set_boolean(quorkit_library library, quorkit_values values, size_t index, int truth) {
    return put(library, values, index, truth != 0);
}

int quorkit_set_integer(quorkit_library library, quorkit_values values, size_t index,
                        short number) {
    return put(library, values, index, Integer{number});
}

int quorkit_set_long(quorkit_library library, quorkit_values values, size_t index, int number) {
    return put(library, values, index, Long{number});
}

int quorkit_set_double(quorkit_library library, quorkit_values values, size_t index,
                       double number) {
    return put(library, values, index, Double{number});
}

int quorkit_set_date(quorkit_library library, quorkit_values values, size_t index, double days) {
    return put(library, values, index, Date{days});
}

int quorkit_set_utf8(quorkit_library library, quorkit_values values, size_t index, const char* text,
                     size_t bytes) {
    return inside(library, [&](OpenLibrary& own) {
        String read = textIn(text, bytes);
        own.put(values, index) = std::move(read);
    });
}

int quorkit_set_utf16(quorkit_library library, quorkit_values values, size_t index,
                      const unsigned short* text, size_t units) {
    return inside(library, [&](OpenLibrary& own) {
        if (units != 0) need(text);
        const auto* const first = reinterpret_cast<const char16_t*>(text);
        if (units == QUORKIT_TO_ZERO) units = std::char_traits<char16_t>::length(first);
        needLength(units, sizeof *first);
        String read(first, units);
        own.put(values, index) = std::move(read);
    });
}

int quorkit_set_object(quorkit_library library, quorkit_values values, size_t index,
                       quorkit_object object) {
    return inside(library, [&](OpenLibrary& own) {
        ObjectRef given = object == nullptr ? ObjectRef() : own.object(object);
        own.put(values, index) = std::move(given);
    });
}

int quorkit_set_value(quorkit_library library, quorkit_values values, size_t index,
                      quorkit_values from, size_t from_index) {
    return inside(library, [&](OpenLibrary& own) {
        Variant copy = own.at(from, from_index);
        own.put(values, index) = std::move(copy);
    });
}

int quorkit_get_error(quorkit_library library, quorkit_values values, size_t index,
                      unsigned int* code) {
    return read<ErrorValue>(library, values, index, code,
                            [](ErrorValue value) { return value.code; });
}

int quorkit_get_boolean(quorkit_library library, quorkit_values values, size_t index, int* truth) {
    return read<Boolean>(library, values, index, truth,
                         [](Boolean value) { return value ? 1 : 0; });
}

int quorkit_get_integer(quorkit_library library, quorkit_values values, size_t index,
                        short* number) {
    return read<Integer>(library, values, index, number, [](Integer value) { return value; });
}

int quorkit_get_long(quorkit_library library, quorkit_values values, size_t index, int* number) {
    return read<Long>(library, values, index, number, [](Long value) { return value; });
}

int quorkit_get_double(quorkit_library library, quorkit_values values, size_t index,
                       double* number) {
    return read<Double>(library, values, index, number, [](Double value) { return value; });
}

int quorkit_get_date(quorkit_library library, quorkit_values values, size_t index, double* days) {
    return read<Date>(library, values, index, days, [](Date value) { return value.days; });
}

int quorkit_get_utf8(quorkit_library library, quorkit_values values, size_t index,
                     const char** text, size_t* bytes) {
    return inside(library, [&](OpenLibrary& own) {
        need(text);
        need(bytes);
        const auto& value = of<String>(own, values, index);
        auto& read = own.list(values).utf8;
        if (read.size() <= index) read.resize(index + 1);  // which moves none
        read[index] = toUtf8(value, Malformed::Keep);
        *text = read[index].c_str();
        *bytes = read[index].size();
    });
}

int quorkit_get_utf16(quorkit_library library, quorkit_values values, size_t index,
                      const unsigned short** text, size_t* units) {
    return inside(library, [&](OpenLibrary& own) {
        need(text);
        need(units);
        const auto& value = of<String>(own, values, index);
        *text = reinterpret_cast<const unsigned short*>(value.c_str());
        *units = value.size();
    });
}

int quorkit_get_object(quorkit_library library, quorkit_values values, size_t index,
                       quorkit_object* object) {
    return inside(library, [&](OpenLibrary& own) {
        need(object);
        *object = own.give(of<ObjectRef>(own, values, index));
    });
}
