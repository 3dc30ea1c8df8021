// Builds the catalogue row of a member from the signature of its C++ function, which tells the
// types, by value or by reference, optional or not, and the defaults.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/parameters.h>
#include <quorkit/picture.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

#include "frame/enumeration_rows.h"
#include "frame/instance.h"
#include "frame/value_types.h"

namespace quorkit::frame {

/// Types that a Variant holds without conversion.
template <class T>
concept Native = std::is_same_v<T, Variant> || VariantAlternative<T>;

/// A reference to an object of one of the runtime's classes.
template <class T>
concept RuntimeRef =
    std::derived_from<typename T::element_type, Object> && !std::is_same_v<T, ObjectRef>;
/// A public class that a member returns by value; a client receives it as a new object.
template <class T>
concept PublicClass = std::is_class_v<T> && !Native<T> && !requires {
    typename T::element_type;
};

template <class T>
constexpr TypeInfo typeOf() {
    if constexpr (std::is_enum_v<T>)
        return {Type::Long, enumerationOf(T{}), nullptr};
    else if constexpr (RuntimeRef<T>)
        return {Type::Object, nullptr, &classInfo<typename T::element_type>};
    else if constexpr (PublicClass<T>)
        return {Type::Object, nullptr, &classInfo<T>};
    else
        return {kPlainType<T>, nullptr, nullptr};
}

/// What the C++ type of a parameter tells about it.
template <class P>
struct Signature {
    using Value = P;
    static constexpr bool byReference = false;
    static constexpr bool changed = false;
    static constexpr bool result = false;
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
struct Signature<Out<T>> : Signature<T&> {
    static constexpr bool result = true;
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
    return {name,           typeOf<typename S::Value>(), S::byReference, S::changed, S::result,
            S::defaultValue};
}

/// The place of an argument.
struct Slot {
    Variant& value;
    std::size_t position;
    std::size_t& fitting;  ///< becomes `position` when the value is an object of a wrong class
};

/// One argument: it goes into the member, and back out if the member may change it.
template <class P>
class Argument {
    using Value = typename Signature<P>::Value;

   public:
    explicit Argument(const Slot& slot) : slot_(slot.value) {
        if constexpr (std::is_enum_v<Value>) {
            local_ = static_cast<Value>(slot_.get<Long>());
        } else if constexpr (!Native<Value>) {
            slot.fitting = slot.position;
            local_ = Value::element_type::of(slot_.get<ObjectRef>());
        }
        if constexpr (!Native<Value> && Signature<P>::changed) handed_ = local_;
    }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;
    ~Argument() {
        if constexpr (!Native<Value> && Signature<P>::changed)
            if (std::is_enum_v<Value> || local_ != handed_) slot_ = Variant(local_);
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
    using Local = std::conditional_t<Native<Value>, std::monostate, Value>;

    Variant& slot_;
    [[no_unique_address]] Local local_ = {};
    /// The value of `local_` before the call.
    [[no_unique_address]] std::conditional_t<Signature<P>::changed, Local, std::monostate> handed_ =
        {};
};

/// The shape of a member function, const or not, and how to run it.
template <auto F, class R, class C, class... P>
struct Shape {
    using Result = std::remove_cvref_t<R>;
    static constexpr std::size_t arity = sizeof...(P);

    static Variant run(void* self, Ports* ports, Variant* const* slots, std::size_t& fitting) {
        return run(static_cast<C*>(self), ports, slots, fitting, std::index_sequence_for<P...>());
    }
    static constexpr auto parameters(const char* const* names) {
        return parameters(names, std::index_sequence_for<P...>());
    }

   private:
    template <std::size_t... I>
    static Variant run(C* self, [[maybe_unused]] Ports* ports,
                       [[maybe_unused]] Variant* const* slots, std::size_t& fitting,
                       std::index_sequence<I...>) {
        [[maybe_unused]] std::tuple<Argument<P>...> arguments(Slot{*slots[I], I, fitting}...);
        fitting = arity;
        const auto call = [&]() -> R {
            return (self->*F)(static_cast<P>(std::get<I>(arguments).value())...);
        };
        if constexpr (std::is_void_v<R>) {
            call();
            return {};
        } else if constexpr (PublicClass<Result>) {
            return objectOf(*ports, call());
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
    static_assert(Function<F>::arity == 0, "one name for every parameter");
    return row<F>(identifier, name, MemberKind::PropertyGet, nullptr, sentence);
}
/// A property with indices, one name for each.
template <auto F, std::size_t N>
consteval MemberInfo propertyGet(Long identifier, const char* name, const char* const (&names)[N],
                                 const char* sentence) {
    static_assert(N == Function<F>::arity, "one name for every parameter");
    return row<F>(identifier, name, MemberKind::PropertyGet, names, sentence);
}
template <auto F>
consteval MemberInfo propertyLet(Long identifier, const char* name, const char* sentence) {
    static_assert(Function<F>::arity == 1, "a property takes its new value");
    constexpr const char* names[] = {"newValue"};
    return row<F>(identifier, name, MemberKind::PropertyLet, names, sentence);
}
template <auto F, std::size_t N>
consteval MemberInfo propertyLet(Long identifier, const char* name, const char* const (&names)[N],
                                 const char* sentence) {
    static_assert(N == Function<F>::arity, "one name for every parameter");
    return row<F>(identifier, name, MemberKind::PropertyLet, names, sentence);
}

}  // namespace quorkit::frame
