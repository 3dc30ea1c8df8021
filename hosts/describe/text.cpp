#include "describe/describe.h"
#include "describe/signature.h"

namespace quorkit::describe {

std::string asText(const MemberInfo& member) {
    return signature(member) + "\n    " + identifierText(member.identifier) + "  " +
           member.sentence + '\n';
}

std::string asText(const ClassInfo& info) {
    const auto members = info.members();
    std::string text = std::string(info.name) + " (" + kindName(info.kind) + " class, " +
                       std::to_string(members.size()) + " members)\n" + info.role + "\n\n";
    for (const MemberInfo& member : members) text += asText(member);
    return text;
}

std::string asText(const EnumerationInfo& enumeration) {
    std::string text =
        "Enum " + std::string(enumeration.name) + "\n    " + enumeration.sentence + '\n';
    for (const ConstantInfo& constant : enumeration.constants)
        text.append("    ").append(constant.name) += " = " + std::to_string(constant.value) + '\n';
    return text;
}

std::string asText(const RecordInfo& record) {
    std::string text = "Type " + std::string(record.name) + "\n    " + record.sentence + '\n';
    for (const FieldInfo& field : record.fields)
        text.append("    ").append(field.name).append(" As ").append(field.type.name()) += '\n';
    return text;
}

std::string asText() {
    std::string text;
    for (const ClassInfo& info : classes()) text += asText(info) + '\n';
    for (const EnumerationInfo& enumeration : enumerations()) text += asText(enumeration) + '\n';
    for (const RecordInfo& record : records()) text += asText(record);
    return text;
}

}  // namespace quorkit::describe
