#include <cstdio>

#include "cli/describe.h"
#include "cli/print.h"
#include "cli/signature.h"

// The text stands alone: the automation types that it needs are declared in it, so that no other
// interface definition has to be at hand when a type library is made of it.

namespace quorkit::cli {
namespace {

constexpr const char* kAutomationTypes = R"(typedef wchar_t *BSTR;
typedef short VARIANT_BOOL;
typedef double DATE;
typedef struct tagVARIANT VARIANT;
[object, uuid(00000000-0000-0000-C000-000000000046)] interface IUnknown {}
[object, uuid(00020400-0000-0000-C000-000000000046)] interface IDispatch : IUnknown {}

)";

constexpr const char* kForeignObjects = R"(
    [uuid(A4C46780-499F-101B-BB78-00AA00383CBB)]
    dispinterface _Collection { properties: methods: };
    [uuid(42C642C1-97E1-11CF-978F-00A02463E06F)]
    dispinterface IDictionary { properties: methods: };
    [uuid(7BF80981-BF32-101A-8BBB-00AA00300CAB)]
    dispinterface IPictureDisp { properties: methods: };
)";

/// The library's identifiers, counted up from one that was drawn at random: the library itself,
/// then the interface and the class object of every class in the order of the catalogue. They stay
/// as they are for ever, because clients store them.
class Identifiers {
   public:
    std::string next() {
        char text[40];
        std::snprintf(text, sizeof text, "%08x-04b8-44f9-aadf-94b1a8221c8d", first_++);
        return text;
    }

   private:
    unsigned first_ = 0x673D863D;
};

std::string quote(std::string_view text) {
    std::string result = "\"";
    for (const char one : text) result.append(one == '"' || one == '\\' ? "\\" : "") += one;
    return result + '"';
}

std::string typeName(const TypeInfo& type) {
    const std::string name = type.name;
    switch (type.type) {
        case Type::None:
            return "void";
        case Type::Bool:
            return "VARIANT_BOOL";
        case Type::Int16:
            return "short";
        case Type::Int32:
            return name == "Long" ? "long" : name;
        case Type::Float:
            return "double";
        case Type::Date:
            return "DATE";
        case Type::Text:
            return "BSTR";
        case Type::Any:
            return "VARIANT";
        case Type::TextArray:
            return "SAFEARRAY(BSTR)";
        case Type::ByteArray:
            return "SAFEARRAY(unsigned char)";
        case Type::AnyArray:
            return "SAFEARRAY(VARIANT)";
        case Type::Object:
            if (name == "Object") return "IDispatch*";
            if (name == "Picture") return "IPictureDisp*";
            return name == "Dictionary" ? "IDictionary*" : "_" + name + "*";
    }
    return {};
}

/// The default as widl can store it; empty when it cannot, then the parameter is just optional.
std::string defaultValue(const ParameterInfo& parameter) {
    const Variant value = parameter.defaultValue();
    switch (parameter.type.type) {
        case Type::Bool:
            return value == Variant(true) ? "-1" : "0";
        case Type::Int16:
        case Type::Int32:
            return plainText(value);
        case Type::Text:
            return parameter.byReference ? std::string() : quote(plainText(value));
        default:
            return "";
    }
}

std::string declaration(const ParameterInfo& parameter) {
    std::string text = parameter.byReference ? "[in, out" : "[in";
    if (parameter.optional()) {
        const std::string value = defaultValue(parameter);
        text += value.empty() ? ", optional" : ", defaultvalue(" + value + ")";
    }
    return text + "] " + typeName(parameter.type) + (parameter.byReference ? "* " : " ") +
           parameter.name;
}

std::string declaration(const MemberInfo& member) {
    std::string text = "        [id(" + identifierText(member.identifier) + ")";
    if (member.kind == MemberKind::PropertyGet) text += ", propget";
    if (member.kind == MemberKind::PropertyLet) text += ", propput";
    text += ", helpstring(" + quote(member.sentence) + ")]\n        ";
    text += typeName(member.result) + ' ' + member.name + '(';
    for (const ParameterInfo& parameter : member.parameters()) {
        if (!text.ends_with('(')) text += ", ";
        text += declaration(parameter);
    }
    return text + ");\n";
}

std::string declaration(const ClassInfo& info, Identifiers& identifiers) {
    const std::string name = info.name;
    std::string text = "\n    [uuid(" + identifiers.next() + ")]\n    dispinterface _" + name +
                       " {\n        properties:\n        methods:\n";
    for (const MemberInfo& member : info.members()) text += declaration(member);
    text += "    };\n    [uuid(" + identifiers.next() + ")";
    if (info.kind == ClassKind::Global) text += ", appobject";
    return text + ", helpstring(" + quote(info.role) + ")]\n    coclass " + name +
           " { [default] dispinterface _" + name + "; };\n";
}

std::string declaration(const EnumerationInfo& enumeration) {
    const std::string name = enumeration.name;
    std::string text =
        "\n    typedef [helpstring(" + quote(enumeration.sentence) + ")] enum " + name + " {";
    for (const ConstantInfo& constant : enumeration.constants) {
        if (!text.ends_with('{')) text += ',';
        text.append("\n        ").append(constant.name) += " = " + std::to_string(constant.value);
    }
    return text + "\n    } " + name + ";\n";
}

std::string declaration(const RecordInfo& record) {
    const std::string name = record.name;
    std::string text =
        "\n    typedef [helpstring(" + quote(record.sentence) + ")] struct " + name + " {\n";
    for (const char* field : record.fields) text.append("        long ").append(field) += ";\n";
    return text + "    } " + name + ";\n";
}

}  // namespace

std::string describeIdl() {
    Identifiers identifiers;
    std::string text = std::string(kAutomationTypes) + "[uuid(" + identifiers.next() +
                       "), version(1.0)]\nlibrary quorkit\n{" + kForeignObjects;
    for (const EnumerationInfo& enumeration : enumerations()) text += declaration(enumeration);
    text += declaration(kRectangle);
    for (const ClassInfo& info : classes()) text += declaration(info, identifiers);
    return text + "};\n";
}

}  // namespace quorkit::cli
