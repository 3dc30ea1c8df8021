// An object of a public class, as late-bound clients use it.
#pragma once

#include <quorkit/catalogue_object.h>
#include <quorkit/ports/ports.h>

#include <memory>
#include <span>
#include <utility>

namespace quorkit::frame {

/// The rows of a class, specialised in its <class>_members.cpp.
template <class C>
std::span<const MemberInfo> memberRows();
/// The catalogue's entry of the class with these rows.
const ClassInfo& classOfRows(std::span<const MemberInfo> (*rows)());
/// The entry of the class in the catalogue.
template <class C>
const ClassInfo& classInfo() {
    static const ClassInfo& info = classOfRows(&memberRows<C>);
    return info;
}

template <class C>
class Instance final : public CatalogueObject {
   public:
    /// C is constructed from `from`.
    template <class From>
    Instance(Ports& ports, From&& from) : ports_(ports), self_(std::forward<From>(from)) {}
    const ClassInfo& info() const override { return classInfo<C>(); }
    void letGo() override {
        if constexpr (requires { self_.letGo(); }) self_.letGo();
    }

   private:
    void* self() override { return &self_; }
    Ports* ports() override { return &ports_; }

    Ports& ports_;
    C self_;
};

/// A new object, for a member that returns a public class by value.
template <class C>
ObjectRef objectOf(Ports& ports, C&& result) {
    return std::make_shared<Instance<C>>(ports, std::forward<C>(result));
}

}  // namespace quorkit::frame
