// Builds the catalogue row of a member from the C++ signature of its function. Types, by value or
// by reference, optional or not and defaults all come from the signature.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/dispatch.h>
#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/picture.h>

#include <cstddef>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorkit {

class QuorCollection;

/// A new object of a public class, for a member that returns the class by value.
ObjectRef objectOf(QuorCollection result);

}  // namespace quorkit

namespace quorkit::frame {

/// The rows of a class, specialised in its <class>_members.cpp.
template <class C>
std::span<const MemberInfo> memberRows();

#define ENUMERATION(name, sentence)               \
    constexpr const char* enumerationName(name) { \
        return #name;                             \
    }
#define CONSTANT(name, value)
#define END(name)
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END

/// Types that stand in a Variant as they are.
template <class T>
concept Native = std::is_same_v<T, Variant> || VariantAlternative<T>;

template <class T>
constexpr TypeInfo typeOf() {
    if constexpr (std::is_void_v<T>)
        return {Type::None, ""};
    else if constexpr (std::is_same_v<T, Boolean>)
        return {Type::Bool, "Boolean"};
    else if constexpr (std::is_same_v<T, Integer>)
        return {Type::Int16, "Integer"};
    else if constexpr (std::is_same_v<T, Long>)
        return {Type::Int32, "Long"};
    else if constexpr (std::is_same_v<T, Double>)
        return {Type::Float, "Double"};
    else if constexpr (std::is_same_v<T, Date>)
        return {Type::Date, "Date"};
    else if constexpr (std::is_same_v<T, String>)
        return {Type::Text, "String"};
    else if constexpr (std::is_same_v<T, Variant>)
        return {Type::Any, "Variant"};
    else if constexpr (std::is_same_v<T, Array<String>>)
        return {Type::TextArray, "String()"};
    else if constexpr (std::is_same_v<T, Array<Byte>>)
        return {Type::ByteArray, "Byte()"};
    else if constexpr (std::is_same_v<T, Array<Variant>>)
        return {Type::AnyArray, "Variant()"};
    else if constexpr (std::is_same_v<T, ObjectRef>)
        return {Type::Object, "Object"};
    else if constexpr (std::is_same_v<T, CollectionRef>)
        return {Type::Object, "Collection"};
    else if constexpr (std::is_same_v<T, DictionaryRef>)
        return {Type::Object, "Dictionary"};
    else if constexpr (std::is_same_v<T, PictureRef>)
        return {Type::Object, "Picture"};
    else if constexpr (std::is_same_v<T, QuorCollection>)
        return {Type::Object, "QuorCollection"};
    else
        return {Type::Int32, enumerationName(T{})};
}

/// What a parameter's C++ type says about it.
template <class P>
struct Signature {
    using Value = P;
    static constexpr bool byReference = false;
    static constexpr bool changed = false;
    static constexpr Variant (*defaultValue)() = nullptr;
};
template <class T>
struct Signature<const T&> : Signature<T> {};
template <class T>
struct Signature<T&> : Signature<T> {
    static constexpr bool byReference = true;
    static constexpr bool changed = true;
};
template <class T>
struct Signature<Unchanged<T>> : Signature<T> {
    static constexpr bool byReference = true;
};
template <class T, auto... Default>
struct Signature<Optional<T, Default...>> : Signature<T> {
    static Variant makeDefault() { return Variant(Optional<T, Default...>::defaultValue()); }
    static constexpr Variant (*defaultValue)() = makeDefault;
};

template <class P>
constexpr ParameterInfo parameter(const char* name) {
    using S = Signature<P>;
    return {name, typeOf<typename S::Value>(), S::byReference, S::changed, S::defaultValue};
}

/// One argument on its way into the member, and back out again when the member may change it.
template <class P>
class Argument {
    using Value = typename Signature<P>::Value;

   public:
    explicit Argument(Variant& slot) : slot_(slot) {
        if constexpr (std::is_enum_v<Value>)
            local_ = static_cast<Value>(slot.get<Long>());
        else if constexpr (!Native<Value>)
            local_ = narrowed(slot.get<ObjectRef>());
    }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;
    ~Argument() {
        if constexpr (!Native<Value> && Signature<P>::changed) slot_ = Variant(local_);
    }

    Value& value() {
        if constexpr (std::is_same_v<Value, Variant>)
            return slot_;
        else if constexpr (Native<Value>)
            return slot_.get<Value>();
        else
            return local_;
    }

   private:
    /// Error 13 for an object of another class, whatever it calls itself.
    static Value narrowed(const ObjectRef& object) {
        auto found = std::dynamic_pointer_cast<typename Value::element_type>(object);
        if (object != nullptr && found == nullptr) raise(ErrorNumber::TypeMismatch);
        return found;
    }

    Variant& slot_;
    [[no_unique_address]] std::conditional_t<Native<Value>, std::monostate, Value> local_;
};

/// The shape of a member function and how to run it, the same whether it is const or not.
template <auto F, class R, class C, class... P>
struct Shape {
    using Result = std::remove_cvref_t<R>;
    static constexpr std::size_t arity = sizeof...(P);

    static Variant run(void* self, Variant* slots) {
        return run(static_cast<C*>(self), slots, std::index_sequence_for<P...>());
    }
    static constexpr auto parameters(const char* const* names) {
        return parameters(names, std::index_sequence_for<P...>());
    }

   private:
    template <std::size_t... I>
    static Variant run(C* self, [[maybe_unused]] Variant* slots, std::index_sequence<I...>) {
        [[maybe_unused]] std::tuple<Argument<P>...> arguments(slots[I]...);
        const auto call = [&]() -> R {
            return (self->*F)(static_cast<P>(std::get<I>(arguments).value())...);
        };
        if constexpr (std::is_void_v<R>) {
            call();
            return {};
        } else if constexpr (requires { objectOf(call()); }) {
            return objectOf(call());
        } else {
            return Variant(call());
        }
    }
    template <std::size_t... I>
    static constexpr auto parameters([[maybe_unused]] const char* const* names,
                                     std::index_sequence<I...>) {
        return std::array<ParameterInfo, MemberInfo::kMaxParameters>{parameter<P>(names[I])...};
    }
};
template <auto F, class R, class C, class... P>
constexpr Shape<F, R, C, P...> shapeOf(R (C::*)(P...)) {
    return {};
}
template <auto F, class R, class C, class... P>
constexpr Shape<F, R, C, P...> shapeOf(R (C::*)(P...) const) {
    return {};
}
template <auto F>
using Function = decltype(shapeOf<F>(F));

template <auto F>
consteval MemberInfo row(Long identifier, const char* name, MemberKind kind,
                         const char* const* names, const char* sentence) {
    using Member = Function<F>;
    static_assert(Member::arity <= MemberInfo::kMaxParameters);
    return {identifier,    name,
            kind,          typeOf<typename Member::Result>(),
            Member::arity, Member::parameters(names),
            sentence,      &Member::run};
}

/// A method with parameters: one name for each of them.
template <auto F, std::size_t N>
consteval MemberInfo method(Long identifier, const char* name, const char* const (&names)[N],
                            const char* sentence) {
    static_assert(N == Function<F>::arity, "one name for every parameter");
    return row<F>(identifier, name, MemberKind::Method, names, sentence);
}
template <auto F>
consteval MemberInfo method(Long identifier, const char* name, const char* sentence) {
    static_assert(Function<F>::arity == 0, "one name for every parameter");
    return row<F>(identifier, name, MemberKind::Method, nullptr, sentence);
}
template <auto F>
consteval MemberInfo propertyGet(Long identifier, const char* name, const char* sentence) {
    static_assert(Function<F>::arity == 0, "the properties of this library have no index");
    return row<F>(identifier, name, MemberKind::PropertyGet, nullptr, sentence);
}
template <auto F>
consteval MemberInfo propertyLet(Long identifier, const char* name, const char* sentence) {
    static_assert(Function<F>::arity == 1, "a property takes its new value");
    constexpr const char* names[] = {"newValue"};
    return row<F>(identifier, name, MemberKind::PropertyLet, names, sentence);
}

}  // namespace quorkit::frame
