// The type of the interface that each C++ type of a value has.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/variant.h>

#include <array>
#include <type_traits>
#include <variant>

namespace quorkit::frame {

/// The C++ types of the interface, except enumerations and classes.
template <class T>
inline constexpr Type kPlainType = Type::None;
template <>
inline constexpr Type kPlainType<Boolean> = Type::Boolean;
template <>
inline constexpr Type kPlainType<Integer> = Type::Integer;
template <>
inline constexpr Type kPlainType<Long> = Type::Long;
template <>
inline constexpr Type kPlainType<Double> = Type::Double;
template <>
inline constexpr Type kPlainType<Date> = Type::Date;
template <>
inline constexpr Type kPlainType<String> = Type::String;
template <>
inline constexpr Type kPlainType<Variant> = Type::Variant;
template <>
inline constexpr Type kPlainType<Array<String>> = Type::StringArray;
template <>
inline constexpr Type kPlainType<Array<Byte>> = Type::ByteArray;
template <>
inline constexpr Type kPlainType<Array<Variant>> = Type::VariantArray;
template <>
inline constexpr Type kPlainType<ObjectRef> = Type::Object;

/// The type of what the variant holds; None for what is no value of an interface type, such as
/// Empty.
inline Type typeOfContent(const Variant& value) {
    static constexpr auto types = []<class... T>(std::type_identity<std::variant<T...>>) {
        return std::array{kPlainType<T>...};
    }(std::type_identity<VariantValue>());
    return types[value.index()];
}

}  // namespace quorkit::frame
