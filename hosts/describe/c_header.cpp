#include "describe/describe.h"
#include "describe/signature.h"

// C89: comments of one kind only. All is macros with a prefix of their own, because the system's
// headers have macros with the names of some constants.

namespace quorkit::describe {
namespace {

constexpr const char* kPurpose =
    R"(/* The automation server for clients in C, written by "quorkit describe --c-header": identities to
   initialize a GUID with, names of the classes, identifiers of the members, and constants.

       static const CLSID identity = QUORKIT_CLSID_GQuorStrings; */
)";

/// What a GUID is initialized with.
std::string initializer(std::string_view identity) {
    const auto number = [&](std::size_t at, std::size_t digits) {
        return "0x" + std::string(identity.substr(at, digits));
    };
    std::string text = "{" + number(0, 8) + ", " + number(9, 4) + ", " + number(14, 4) + ", {" +
                       number(19, 2) + ", " + number(21, 2);
    for (std::size_t at = 24; at < identity.size(); at += 2) text += ", " + number(at, 2);
    return text + "}}";
}

std::string macro(const std::string& name, const std::string& value) {
    return "#define QUORKIT_" + name + ' ' + value + '\n';
}

std::string comment(const std::string& text) {
    return "/* " + text + " */\n";
}

std::string inC(const MemberInfo& member, const std::string& owner) {
    return comment(signature(member)) +
           macro("DISPID_" + owner + '_' + member.name, identifierText(member.identifier));
}

std::string inC(const ClassInfo& info) {
    const std::string name = info.name;
    std::string text = '\n' + comment(name + ": " + info.role + '.') +
                       macro("PROGID_" + name, "L\"quorkit." + name + '"') +
                       macro("CLSID_" + name, initializer(info.identity)) +
                       macro("IID_" + name, initializer(info.interfaceIdentity));
    for (const MemberInfo& member : info.members()) text += inC(member, name);
    return text;
}

std::string inC(const EnumerationInfo& enumeration) {
    std::string text = '\n' + comment(std::string(enumeration.name) + ": " + enumeration.sentence);
    for (const ConstantInfo& constant : enumeration.constants)
        text += macro(constant.name, '(' + std::to_string(constant.value) + ')');
    return text;
}

}  // namespace

std::string asCHeader() {
    std::string text = kPurpose;
    text += "#ifndef QUORKIT_AUTOMATION_H\n#define QUORKIT_AUTOMATION_H\n\n" +
            macro("LIBID", initializer(kLibraryIdentity));
    for (const ClassInfo& info : classes()) text += inC(info);
    for (const EnumerationInfo& enumeration : enumerations()) text += inC(enumeration);
    return text + "\n#endif\n";
}

}  // namespace quorkit::describe
