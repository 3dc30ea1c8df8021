#include "frame/arguments.h"

#include <utility>

#include "frame/pending_error.h"

namespace quorkit::frame {

Sources sourcesOf(const MemberInfo& member, const Arguments& arguments) {
    if (arguments.positional.size() > member.parameterCount)
        raiseToClient(ErrorNumber::WrongNumberOfArguments);
    Sources sources = {};
    for (std::size_t i = 0; i < arguments.positional.size(); ++i)
        sources[i] = &arguments.positional[i];
    for (NamedArgument& one : arguments.named) {
        const auto position = findParameter(member, one.name);
        if (!position) raiseToClient(ErrorNumber::NamedArgumentNotFound);
        if (sources[*position] != nullptr) raiseToClient(ErrorNumber::WrongNumberOfArguments);
        sources[*position] = &one.value;
    }
    return sources;
}

Values arrange(const MemberInfo& member, const Sources& sources, bool variablesMayBeOmitted) {
    const auto isLeftOut = [&](std::size_t i) {
        return sources[i] == nullptr || sources[i]->isMissing();
    };
    const auto mayBeLeftOut = [&](const ParameterInfo& parameter) {
        return parameter.optional() || (variablesMayBeOmitted && parameter.changed);
    };
    for (std::size_t i = 0; i < member.parameterCount; ++i)
        if (isLeftOut(i) && !mayBeLeftOut(member.parameterRow[i]))
            raiseToClient(ErrorNumber::ArgumentNotOptional);

    Values values;
    for (std::size_t i = 0; i < member.parameterCount; ++i) {
        const ParameterInfo& parameter = member.parameterRow[i];
        if (!isLeftOut(i))
            values[i] = std::move(*sources[i]);
        else
            values[i] =
                parameter.optional() ? Variant::missing() : initialValue(parameter.type.type);
    }
    return values;
}

Variant initialValue(Type type) {
    switch (type) {
        case Type::Boolean:
            return Boolean();
        case Type::Integer:
            return Integer();
        case Type::Long:
            return Long();
        case Type::Double:
            return Double();
        case Type::Date:
            return Date();
        case Type::String:
            return String();
        case Type::StringArray:
            return Array<String>();
        case Type::ByteArray:
            return Array<Byte>();
        case Type::VariantArray:
            return Array<Variant>();
        case Type::Object:
            return ObjectRef();
        case Type::None:
        case Type::Variant:
            break;
    }
    return {};
}

}  // namespace quorkit::frame
