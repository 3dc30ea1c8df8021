#include <quorkit/date_formats.h>

#include "describe/describe.h"
#include "describe/signature.h"

namespace quorkit::describe {
namespace {

/// Escapes vertical bars, which would end the cell.
std::string cell(std::string_view text) {
    std::string result;
    for (const char one : text) result.append(one == '|' ? "\\" : "") += one;
    return result;
}

std::string dateFormats() {
    std::string text =
        "\n## Date formats\n\n"
        "Letters in any case. Of several tokens the longest one counts. Text in double quotes, a "
        "character behind\na backslash, and everything that is no token stand for themselves. "
        "Hours go to 12 in a format that holds\nAM or PM in any form. An empty format is "
        "`General Date`. Dates are rounded to the second.\n\n"
        "| Token | What it writes |\n|---|---|\n";
    for (const auto& [token, sentence] : dateTokens())
        text.append("| `").append(token).append("` | ").append(sentence).append(" |\n");
    text += "\n| A format by its name | The same as |\n|---|---|\n";
    for (const auto& [name, format] : dateFormatNames())
        text.append("| `").append(name).append("` | `").append(format).append("` |\n");
    return text;
}

}  // namespace

std::string asMarkdown(const MemberInfo& member) {
    return "| `" + cell(signature(member)) + "` | " + cell(member.sentence) + " | `" +
           identifierText(member.identifier) + "` |\n";
}

std::string asMarkdown(const ClassInfo& info) {
    const auto members = info.members();
    std::string text = std::string("## ") + info.name + "\n\n*" + kindName(info.kind) + " class, " +
                       std::to_string(members.size()) + " members*: ";
    text.append(info.role).append(".\n");
    if (!members.empty()) text += "\n| Member | What it does | Identifier |\n|---|---|---|\n";
    for (const MemberInfo& member : members) text += asMarkdown(member);
    return text;
}

std::string asMarkdown(const EnumerationInfo& enumeration) {
    std::string text = std::string("\n### ") + enumeration.name + "\n\n" + enumeration.sentence;
    text += "\n\n| Constant | Value |\n|---|---|\n";
    for (const ConstantInfo& constant : enumeration.constants)
        text.append("| `").append(constant.name) +=
            "` | " + std::to_string(constant.value) + " |\n";
    return text;
}

std::string asMarkdown(const RecordInfo& record) {
    std::string text = std::string("## ") + record.name + "\n\n" + record.sentence;
    text += "\n\n| Field | Type |\n|---|---|\n";
    for (const FieldInfo& field : record.fields)
        text.append("| `").append(field.name).append("` | ").append(field.type.name()) += " |\n";
    return text;
}

std::string asMarkdown() {
    std::string text =
        "# Reference\n\n"
        "Written by `quorkit describe --markdown`. Parameters are by value unless they say "
        "`ByRef`; "
        "what a\nmember does in every case is told in its class's header in "
        "`include/quorkit/`.\n\n";
    for (const ClassInfo& info : classes()) text += asMarkdown(info) + '\n';
    text += "## Enumerations\n";
    for (const EnumerationInfo& enumeration : enumerations()) text += asMarkdown(enumeration);
    for (const RecordInfo& record : records()) text += '\n' + asMarkdown(record);
    return text + dateFormats();
}

}  // namespace quorkit::describe
