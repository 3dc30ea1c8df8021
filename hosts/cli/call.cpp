#include "cli/call.h"

#include <vector>

#include "cli/escapes.h"
#include "cli/invocation.h"
#include "cli/print.h"
#include "cli/usage.h"
#include "cli/utf8.h"

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

/// Options may stand anywhere, until "--". A text like -5 is no option.
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
    return type == Type::Any || type == Type::TextArray || type == Type::ByteArray ||
           type == Type::AnyArray || type == Type::Object;
}

/// What a typed text means for a parameter of that type: itself, or the value whose JSON notation
/// it is. Dispatch converts it further.
Variant valueOf(const String& text, Type type) {
    if (holdsStructures(type) && (text.starts_with(u'{') || text.starts_with(u'['))) {
        try {
            return fromJson(readJson(toUtf8(text)), ObjectTable());
        } catch (const JsonError&) {
        } catch (const BadValue&) {
        }
    }
    return text;
}

template <class T>
Variant initial() {
    return T();
}
Variant (*initialValue(Type type))() {
    switch (type) {
        case Type::Bool:
            return initial<Boolean>;
        case Type::Int16:
            return initial<Integer>;
        case Type::Int32:
            return initial<Long>;
        case Type::Float:
            return initial<Double>;
        case Type::Date:
            return initial<Date>;
        case Type::Text:
            return initial<String>;
        case Type::TextArray:
            return initial<Array<String>>;
        case Type::ByteArray:
            return initial<Array<Byte>>;
        case Type::AnyArray:
            return initial<Array<Variant>>;
        case Type::Object:
            return initial<ObjectRef>;
        case Type::None:
        case Type::Any:
            break;
    }
    return initial<Variant>;
}

/// The member, but what it gives back by reference need not be given.
MemberInfo withOptionalOutputs(MemberInfo member) {
    for (std::size_t i = 0; i < member.parameterCount; ++i) {
        ParameterInfo& parameter = member.parameterRow[i];
        if (parameter.changed && !parameter.optional())
            parameter.defaultValue = initialValue(parameter.type.type);
    }
    return member;
}

void setProperty(CatalogueObject& target, const Assignment& property) {
    const MemberInfo& member = memberOf(target.info(), property.name, CallKind::Let);
    std::vector<Variant> value = {valueOf(property.text, member.parameters().back().type.type)};
    invoke(target, member, {value});
}

/// `given` receives the arguments as they were before the call.
Outcome run(CatalogueObject& target, const MemberInfo& published, const CallLine& line,
            std::vector<Variant>& given) {
    const MemberInfo member = withOptionalOutputs(published);
    std::vector<Variant> positional(line.positional.begin(), line.positional.end());
    std::vector<NamedArgument> named;
    for (const Assignment& one : line.named) named.push_back({one.name, one.text});

    Outcome outcome;
    outcome.arguments = arrange(member, {positional, named});
    for (std::size_t i = 0; i < outcome.arguments.size(); ++i)
        if (const auto* text = outcome.arguments[i].getIf<String>())
            outcome.arguments[i] = valueOf(*text, member.parameterRow[i].type.type);
    given = outcome.arguments;
    outcome.result = target.run(member, outcome.arguments);
    return outcome;
}

void print(std::ostream& out, const Outcome& outcome, const MemberInfo& member,
           const std::vector<Variant>& given) {
    printLines(out, outcome.result);
    for (std::size_t i = 0; i < given.size(); ++i) {
        if (!member.parameterRow[i].changed) continue;
        const std::string text = plainText(outcome.arguments[i]);
        if (given[i].isMissing() || plainText(given[i]) != text)
            out << member.parameterRow[i].name << " = " << text << '\n';
    }
}

}  // namespace

void call(std::span<const String> arguments, std::ostream& out, Ports& ports) {
    const CallLine line = parseCall(arguments);
    Library library(ports);
    const Target target = objectOf(library, line.className);
    for (const Assignment& property : line.properties) setProperty(*target, property);
    const MemberInfo& member = memberOf(target->info(), line.member, CallKind::Call);
    std::vector<Variant> given;
    const Outcome outcome = run(*target, member, line, given);
    ObjectTable objects;
    if (line.json)
        out << writeJson(toJson(outcome, objects)) << '\n';
    else
        print(out, outcome, member, given);
}

}  // namespace quorkit::cli
