// What the library publishes: its classes, their members and the enumerations. Everything here is
// read from one row per member; help, type information and reference pages are derived from it.
#pragma once

#include <quorkit/object.h>
#include <quorkit/variant.h>

#include <array>
#include <cstddef>
#include <span>

namespace quorkit {

struct Ports;

/// The types that cross the interface. Constants of an enumeration cross as Long.
enum class Type {
    None,  ///< a member without a result
    Bool,
    Int16,
    Int32,
    Float,
    Date,
    Text,
    Any,  ///< a Variant
    TextArray,
    ByteArray,
    AnyArray,
    Object,
};

struct TypeInfo {
    Type type = Type::None;
    /// As published: "Long", "String()", and for enumerations and objects their own name.
    const char* name = "";
};

struct ParameterInfo {
    const char* name = "";
    TypeInfo type;
    bool byReference = false;
    bool changed = false;  ///< by reference, and the member may change it
    /// The value of an omitted argument; null when the argument must be given.
    Variant (*defaultValue)() = nullptr;

    bool optional() const { return defaultValue != nullptr; }
};

enum class MemberKind { Method, PropertyGet, PropertyLet };

struct MemberInfo {
    static constexpr std::size_t kMaxParameters = 8;

    Long identifier = 0;
    const char* name = "";
    MemberKind kind = MemberKind::Method;
    TypeInfo result;
    std::size_t parameterCount = 0;
    std::array<ParameterInfo, kMaxParameters> parameterRow = {};
    const char* sentence = "";
    /// Runs the member on `self` with one Variant of exactly the parameter's type per parameter.
    Variant (*run)(void* self, Variant* arguments) = nullptr;

    std::span<const ParameterInfo> parameters() const {
        return {parameterRow.data(), parameterCount};
    }
};

enum class ClassKind {
    Global,     ///< one shared instance for a client, made on first use
    Creatable,  ///< as many instances as the client makes
};

struct ClassInfo {
    const char* name = "";
    ClassKind kind = ClassKind::Global;
    const char* role = "";
    /// One row each; a property has one for its get and one for its let.
    std::span<const MemberInfo> (*members)() = nullptr;
    /// Makes an instance over the given ports.
    ObjectRef (*create)(Ports&) = nullptr;
};

struct ConstantInfo {
    const char* name = "";
    Long value = 0;
};

struct EnumerationInfo {
    const char* name = "";
    const char* sentence = "";
    std::span<const ConstantInfo> constants;
};

/// All public classes, in the published order.
std::span<const ClassInfo> classes();
/// The class of that name, matched without regard to case; null when there is none.
const ClassInfo* findClass(StringView name);

/// The row that a call of this kind reaches by name, without regard to case, or by identifier;
/// null when there is none.
const MemberInfo* findMember(const ClassInfo& info, StringView name, CallKind kind);
const MemberInfo* findMember(const ClassInfo& info, Long identifier, CallKind kind);

/// All public enumerations.
std::span<const EnumerationInfo> enumerations();

}  // namespace quorkit
