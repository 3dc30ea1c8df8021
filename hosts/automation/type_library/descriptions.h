// The catalogue's types and defaults in the form that type libraries have for them.
#pragma once

#include <oaidl.h>
#include <quorkit/catalogue.h>

#include <deque>
#include <functional>
#include <string>

namespace quorkit::automation {

/// Throws std::runtime_error when `result` is a failure; the text is `doing` and the result.
void expect(HRESULT result, const std::string& doing);

/// Describes types for one interface. A description may point to others, which this keeps.
class TypeDescriptions {
   public:
    /// `referenceTo` gives the interface's reference to the enumeration or interface of that name.
    explicit TypeDescriptions(std::function<HREFTYPE(const std::string& name)> referenceTo)
        : referenceTo_(std::move(referenceTo)) {}

    TYPEDESC of(const TypeInfo& type);
    TYPEDESC of(const ParameterInfo& parameter);

   private:
    /// A pointer to, or an array of, what `inner` describes.
    TYPEDESC around(VARTYPE kind, const TYPEDESC& inner);
    TYPEDESC named(const std::string& name);

    std::function<HREFTYPE(const std::string& name)> referenceTo_;
    std::deque<TYPEDESC> kept_;
};

/// Puts an optional parameter's default into `made`, which is Empty before, in the type that the
/// parameter has; a Variant's in its own. Leaves it Empty when the default is "missing". Throws
/// std::runtime_error for one that a type library has no room for.
void describeDefault(const ParameterInfo& parameter, VARIANT& made);

}  // namespace quorkit::automation
