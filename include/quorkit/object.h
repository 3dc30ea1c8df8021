// The interface of every automation object: the identifier of a member by name, and calls.
#pragma once

#include <quorkit/values.h>

#include <memory>
#include <span>

namespace quorkit {

class CatalogueObject;
class Variant;
struct NamedArgument;

/// How a client reaches a member. As usual in automation, Call and Get both reach a method and the
/// value of a property.
enum class CallKind { Call, Get, Let };

/// The arguments of one call, in the caller's storage. The call converts them in place to the types
/// of the parameters; afterwards they hold the values that the member returned by reference.
struct Arguments {
    std::span<Variant> positional = {};
    std::span<NamedArgument> named = {};
};

/// Any automation object. An object reference without an object is Nothing.
///
/// An object lives as long as its last reference. The Variants in it are released with it, and the
/// stack does not grow, however long the chain of objects and arrays. Objects that refer to
/// themselves or to each other in a circle keep each other alive. Calling letGo on one of them
/// releases the circle; otherwise its memory and open files are given back only when the process
/// ends.
class Object {
   public:
    virtual ~Object() = default;

    /// Releases all values that clients gave the object to keep, and so opens every circle that the
    /// object is part of. A host calls it when its client is gone. Of the library's objects
    /// Collection, Dictionary and QuorCollection keep values; afterwards they are empty. Never an
    /// error.
    virtual void letGo() {}

    /// The object itself when its class stands in the catalogue, otherwise null.
    virtual CatalogueObject* catalogued() { return nullptr; }

    /// The published name of the object's class.
    virtual const char* className() const = 0;

    /// The identifier of the member `name`, without regard to case. Error 438 when there is none.
    virtual Long identifierOf(StringView name) const;

    /// Calls a member by identifier. For Let the new value is the last positional argument. Raises
    /// the errors of the member, and 438, 448, 449, 450 or 13 for a call that does not fit it.
    virtual Variant invoke(Long identifier, CallKind kind, const Arguments& arguments);

    /// Calls a member by name, otherwise like `invoke`. A client's own object has members by name
    /// alone: it overrides className and this, and need not override the two above.
    virtual Variant call(StringView name, CallKind kind = CallKind::Call,
                         const Arguments& arguments = {});

    /// The items that a loop over the object visits, as a Variant array counted from 0. Error 438
    /// for an object that is no container.
    virtual Variant elements();
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace quorkit
