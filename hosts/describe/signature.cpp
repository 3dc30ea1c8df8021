#include "describe/signature.h"

#include <quorkit/errors.h>

#include <cstdio>

#include "json/plain_text.h"

namespace quorkit::describe {
namespace {

std::string literal(const Variant& value) {
    if (value.is<ObjectRef>()) return "Nothing";
    if (value.is<Empty>()) return "Empty";
    if (!value.is<String>()) return json::plainText(value);
    std::string text = "\"";
    for (const char one : json::plainText(value)) text.append(one == '"' ? 2 : 1, one);
    return text + '"';
}

std::string declaration(const ParameterInfo& parameter) {
    std::string text = parameter.optional() ? "Optional " : "";
    if (parameter.byReference) text += "ByRef ";
    text.append(parameter.name).append(" As ").append(parameter.type.name());
    if (parameter.optional())
        if (const Variant value = parameter.defaultValue(); !value.isMissing())
            text += " = " + literal(value);
    return text;
}

}  // namespace

std::string signature(const MemberInfo& member) {
    const bool hasResult = member.result.type != Type::None;
    std::string text = member.kind == MemberKind::PropertyGet   ? "Property Get "
                       : member.kind == MemberKind::PropertyLet ? "Property Let "
                       : hasResult                              ? "Function "
                                                                : "Sub ";
    text.append(member.name).append("(");
    for (const ParameterInfo& parameter : member.parameters()) {
        if (!text.ends_with('(')) text += ", ";
        text += declaration(parameter);
    }
    text += ')';
    if (hasResult) text.append(" As ").append(member.result.name());
    return text;
}

const char* kindName(ClassKind kind) {
    switch (kind) {
        case ClassKind::Global:
            return "global";
        case ClassKind::Creatable:
            return "creatable";
        case ClassKind::Runtime:
            break;
    }
    return "runtime";
}

const char* kindName(MemberKind kind) {
    switch (kind) {
        case MemberKind::PropertyGet:
            return "get";
        case MemberKind::PropertyLet:
            return "let";
        case MemberKind::Method:
            break;
    }
    return "method";
}

const ClassInfo& classNamed(StringView name) {
    const ClassInfo* info = findClass(name);
    if (info == nullptr) raise(ErrorNumber::CannotCreateObject);
    return *info;
}

std::string identifierText(Long identifier) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(identifier));
    return text;
}

}  // namespace quorkit::describe
