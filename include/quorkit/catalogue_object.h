// An object whose class stands in the catalogue.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/errors.h>
#include <quorkit/object.h>

#include <cstddef>
#include <optional>
#include <span>

namespace quorkit {

class CatalogueObject : public Object {
   public:
    virtual const ClassInfo& info() const = 0;
    CatalogueObject* catalogued() final { return this; }
    const char* className() const override { return info().name; }
    Long identifierOf(StringView name) const override;
    Variant invoke(Long identifier, CallKind kind, const Arguments& arguments) override;
    Variant call(StringView name, CallKind kind = CallKind::Call,
                 const Arguments& arguments = {}) override;

    /// The first value of a call that does not fit its parameter, and the error that tells so.
    struct Misfit {
        std::size_t position;
        ErrorNumber number;
    };
    /// Converts the values of a call in place, one for each parameter of a member of the object's
    /// own class; a text becomes a Date by the rules of the user's language. A value that does not
    /// convert is no misfit when the parameter only carries a result out.
    std::optional<Misfit> fit(const MemberInfo& member, std::span<Variant* const> values);

    /// Runs a member of the object's own class with values that fit; after the call they are the
    /// final values. What the member throws passes as it is. After a failure `fitting` is the
    /// position of an object that is not of the class that its parameter needs, or else the number
    /// of the values.
    Variant run(const MemberInfo& member, std::span<Variant* const> values, std::size_t& fitting);

   private:
    Variant invoke(const MemberInfo* member, const Arguments& arguments);

    /// The object that the class's rows were made for.
    virtual void* self() = 0;
    /// The ports that the object works on; null when none of its members needs any.
    virtual Ports* ports() { return nullptr; }
};

}  // namespace quorkit
