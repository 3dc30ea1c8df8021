// An object that a client has handed in, called by name.
#pragma once

#include <quorkit/catalogue_object.h>
#include <quorkit/errors.h>
#include <quorkit/variant.h>

#include <memory>
#include <utility>
#include <vector>

#include "frame/error_patterns.h"

namespace quorkit::frame {

class ForeignObject {
   public:
    explicit ForeignObject(ObjectRef object) : object_(std::move(object)) {}

    /// `object` as a Kind: itself when it is one. A client's own object with the property `sign` is
    /// wrapped by `make`, which receives the object and the value of the property. Error 13 for any
    /// other object; Nothing stays Nothing.
    template <class Kind, class Make>
    static std::shared_ptr<Kind> adapted(const ObjectRef& object, StringView sign, Make make) {
        if (object == nullptr) return nullptr;
        if (auto own = std::dynamic_pointer_cast<Kind>(object)) return own;
        const bool ours = object->catalogued() != nullptr;
        Variant value;
        if (ours || !resumeNext([&] { value = ForeignObject(object).get(sign); }))
            raise(ErrorNumber::TypeMismatch);
        return make(object, value);
    }

    Variant get(StringView name, std::vector<Variant> arguments = {}) const {
        return object_->call(name, CallKind::Get, {arguments});
    }
    Variant call(StringView name, std::vector<Variant> arguments = {}) const {
        return object_->call(name, CallKind::Call, {arguments});
    }
    void let(StringView name, std::vector<Variant> arguments) const {
        object_->call(name, CallKind::Let, {arguments});
    }

   private:
    ObjectRef object_;
};

}  // namespace quorkit::frame
