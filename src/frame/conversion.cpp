#include "frame/conversion.h"

#include <type_traits>
#include <utility>
#include <vector>

#include "frame/ui_language.h"
#include "frame/value_types.h"
#include "runtime/convert.h"

namespace quorkit::frame {
namespace {

using runtime::Converted;
using Failure = std::optional<ErrorNumber>;

Converted<Byte> byteOf(const Variant& value) {
    auto number = runtime::to<Long>(value);
    if (number.failure()) return *number.failure();
    if (!std::in_range<Byte>(number.value())) return ErrorNumber::Overflow;
    return static_cast<Byte>(number.value());
}

template <class T>
Failure become(Variant& value, Converted<T> made) {
    if (!made.failure()) value = std::move(made.value());
    return made.failure();
}

/// An array of `From` becomes one of what `convert` makes of each element; an unallocated one stays
/// unallocated. No other value converts, nor does a table.
template <class From, class Convert>
Failure becomeArray(Variant& value, Convert convert) {
    using To = std::remove_cvref_t<decltype(convert(From()).value())>;
    const auto* from = value.getIf<Array<From>>();
    if (from == nullptr) return ErrorNumber::TypeMismatch;
    if (!from->allocated()) return become(value, Converted(Array<To>()));
    if (from->dimensions() > 1) return ErrorNumber::TypeMismatch;
    std::vector<To> elements;
    elements.reserve(from->elements().size());
    for (const From& element : from->elements()) {
        auto made = convert(element);
        if (made.failure()) return made.failure();
        elements.push_back(std::move(made.value()));
    }
    return become(value, Converted(Array<To>(std::move(elements), from->lower())));
}

}  // namespace

Failure convert(Variant& value, const TypeInfo& type, Ports* ports) {
    if (typeOfContent(value) == type.type) return {};
    switch (type.type) {
        case Type::None:
        case Type::Variant:
            return {};
        case Type::Boolean:
            return become(value, runtime::to<Boolean>(value));
        case Type::Integer:
            return become(value, runtime::to<Integer>(value));
        case Type::Long:
            return become(value, runtime::to<Long>(value));
        case Type::Double:
            return become(value, runtime::to<Double>(value));
        case Type::Date:
            if (value.is<String>() && ports != nullptr)
                return become(value, runtime::toDate(value, uiLanguage(*ports)));
            return become(value, runtime::toDate(value));
        case Type::String:
            return become(value, runtime::to<String>(value));
        case Type::StringArray:
            return becomeArray<Variant>(value, runtime::to<String>);
        case Type::ByteArray:
            return becomeArray<Variant>(value, byteOf);
        case Type::VariantArray:
            return becomeArray<String>(value,
                                       [](const String& text) { return Converted<Variant>(text); });
        case Type::Object:
            break;
    }
    return ErrorNumber::TypeMismatch;
}

Failure convertArgument(Variant& value, const ParameterInfo& parameter, Ports* ports) {
    if (typeOfContent(value) == parameter.type.type) return {};
    const Failure failure = convert(value, parameter.type, ports);
    if (!failure || !parameter.result) return failure;
    value = initialValue(parameter.type.type);
    return {};
}

Variant initialValue(Type type) {
    switch (type) {
        case Type::Boolean:
            return Boolean();
        case Type::Integer:
            return Integer();
        case Type::Long:
            return Long();
        case Type::Double:
            return Double();
        case Type::Date:
            return Date();
        case Type::String:
            return String();
        case Type::StringArray:
            return Array<String>();
        case Type::ByteArray:
            return Array<Byte>();
        case Type::VariantArray:
            return Array<Variant>();
        case Type::Object:
            return ObjectRef();
        case Type::None:
        case Type::Variant:
            break;
    }
    return {};
}

}  // namespace quorkit::frame
