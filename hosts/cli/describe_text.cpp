#include "cli/describe.h"
#include "cli/signature.h"

namespace quorkit::cli {

std::string describeText(const MemberInfo& member) {
    return signature(member) + "\n    " + identifierText(member.identifier) + "  " +
           member.sentence + '\n';
}

std::string describeText(const ClassInfo& info) {
    const auto members = info.members();
    std::string text = std::string(info.name) + " (" + kindName(info.kind) + " class, " +
                       std::to_string(members.size()) + " members)\n" + info.role + "\n\n";
    for (const MemberInfo& member : members) text += describeText(member);
    return text;
}

std::string describeText() {
    std::string text;
    for (const ClassInfo& info : classes()) text += describeText(info) + '\n';
    for (const EnumerationInfo& enumeration : enumerations()) {
        text.append("Enum ").append(enumeration.name).append("\n");
        text.append("    ").append(enumeration.sentence).append("\n");
        for (const ConstantInfo& constant : enumeration.constants)
            text.append("    ").append(constant.name) +=
                " = " + std::to_string(constant.value) + '\n';
        text += '\n';
    }
    text.append("Type ").append(kRectangle.name).append("\n    ").append(kRectangle.sentence);
    for (const char* field : kRectangle.fields) text.append("\n    ").append(field) += " As Long";
    return text + '\n';
}

}  // namespace quorkit::cli
