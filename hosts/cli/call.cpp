#include "cli/call.h"

#include <quorkit/dispatch.h>
#include <quorkit/utf8.h>

#include <optional>
#include <vector>

#include "cli/escapes.h"
#include "cli/failure.h"
#include "cli/print.h"
#include "cli/usage.h"
#include "describe/signature.h"
#include "json/plain_text.h"
#include "json/value_json.h"

namespace quorkit::cli {
namespace {

struct Assignment {
    String name;
    String text;
};

struct CallLine {
    String className;
    String member;
    std::vector<String> positional;
    std::vector<Assignment> named;
    std::vector<Assignment> properties;
    bool json = false;
};

Assignment assignment(const String& text) {
    const std::size_t mark = text.find(u'=');
    if (mark == 0 || mark == String::npos) throw UsageError("name=value expected: " + toUtf8(text));
    return {text.substr(0, mark), text.substr(mark + 1)};
}

/// Options may be anywhere before "--". A text like -5 is no option.
CallLine parseCall(std::span<const String> arguments) {
    CallLine line;
    std::vector<String> texts;
    bool escapes = false;
    bool options = true;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String& word = arguments[i];
        if (!options || (!word.starts_with(u"--") && word != u"-e")) {
            texts.push_back(word);
        } else if (word == u"--") {
            options = false;
        } else if (word == u"-e") {
            escapes = true;
        } else if (word == u"--json") {
            line.json = true;
        } else if ((word == u"--arg" || word == u"--set") && i + 1 < arguments.size()) {
            (word == u"--arg" ? line.named : line.properties).push_back(assignment(arguments[++i]));
        } else {
            throw UsageError("no such option, or nothing behind it: " + toUtf8(word));
        }
    }
    const std::size_t dot = texts.empty() ? String::npos : texts[0].find(u'.');
    if (dot == String::npos) throw UsageError("CLASS.MEMBER expected");
    line.className = texts[0].substr(0, dot);
    line.member = texts[0].substr(dot + 1);
    line.positional.assign(texts.begin() + 1, texts.end());
    if (escapes) {
        for (String& text : line.positional) text = unescape(text);
        for (Assignment& one : line.named) one.text = unescape(one.text);
        for (Assignment& one : line.properties) one.text = unescape(one.text);
    }
    return line;
}

bool holdsStructures(Type type) {
    return type == Type::Variant || type == Type::StringArray || type == Type::ByteArray ||
           type == Type::VariantArray || type == Type::Object;
}

/// The value of a typed text for a parameter of that type: the text itself, or the value whose JSON
/// notation it is. The call converts it further.
Variant valueOf(const String& text, Type type) {
    if (holdsStructures(type) && (text.starts_with(u'{') || text.starts_with(u'['))) {
        try {
            return json::fromJson(json::readJson(toUtf8(text)), json::ObjectTable());
        } catch (const json::JsonError&) {
        } catch (const json::BadValue&) {
        }
    }
    return text;
}

/// The type of a parameter. Any other position is accepted too, because the call reports what is
/// wrong.
Type typeOf(const MemberInfo* member, std::optional<std::size_t> parameter) {
    const bool known = member != nullptr && parameter && *parameter < member->parameterCount;
    return known ? member->parameterRow[*parameter].type.type : Type::Variant;
}

void orThrow(const CallResult& result) {
    if (result.error) throw Failure(*result.error);
}

void setProperty(Object& target, const ClassInfo& info, const Assignment& property) {
    const MemberInfo* member = findMember(info, property.name, CallKind::Let);
    orThrow(quorkit::call(target, {.member = property.name,
                                   .kind = CallKind::Let,
                                   .positional = {valueOf(property.text, typeOf(member, 0))},
                                   .constantsByName = true}));
}

/// The call that a person typed, with the position of each argument.
Call requestOf(const CallLine& line, const MemberInfo* member) {
    Call request{.member = line.member, .variablesMayBeOmitted = true, .constantsByName = true};
    for (std::size_t i = 0; i < line.positional.size(); ++i)
        request.positional.push_back(valueOf(line.positional[i], typeOf(member, i)));
    for (const Assignment& one : line.named) {
        const auto parameter = member == nullptr ? std::nullopt : findParameter(*member, one.name);
        request.named.push_back({one.name, valueOf(one.text, typeOf(member, parameter))});
    }
    return request;
}

/// What was given for a parameter; null when it was left out.
const Variant* givenFor(const Call& request, const MemberInfo& member, std::size_t parameter) {
    if (parameter < request.positional.size()) return &request.positional[parameter];
    for (const NamedArgument& one : request.named)
        if (findParameter(member, one.name) == parameter) return &one.value;
    return nullptr;
}

void print(std::ostream& out, const CallResult& result, const MemberInfo& member,
           const Call& request) {
    printLines(out, result.result);
    for (std::size_t i = 0; i < result.arguments.size(); ++i) {
        if (!member.parameterRow[i].changed) continue;
        const Variant* given = givenFor(request, member, i);
        const std::string text = json::plainText(result.arguments[i]);
        if (given == nullptr || given->isMissing() || json::plainText(*given) != text)
            out << member.parameterRow[i].name << " = " << text << '\n';
    }
}

}  // namespace

std::string call(std::span<const String> arguments, std::ostream& out, Ports& ports) {
    const CallLine line = parseCall(arguments);
    Library library(ports);
    const ObjectRef target = library.object(line.className);
    const ClassInfo& info = describe::classNamed(line.className);
    for (const Assignment& property : line.properties) setProperty(*target, info, property);
    const MemberInfo* member = findMember(info, line.member, CallKind::Call);
    const Call request = requestOf(line, member);
    const CallResult result = quorkit::call(*target, request);
    orThrow(result);
    json::ObjectTable objects;
    if (line.json)
        out << json::writeJson(json::toJson(result, objects)) << '\n';
    else
        print(out, result, *member, request);
    return result.reason;
}

}  // namespace quorkit::cli
