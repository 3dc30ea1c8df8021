// An object that is nothing but its properties: what a client without objects of its own hands to
// members that expect some.
#pragma once

#include <quorkit/object.h>
#include <quorkit/variant.h>

#include <utility>
#include <vector>

namespace quorkit::cli {

class PropertyObject final : public Object {
   public:
    using Property = std::pair<String, Variant>;

    /// Of two names that differ in letter case alone the second is never found.
    explicit PropertyObject(std::vector<Property> properties)
        : properties_(std::move(properties)) {}

    const char* className() const override { return "Object"; }
    /// Has no properties any more.
    void letGo() override;
    Long identifierOf(StringView name) const override;
    /// Errors 438, 448 and 450 for what reads or writes no property.
    Variant invoke(Long identifier, CallKind kind, const Arguments& arguments) override;

   private:
    std::vector<Property> properties_;
};

}  // namespace quorkit::cli
