// What every automation object answers: which member has a name, and a call of that member.
#pragma once

#include <quorkit/values.h>

#include <memory>
#include <span>

namespace quorkit {

class Variant;
struct NamedArgument;

/// How a client reaches a member. As in any automation client, Call and Get both reach a method
/// and a property's value.
enum class CallKind { Call, Get, Let };

/// The arguments of one call, in the caller's own storage. The call converts them in place to the
/// parameters' types, and leaves in them what the member gave back by reference.
struct Arguments {
    std::span<Variant> positional = {};
    std::span<NamedArgument> named = {};
};

/// Any automation object. An object reference without an object is Nothing.
class Object {
   public:
    virtual ~Object() = default;

    /// The published name of the object's class.
    virtual const char* className() const = 0;

    /// The identifier of the member `name`, matched without regard to case.
    /// Error 438 when there is none.
    virtual Long identifierOf(StringView name) const;

    /// Calls a member by identifier. For Let the new value is the last positional argument.
    /// Raises what the member raises, and 438, 448, 449, 450 or 13 for a call that does not fit it.
    virtual Variant invoke(Long identifier, CallKind kind, const Arguments& arguments);

    /// Calls a member by name.
    Variant call(StringView name, CallKind kind = CallKind::Call, const Arguments& arguments = {});
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace quorkit
