// An object that consists of properties. A client without objects of its own passes it to members
// that expect one.
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

    /// Names match without regard to letter case; of two equal names the second counts.
    explicit PropertyObject(std::vector<Property>&& properties) {
        for (auto& [name, value] : properties) properties_.setValueByKey(std::move(value), name);
    }

    const char* className() const override { return "Object"; }
    /// Removes all properties.
    void letGo() override { properties_.letGo(); }
    /// Error 438, 448 or 450 for a call that does not read or write a property.
    Variant call(StringView name, CallKind kind, const Arguments& arguments) override;

   private:
    QuorCollection properties_;
};

}  // namespace quorkit::rpc
