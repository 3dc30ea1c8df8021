// One late-bound call, as a command line or a message asks for it.
#pragma once

#include <quorkit/dispatch.h>

#include <memory>
#include <vector>

#include "cli/value_json.h"

namespace quorkit::cli {

/// An object that members can be called on.
using Target = std::shared_ptr<CatalogueObject>;

/// The client's one object of a global class, or a new one of a creatable class. Error 429 when
/// there is no such class.
Target objectOf(Library& library, StringView className);

/// The member that a call of this kind reaches. Error 438 when there is none.
const MemberInfo& memberOf(const ClassInfo& info, StringView name, CallKind kind);

struct Outcome {
    Variant result;
    std::vector<Variant> arguments;  ///< the final values of all parameters, in order
};

/// Raises what the member raises, and 13, 448, 449, 450 for arguments that do not fit it.
Outcome invoke(CatalogueObject& target, const MemberInfo& member, const Arguments& arguments);
/// The same for any object, by a member's name: error 438 when it has none of that name.
Outcome invoke(Object& target, StringView member, CallKind kind, std::vector<Variant> positional,
               std::vector<NamedArgument> named);

/// {"result": value, "args": [value, ...]}
Json toJson(const Outcome& outcome, ObjectTable& objects);

}  // namespace quorkit::cli
