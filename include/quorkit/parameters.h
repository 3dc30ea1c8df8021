// Markers for parameters in a member's signature. The catalogue reads them from the declaration.
#pragma once

#include <quorkit/variant.h>

#include <concepts>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <utility>

namespace quorkit {

/// A parameter that the interface passes by reference although the member never changes it.
template <class T>
class Unchanged {
   public:
    Unchanged(const T& value) : value_(value) {}  // NOLINT(google-explicit-constructor)
    /// Accepts anything that a T can be made from, such as a literal.
    template <class U>
    requires(!std::is_same_v<std::remove_cvref_t<U>, T> &&
             !std::is_same_v<std::remove_cvref_t<U>, Unchanged> && std::constructible_from<T, U>)
        Unchanged(U&& value)  // NOLINT(google-explicit-constructor)
        : made_(std::in_place, std::forward<U>(value)), value_(*made_) {}
    Unchanged(const Unchanged&) = delete;
    Unchanged& operator=(const Unchanged&) = delete;

    operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }

   private:
    std::optional<T> made_;
    const T& value_;
};

/// A parameter that only carries a result out: the member never reads the value handed in. It
/// refers to the caller's variable, which must outlive it and stays as it was unless the member
/// sets it.
template <class T>
class Out {
   public:
    Out(T& target) : target_(target) {}  // NOLINT(google-explicit-constructor): as the variable
    template <class U>
    requires std::assignable_from<T&, U> Out& operator=(U&& value) {
        target_ = std::forward<U>(value);
        return *this;
    }

   private:
    T& target_;
};

/// A text as a template argument: Optional<String, Text(u"@#")>.
template <std::size_t N>
struct Text {
    char16_t units[N];
    consteval Text(const char16_t (&text)[N]) {  // NOLINT(google-explicit-constructor)
        for (std::size_t i = 0; i < N; ++i) units[i] = text[i];
    }
    operator String() const { return String(units, N - 1); }            // NOLINT
    operator Variant() const { return Variant(String(units, N - 1)); }  // NOLINT
};

namespace detail {
template <class T>
struct OptionalValue {
    using type = T;
};
template <class T>
struct OptionalValue<Unchanged<T>> {
    using type = T;
};
}  // namespace detail

/// A parameter that may be left out, with its default in the type. Without a stated default a
/// Variant is missing and any other type has its initial value. Declare it with `= {}`.
template <class T, auto... Default>
class Optional {
    static_assert(sizeof...(Default) <= 1);

   public:
    using Value = typename detail::OptionalValue<T>::type;

    Optional() : value_(defaultValue()) {}
    template <class U>
    requires(std::constructible_from<Value, U> && !std::is_same_v<std::remove_cvref_t<U>, Optional>)
        Optional(U&& value)  // NOLINT(google-explicit-constructor): as the value
        : value_(std::forward<U>(value)) {}

    operator const Value&() const { return value_; }  // NOLINT(google-explicit-constructor)
    const Value& operator*() const { return value_; }
    const Value* operator->() const { return &value_; }

    static Value defaultValue() {
        if constexpr (sizeof...(Default) == 1)
            return Value((Default, ...));
        else if constexpr (std::is_same_v<Value, Variant>)
            return Variant::missing();
        else
            return Value{};
    }

   private:
    Value value_;
};

}  // namespace quorkit
