#include "runtime/compare.h"

#include <quorkit/errors.h>

namespace quorkit::runtime {
namespace {

enum class Kind { Null, Empty, Number, Text };

/// One side of a comparison. Empty is already replaced by what it means beside the other side.
struct Operand {
    Kind kind = Kind::Empty;
    Double number = 0;
    StringView text = {};
};

struct ToOperand {
    Operand operator()(Null) const { return {Kind::Null}; }
    Operand operator()(Empty) const { return {}; }
    Operand operator()(Double value) const { return {Kind::Number, value}; }
    Operand operator()(Boolean value) const { return (*this)(value ? -1.0 : 0.0); }
    Operand operator()(Integer value) const { return (*this)(static_cast<Double>(value)); }
    Operand operator()(Long value) const { return (*this)(static_cast<Double>(value)); }
    Operand operator()(Date value) const { return (*this)(value.days); }
    Operand operator()(const String& value) const { return {Kind::Text, 0, value}; }
    Operand operator()(const ObjectRef& value) const {
        raise(value == nullptr ? ErrorNumber::ObjectNotSet : ErrorNumber::NoSuchMember);
    }
    template <class T>
    Operand operator()(const T&) const {
        raise(ErrorNumber::TypeMismatch);
    }
};

Operand operandOf(const Variant& value) {
    return std::visit(ToOperand{}, static_cast<const VariantValue&>(value));
}

}  // namespace

std::partial_ordering compare(const Variant& a, const Variant& b) {
    Operand x = operandOf(a);
    Operand y = operandOf(b);
    if (x.kind == Kind::Null || y.kind == Kind::Null) return std::partial_ordering::unordered;
    if (x.kind == Kind::Empty) x.kind = y.kind;
    if (y.kind == Kind::Empty) y.kind = x.kind;
    if (x.kind != y.kind) return x.kind <=> y.kind;
    if (x.kind != Kind::Number) return x.text <=> y.text;
    if (x.number < y.number) return std::partial_ordering::less;
    if (x.number > y.number) return std::partial_ordering::greater;
    return std::partial_ordering::equivalent;
}

bool equal(const Variant& a, const Variant& b) {
    if (a.is<ErrorValue>() && b.is<ErrorValue>()) return a == b;
    return std::is_eq(compare(a, b));
}

}  // namespace quorkit::runtime
