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
///
/// An object lives as long as its last reference. What it holds in Variants goes with it, however
/// long the chain of objects and arrays: the stack does not grow with it. Objects that hold each
/// other in a circle, or themselves, keep each other: their memory, and what they have open, is
/// given back when one of them lets go, otherwise only when the process ends.
class Object {
   public:
    virtual ~Object() = default;

    /// Lets go of all values that clients gave the object to keep, which opens every circle that
    /// it is in; for a host whose client is gone. Of the library's objects Collection, Dictionary
    /// and QuorCollection keep such, and are empty afterwards. Never an error.
    virtual void letGo() {}

    /// The published name of the object's class.
    virtual const char* className() const = 0;

    /// The identifier of the member `name`, matched without regard to case.
    /// Error 438 when there is none.
    virtual Long identifierOf(StringView name) const;

    /// Calls a member by identifier. For Let the new value is the last positional argument.
    /// Raises what the member raises, and 438, 448, 449, 450 or 13 for a call that does not fit it.
    virtual Variant invoke(Long identifier, CallKind kind, const Arguments& arguments);

    /// Calls a member by name, as `invoke` does by identifier. An object of a client's own has
    /// members by name alone and need not answer the two above: it overrides className and this.
    virtual Variant call(StringView name, CallKind kind = CallKind::Call,
                         const Arguments& arguments = {});

    /// What a loop over the object visits, as a Variant array counted from 0.
    /// Error 438 for an object that is no container.
    virtual Variant elements();
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace quorkit
