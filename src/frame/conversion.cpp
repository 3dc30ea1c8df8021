#include "frame/conversion.h"

#include "frame/ui_language.h"
#include "frame/value_types.h"
#include "runtime/convert.h"

namespace quorkit::frame {
namespace {

Byte byteOf(const Variant& value) {
    const Long number = runtime::CLng(value);
    if (number < 0 || number > 255) raise(ErrorNumber::Overflow);
    return static_cast<Byte>(number);
}

/// An array with each element converted; an unallocated one stays unallocated. Error 13 for a
/// table.
template <class T, class From, class Convert>
Array<T> converted(const Array<From>& from, Convert convert) {
    if (!from.allocated()) return {};
    if (from.dimensions() > 1) raise(ErrorNumber::TypeMismatch);
    std::vector<T> elements;
    elements.reserve(from.elements().size());
    for (const From& element : from.elements()) elements.push_back(convert(element));
    return Array<T>(std::move(elements), from.lower());
}

/// An array of Variants converts to any array, an array of texts to Variants; no other array
/// converts.
template <class T, class Convert>
void requireArray(Variant& value, Convert convert) {
    const auto* variants = value.getIf<Array<Variant>>();
    if (variants == nullptr) raise(ErrorNumber::TypeMismatch);
    value = converted<T>(*variants, convert);
}

void requireVariants(Variant& value) {
    const auto* texts = value.getIf<Array<String>>();
    if (texts == nullptr) raise(ErrorNumber::TypeMismatch);
    value = converted<Variant>(*texts, [](const String& text) { return text; });
}

}  // namespace

void convert(Variant& value, const TypeInfo& type, Ports* ports) {
    if (typeOfContent(value) == type.type) return;
    switch (type.type) {
        case Type::None:
        case Type::Variant:
            return;
        case Type::Boolean:
            value = runtime::CBool(value);
            return;
        case Type::Integer:
            value = runtime::CInt(value);
            return;
        case Type::Long:
            value = runtime::CLng(value);
            return;
        case Type::Double:
            value = runtime::CDbl(value);
            return;
        case Type::Date:
            if (value.is<String>() && ports != nullptr)
                value = runtime::CDate(value, uiLanguage(*ports));
            else
                value = runtime::CDate(value);
            return;
        case Type::String:
            value = runtime::CStr(value);
            return;
        case Type::StringArray:
            requireArray<String>(value, runtime::CStr);
            return;
        case Type::ByteArray:
            requireArray<Byte>(value, byteOf);
            return;
        case Type::VariantArray:
            requireVariants(value);
            return;
        case Type::Object:
            raise(ErrorNumber::TypeMismatch);
    }
}

void convertArgument(Variant& value, const ParameterInfo& parameter, Ports* ports) {
    if (typeOfContent(value) == parameter.type.type) return;
    try {
        convert(value, parameter.type, ports);
    } catch (const AutomationError&) {
        if (!parameter.result) throw;
        value = initialValue(parameter.type.type);
    }
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
