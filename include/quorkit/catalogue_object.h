// An object whose class stands in the catalogue.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/object.h>

#include <span>

namespace quorkit {

class CatalogueObject : public Object {
   public:
    virtual const ClassInfo& info() const = 0;
    const char* className() const override { return info().name; }
    Long identifierOf(StringView name) const override;
    Variant invoke(Long identifier, CallKind kind, const Arguments& arguments) override;
    Variant call(StringView name, CallKind kind = CallKind::Call,
                 const Arguments& arguments = {}) override;

    /// Runs a member of the object's own class with one value for each parameter. First the values
    /// are converted in place, a text to a Date by the rules of the user's language; after the call
    /// they are the final values. Error 13 when a value does not convert, unless the parameter only
    /// carries a result out; what the member throws passes as it is. After a failure `fitting` is
    /// the position of the value that is not what its parameter needs, or else the number of the
    /// values.
    Variant run(const MemberInfo& member, std::span<Variant* const> values, std::size_t& fitting);

   private:
    Variant invoke(const MemberInfo* member, const Arguments& arguments);

    /// The object that the class's rows were made for.
    virtual void* self() = 0;
    /// The ports that the object works on; null when none of its members needs any.
    virtual Ports* ports() { return nullptr; }
};

}  // namespace quorkit
