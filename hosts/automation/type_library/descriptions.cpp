#include "automation/type_library/descriptions.h"

#include <sstream>
#include <stdexcept>

#include "automation/com.h"
#include "describe/interface_name.h"

namespace quorkit::automation {
namespace {

VARTYPE variantType(Type type) {
    switch (type) {
        case Type::None:
            return VT_VOID;
        case Type::Boolean:
            return VT_BOOL;
        case Type::Integer:
            return VT_I2;
        case Type::Long:
            return VT_I4;
        case Type::Double:
            return VT_R8;
        case Type::Date:
            return VT_DATE;
        case Type::String:
            return VT_BSTR;
        case Type::Variant:
            return VT_VARIANT;
        case Type::StringArray:
            return VT_ARRAY | VT_BSTR;
        case Type::ByteArray:
            return VT_ARRAY | VT_UI1;
        case Type::VariantArray:
            return VT_ARRAY | VT_VARIANT;
        case Type::Object:
            break;
    }
    return VT_DISPATCH;
}

TYPEDESC plain(VARTYPE type) {
    TYPEDESC made = {};
    made.vt = type;
    return made;
}

}  // namespace

void expect(HRESULT result, const std::string& doing) {
    if (SUCCEEDED(result)) return;
    std::ostringstream text;
    text << doing << ": " << std::hex << static_cast<unsigned long>(result);
    throw std::runtime_error(text.str());
}

TYPEDESC TypeDescriptions::of(const TypeInfo& type) {
    if (type.enumeration != nullptr) return named(type.enumeration->name);
    if (type.classOf != nullptr)
        return around(VT_PTR, named(describe::interfaceName(type.classOf())));
    const VARTYPE plainType = variantType(type.type);
    return (plainType & VT_ARRAY) != 0 ? around(VT_SAFEARRAY, plain(plainType & VT_TYPEMASK))
                                       : plain(plainType);
}

TYPEDESC TypeDescriptions::of(const ParameterInfo& parameter) {
    const TYPEDESC value = of(parameter.type);
    return parameter.byReference ? around(VT_PTR, value) : value;
}

TYPEDESC TypeDescriptions::around(VARTYPE kind, const TYPEDESC& inner) {
    TYPEDESC made = plain(kind);
    made.lptdesc = &kept_.emplace_back(inner);
    return made;
}

TYPEDESC TypeDescriptions::named(const std::string& name) {
    TYPEDESC made = plain(VT_USERDEFINED);
    made.hreftype = referenceTo_(name);
    return made;
}

void describeDefault(const ParameterInfo& parameter, VARIANT& made) {
    const Variant value = parameter.defaultValue();
    if (value.isMissing()) return;
    if (const auto* truth = value.getIf<Boolean>()) {
        made.vt = VT_BOOL;
        made.boolVal = *truth ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const auto* small = value.getIf<Integer>()) {
        made.vt = VT_I2;
        made.iVal = *small;
    } else if (const auto* number = value.getIf<Long>()) {
        made.vt = VT_I4;
        made.lVal = *number;
    } else if (const auto* text = value.getIf<String>()) {
        made.vt = VT_BSTR;
        made.bstrVal = newBstr(*text);
    } else {
        throw std::runtime_error(std::string("no type library can hold the default of ") +
                                 parameter.name);
    }
}

}  // namespace quorkit::automation
