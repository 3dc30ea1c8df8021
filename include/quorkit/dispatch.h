// Calling the library's classes by name: what a host does for its client.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/object.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

#include <map>
#include <memory>
#include <span>
#include <vector>

namespace quorkit {

/// One client's view of the library. It owns the client's global objects; created objects live
/// as long as their last reference. Use it from one thread at a time.
///
///     Library library;
///     std::vector<Variant> arguments = {u"0", u"7", Long{3}};
///     Variant text = library.global(u"GQuorStrings")->call(u"LPad", CallKind::Call, {arguments});
class Library {
   public:
    explicit Library(Ports& ports = ports::native()) : ports_(ports) {}

    /// A new instance of a class. Error 429 when there is no such class.
    ObjectRef create(StringView className);

    /// The client's one instance of a global class, made on first use.
    /// Error 429 when there is no such global class.
    ObjectRef global(StringView className);

   private:
    Ports& ports_;
    std::map<const ClassInfo*, ObjectRef> globals_;
};

/// An object whose class stands in the catalogue.
class CatalogueObject : public Object {
   public:
    explicit CatalogueObject(Ports& ports) : ports_(ports) {}

    virtual const ClassInfo& info() const = 0;
    const char* className() const override { return info().name; }
    Long identifierOf(StringView name) const override;
    Variant invoke(Long identifier, CallKind kind, const Arguments& arguments) override;

    /// Runs a member of the object's own class with one value per parameter (see `arrange`).
    /// Converts the values in place first, a text to a Date as the user's language has it;
    /// afterwards they are the final values. Error 13 when a value does not convert, and whatever
    /// the member raises.
    Variant run(const MemberInfo& member, std::span<Variant> values);

   private:
    virtual void* self() = 0;
    Ports& ports_;
};

/// Puts arguments into the order of the member's parameters, `missing` for each one left out.
/// Errors 448 (no parameter of that name), 449 (a required argument left out), 450 (too many
/// arguments, or one given twice); else the arguments are moved from.
std::vector<Variant> arrange(const MemberInfo& member, const Arguments& arguments);

}  // namespace quorkit
