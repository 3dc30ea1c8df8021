#include <quorkit/date_formats.h>

#include "cli/describe.h"
#include "cli/signature.h"

namespace quorkit::cli {
namespace {

/// A vertical bar would end the cell.
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

std::string describeMarkdown(const MemberInfo& member) {
    return "| `" + cell(signature(member)) + "` | " + cell(member.sentence) + " | `" +
           identifierText(member.identifier) + "` |\n";
}

std::string describeMarkdown(const ClassInfo& info) {
    const auto members = info.members();
    std::string text = std::string("## ") + info.name + "\n\n*" + kindName(info.kind) + " class, " +
                       std::to_string(members.size()) + " members*: ";
    text.append(info.role).append(".\n");
    if (!members.empty()) text += "\n| Member | What it does | Identifier |\n|---|---|---|\n";
    for (const MemberInfo& member : members) text += describeMarkdown(member);
    return text;
}

std::string describeMarkdown() {
    std::string text =
        "# Reference\n\n"
        "Written by `quorkit describe --markdown`. Parameters are by value unless they say "
        "`ByRef`; "
        "what a\nmember does in every case is told in its class's header in "
        "`include/quorkit/`.\n\n";
    for (const ClassInfo& info : classes()) text += describeMarkdown(info) + '\n';
    text += "## Enumerations\n";
    for (const EnumerationInfo& enumeration : enumerations()) {
        text.append("\n### ").append(enumeration.name).append("\n\n").append(enumeration.sentence);
        text += "\n\n| Constant | Value |\n|---|---|\n";
        for (const ConstantInfo& constant : enumeration.constants)
            text.append("| `").append(constant.name) +=
                "` | " + std::to_string(constant.value) + " |\n";
    }
    text.append("\n## ").append(kRectangle.name).append("\n\n").append(kRectangle.sentence);
    text += "\n\n| Field | Type |\n|---|---|\n";
    for (const char* field : kRectangle.fields) text.append("| `").append(field) += "` | Long |\n";
    return text + dateFormats();
}

}  // namespace quorkit::cli
