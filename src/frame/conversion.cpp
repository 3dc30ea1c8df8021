#include "frame/conversion.h"

#include <string_view>

#include "runtime/convert.h"

namespace quorkit {
namespace {

void requireObject(const Variant& value, std::string_view className) {
    const ObjectRef* object = value.getIf<ObjectRef>();
    if (object == nullptr) raise(ErrorNumber::TypeMismatch);
    if (*object != nullptr && className != "Object" && className != (*object)->className())
        raise(ErrorNumber::TypeMismatch);
}

/// Arrays of another element type do not convert, except that Variants may hold the wanted texts.
/// An unallocated array of any type fits.
template <class T>
void requireArray(Variant& value) {
    if (value.is<Array<T>>()) return;
    const auto* variants = value.getIf<Array<Variant>>();
    if constexpr (std::is_same_v<T, Variant>) {
        if (const auto* texts = value.getIf<Array<String>>(); texts != nullptr)
            value = texts->allocated()
                        ? Array<Variant>(std::vector<Variant>(texts->elements().begin(),
                                                              texts->elements().end()),
                                         texts->lower())
                        : Array<Variant>();
        else
            raise(ErrorNumber::TypeMismatch);
    } else {
        if (variants == nullptr || variants->dimensions() > 1) raise(ErrorNumber::TypeMismatch);
        std::vector<T> elements;
        elements.reserve(variants->elements().size());
        for (const Variant& element : variants->elements()) {
            if constexpr (std::is_same_v<T, Byte>) {
                const Long number = runtime::CLng(element);
                if (number < 0 || number > 255) raise(ErrorNumber::Overflow);
                elements.push_back(static_cast<Byte>(number));
            } else {
                elements.push_back(runtime::CStr(element));
            }
        }
        value =
            variants->allocated() ? Array<T>(std::move(elements), variants->lower()) : Array<T>();
    }
}

}  // namespace

void convert(Variant& value, const TypeInfo& type) {
    switch (type.type) {
        case Type::None:
        case Type::Any:
            return;
        case Type::Bool:
            if (!value.is<Boolean>()) value = runtime::CBool(value);
            return;
        case Type::Int16:
            if (!value.is<Integer>()) value = runtime::CInt(value);
            return;
        case Type::Int32:
            if (!value.is<Long>()) value = runtime::CLng(value);
            return;
        case Type::Float:
            if (!value.is<Double>()) value = runtime::CDbl(value);
            return;
        case Type::Date:
            if (!value.is<Date>()) value = runtime::CDate(value);
            return;
        case Type::Text:
            if (!value.is<String>()) value = runtime::CStr(value);
            return;
        case Type::TextArray:
            requireArray<String>(value);
            return;
        case Type::ByteArray:
            requireArray<Byte>(value);
            return;
        case Type::AnyArray:
            requireArray<Variant>(value);
            return;
        case Type::Object:
            requireObject(value, type.name);
            return;
    }
}

}  // namespace quorkit
