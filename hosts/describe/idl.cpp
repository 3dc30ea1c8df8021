#include "describe/describe.h"
#include "describe/interface_name.h"
#include "describe/signature.h"
#include "json/plain_text.h"

// The text is complete: it declares the automation types that it needs, so that a type library can
// be made of it without any other interface definition.

namespace quorkit::describe {
namespace {

constexpr const char* kAutomationTypes = R"(typedef wchar_t *BSTR;
typedef short VARIANT_BOOL;
typedef double DATE;
typedef struct tagVARIANT VARIANT;
[object, uuid(00000000-0000-0000-C000-000000000046)] interface IUnknown {}
[object, uuid(00020400-0000-0000-C000-000000000046)] interface IDispatch : IUnknown {}

)";

std::string quote(std::string_view text) {
    std::string result = "\"";
    for (const char one : text) result.append(one == '"' || one == '\\' ? "\\" : "") += one;
    return result + '"';
}

std::string typeName(const TypeInfo& type) {
    switch (type.type) {
        case Type::None:
            return "void";
        case Type::Boolean:
            return "VARIANT_BOOL";
        case Type::Integer:
            return "short";
        case Type::Long:
            return type.enumeration == nullptr ? "long" : type.name();
        case Type::Double:
            return "double";
        case Type::Date:
            return "DATE";
        case Type::String:
            return "BSTR";
        case Type::Variant:
            return "VARIANT";
        case Type::StringArray:
            return "SAFEARRAY(BSTR)";
        case Type::ByteArray:
            return "SAFEARRAY(unsigned char)";
        case Type::VariantArray:
            return "SAFEARRAY(VARIANT)";
        case Type::Object:
            break;
    }
    return (type.classOf == nullptr ? "IDispatch" : interfaceName(type.classOf())) + "*";
}

/// The default in the form that widl can store. If it cannot store the default, the text is empty
/// and the parameter is just optional.
std::string defaultValue(const ParameterInfo& parameter) {
    const Variant value = parameter.defaultValue();
    switch (parameter.type.type) {
        case Type::Boolean:
            return value == Variant(true) ? "-1" : "0";
        case Type::Integer:
        case Type::Long:
            return json::plainText(value);
        case Type::String:
            return parameter.byReference ? std::string() : quote(json::plainText(value));
        default:
            return "";
    }
}

std::string idlOf(const ParameterInfo& parameter) {
    std::string text = parameter.byReference ? "[in, out" : "[in";
    if (parameter.optional()) {
        const std::string value = defaultValue(parameter);
        text += value.empty() ? ", optional" : ", defaultvalue(" + value + ")";
    }
    return text + "] " + typeName(parameter.type) + (parameter.byReference ? "* " : " ") +
           parameter.name;
}

std::string idlOf(const MemberInfo& member) {
    std::string text = "        [id(" + identifierText(member.identifier) + ")";
    if (member.kind == MemberKind::PropertyGet) text += ", propget";
    if (member.kind == MemberKind::PropertyLet) text += ", propput";
    text += ", helpstring(" + quote(member.sentence) + ")]\n        ";
    text += typeName(member.result) + ' ' + member.name + '(';
    for (const ParameterInfo& parameter : member.parameters()) {
        if (!text.ends_with('(')) text += ", ";
        text += idlOf(parameter);
    }
    return text + ");\n";
}

std::string idlOf(const ClassInfo& info) {
    const std::string name = info.name;
    std::string text = std::string("\n    [uuid(") + info.interfaceIdentity +
                       ")]\n    dispinterface " + interfaceName(info);
    if (info.kind == ClassKind::Runtime) return text + " { properties: methods: };";
    text += " {\n        properties:\n        methods:\n";
    for (const MemberInfo& member : info.members()) text += idlOf(member);
    text += std::string("    };\n    [uuid(") + info.identity + ")";
    if (info.kind == ClassKind::Global) text += ", appobject";
    return text + ", helpstring(" + quote(info.role) + ")]\n    coclass " + name +
           " { [default] dispinterface " + interfaceName(info) + "; };\n";
}

std::string idlOf(const EnumerationInfo& enumeration) {
    const std::string name = enumeration.name;
    std::string text =
        "\n    typedef [helpstring(" + quote(enumeration.sentence) + ")] enum " + name + " {";
    for (const ConstantInfo& constant : enumeration.constants) {
        if (!text.ends_with('{')) text += ',';
        text.append("\n        ").append(constant.name) += " = " + std::to_string(constant.value);
    }
    return text + "\n    } " + name + ";\n";
}

std::string idlOf(const RecordInfo& record) {
    const std::string name = record.name;
    std::string text =
        "\n    typedef [helpstring(" + quote(record.sentence) + ")] struct " + name + " {\n";
    for (const FieldInfo& field : record.fields)
        text.append("        ").append(typeName(field.type)).append(" ").append(field.name) +=
            ";\n";
    return text + "    } " + name + ";\n";
}

}  // namespace

std::string asIdl() {
    std::string text = std::string(kAutomationTypes) + "[uuid(" + kLibraryIdentity +
                       "), version(1.0)]\nlibrary quorkit\n{";
    for (const ClassInfo& info : runtimeClasses()) text += idlOf(info);
    text += '\n';
    for (const EnumerationInfo& enumeration : enumerations()) text += idlOf(enumeration);
    for (const RecordInfo& record : records()) text += idlOf(record);
    for (const ClassInfo& info : classes()) text += idlOf(info);
    return text + "};\n";
}

}  // namespace quorkit::describe
