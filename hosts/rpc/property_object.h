// An object that is nothing but its properties: what a client without objects of its own hands to
// members that expect some.
#pragma once

#include <quorkit/QuorCollection.h>
#include <quorkit/object.h>
#include <quorkit/variant.h>

#include <utility>
#include <vector>

namespace quorkit::rpc {

class PropertyObject final : public Object {
   public:
    using Property = std::pair<String, Variant>;

    /// Names match without regard to letter case; of two that are the same the second counts.
    explicit PropertyObject(std::vector<Property> properties) {
        for (auto& [name, value] : properties) properties_.setValueByKey(std::move(value), name);
    }

    const char* className() const override { return "Object"; }
    /// Has no properties any more.
    void letGo() override { properties_.letGo(); }
    /// Errors 438, 448 and 450 for what reads or writes no property.
    Variant call(StringView name, CallKind kind, const Arguments& arguments) override;

   private:
    QuorCollection properties_;
};

}  // namespace quorkit::rpc
