// The tagged value that every late-bound call carries.
#pragma once

#include <quorkit/array.h>
#include <quorkit/object.h>
#include <quorkit/values.h>

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorkit {

struct Empty {
    friend bool operator==(Empty, Empty) { return true; }
};
struct Null {
    friend bool operator==(Null, Null) { return true; }
};
/// An error carried as a value, such as the one that stands for an omitted argument.
struct ErrorValue {
    std::uint32_t code = 0;
    friend bool operator==(ErrorValue, ErrorValue) = default;
};

using VariantValue = std::variant<Empty, Null, ErrorValue, Boolean, Integer, Long, Double, Date,
                                  String, Array<String>, Array<Byte>, Array<Variant>, ObjectRef>;

namespace detail {
template <class T, class Value>
inline constexpr bool isOneOf = false;
template <class T, class... Types>
inline constexpr bool isOneOf<T, std::variant<Types...>> = (std::is_same_v<T, Types> || ...);

/// Releases the contents of `value`, and their contents in turn, without recursion, however deep
/// they are nested. Up to a certain depth all is released when this returns, and `value` is Empty
/// if it held other values. Deeper contents are released before the outermost call of this returns.
void release(VariantValue& value) noexcept;  // NOLINT(bugprone-exception-escape)
}  // namespace detail

template <class T>
concept VariantAlternative = detail::isOneOf<std::remove_cvref_t<T>, VariantValue>;
template <class T>
concept Enumeration = std::is_enum_v<T>;

class Variant : public VariantValue {
   public:
    // A Variant converts from any of its values.
    // NOLINTBEGIN(google-explicit-constructor)

    /// Empty.
    Variant() = default;
    /// Holds exactly one of the value types; nothing is converted.
    template <VariantAlternative T>
    Variant(T&& value)
        : VariantValue(std::in_place_type<std::remove_cvref_t<T>>, std::forward<T>(value)) {}
    Variant(const char16_t* text) : Variant(String(text)) {}
    /// A constant of a public enumeration becomes its number.
    template <Enumeration E>
    Variant(E constant) : Variant(static_cast<Long>(constant)) {}
    template <std::derived_from<Object> T>
    Variant(const std::shared_ptr<T>& object) : Variant(ObjectRef(object)) {}

    // NOLINTEND(google-explicit-constructor)

    Variant(const Variant&) = default;
    Variant(Variant&&) noexcept = default;
    Variant& operator=(const Variant&) = default;
    Variant& operator=(Variant&&) noexcept = default;
    ~Variant() {  // NOLINT(bugprone-exception-escape)
        if (mayHoldValues()) detail::release(*this);
    }

    /// The value of an optional argument that the caller left out. It is not Empty.
    static Variant missing() { return ErrorValue{0x80020004}; }
    bool isMissing() const {
        return is<ErrorValue>() && get<ErrorValue>() == ErrorValue{0x80020004};
    }

    template <class T>
    bool is() const {
        return std::holds_alternative<T>(*this);
    }
    /// The value, of the type that `is` has confirmed.
    template <class T>
    T& get() {
        return *std::get_if<T>(static_cast<VariantValue*>(this));
    }
    template <class T>
    const T& get() const {
        return *std::get_if<T>(static_cast<const VariantValue*>(this));
    }
    /// The value when it is of type T, otherwise null.
    template <class T>
    T* getIf() {
        return std::get_if<T>(static_cast<VariantValue*>(this));
    }
    template <class T>
    const T* getIf() const {
        return std::get_if<T>(static_cast<const VariantValue*>(this));
    }

    friend bool operator==(const Variant& a, const Variant& b) {
        return static_cast<const VariantValue&>(a) == static_cast<const VariantValue&>(b);
    }

   private:
    bool mayHoldValues() const { return is<ObjectRef>() || is<Array<Variant>>(); }
};

struct NamedArgument {
    String name;
    Variant value;
};

}  // namespace quorkit
