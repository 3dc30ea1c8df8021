#include "cli/describe_command.h"

#include <quorkit/utf8.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "cli/usage.h"
#include "describe/describe.h"
#include "describe/signature.h"

namespace quorkit::cli {
namespace {

/// From Idl on always of the whole library.
enum class Form { Text, Json, Markdown, Idl, Manifest, CHeader };

struct DescribeLine {
    Form form = Form::Text;
    std::optional<String> name;
};

DescribeLine parseDescribe(std::span<const String> arguments) {
    DescribeLine line;
    for (const String& word : arguments) {
        if (word == u"--json")
            line.form = Form::Json;
        else if (word == u"--markdown")
            line.form = Form::Markdown;
        else if (word == u"--idl")
            line.form = Form::Idl;
        else if (word == u"--manifest")
            line.form = Form::Manifest;
        else if (word == u"--c-header")
            line.form = Form::CHeader;
        else if (word.starts_with(u"-"))
            throw UsageError("no such option: " + toUtf8(word));
        else if (line.name)
            throw UsageError("more than one name");
        else
            line.name = word;
    }
    if (line.name && line.form >= Form::Idl)
        throw UsageError("interface definition, manifest and C header are of the whole library");
    return line;
}

template <class... What>
void write(std::ostream& out, Form form, const What&... what) {
    switch (form) {
        case Form::Text:
            out << describe::asText(what...);
            return;
        case Form::Json:
            out << describe::asJson(what...).dump(2) << '\n';
            return;
        case Form::Markdown:
            out << describe::asMarkdown(what...);
            return;
        case Form::Idl:
            out << describe::asIdl();
            return;
        case Form::Manifest:
            out << describe::asManifest();
            return;
        case Form::CHeader:
            out << describe::asCHeader();
            return;
    }
}

/// A property has two rows, one for its get and one for its let.
std::vector<const MemberInfo*> membersNamed(const ClassInfo& info, StringView name) {
    std::vector<const MemberInfo*> members;
    for (const CallKind kind : {CallKind::Call, CallKind::Let})
        if (const MemberInfo* member = findMember(info, name, kind)) members.push_back(member);
    if (members.empty()) raise(ErrorNumber::NoSuchMember);
    return members;
}

}  // namespace

void describeCommand(std::span<const String> arguments, std::ostream& out) {
    const DescribeLine line = parseDescribe(arguments);
    if (!line.name) return write(out, line.form);
    if (const EnumerationInfo* enumeration = findEnumeration(*line.name))
        return write(out, line.form, *enumeration);
    if (const RecordInfo* record = findRecord(*line.name)) return write(out, line.form, *record);
    const std::size_t dot = line.name->find(u'.');
    const ClassInfo& info = describe::classNamed(StringView(*line.name).substr(0, dot));
    if (dot == String::npos) return write(out, line.form, info);
    for (const MemberInfo* member : membersNamed(info, StringView(*line.name).substr(dot + 1)))
        write(out, line.form, *member);
}

}  // namespace quorkit::cli
