// What the library publishes: its classes, their members and the enumerations. Everything here is
// read from one row per member; help, type information and reference pages are derived from it.
#pragma once

#include <quorkit/object.h>
#include <quorkit/variant.h>

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace quorkit {

struct Ports;

struct ClassInfo;
struct EnumerationInfo;
class MemberIndex;

// GCC warns that scoped enumerators hide the types of the same name.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
/// The types that cross the interface.
enum class Type {
    None,  ///< the member has no result
    Boolean,
    Integer,
    Long,
    Double,
    Date,
    String,
    Variant,
    StringArray,
    ByteArray,
    VariantArray,
    Object,
};
#pragma GCC diagnostic pop

struct TypeInfo {
    Type type = Type::None;
    /// For a Long that is a constant of an enumeration.
    const EnumerationInfo* enumeration = nullptr;
    /// For an Object of one particular class.
    const ClassInfo& (*classOf)() = nullptr;

    /// The published name: "Long", "String()", or that of the enumeration or class; "" for None.
    const char* name() const;
};

struct ParameterInfo {
    const char* name = "";
    TypeInfo type;
    bool byReference = false;
    bool changed = false;  ///< by reference, and the member may change it
    bool result = false;   ///< changed, and the member never reads the value handed in
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
    /// When one holds an object of a wrong class, error 13, and `fitting` is its position;
    /// otherwise `fitting` becomes the number of the parameters.
    Variant (*run)(void* self, Ports* ports, Variant* const* arguments,
                   std::size_t& fitting) = nullptr;

    std::span<const ParameterInfo> parameters() const {
        return {parameterRow.data(), parameterCount};
    }
};

enum class ClassKind {
    Global,     ///< one shared instance for a client, made on first use
    Creatable,  ///< as many instances as the client makes
    Runtime,    ///< an object of the automation runtime, which members give and take
};

struct ClassInfo {
    const char* name = "";
    ClassKind kind = ClassKind::Global;
    const char* role = "";
    /// The frozen identities of the class's interface and of the class itself, such as
    /// "673d863e-04b8-44f9-aadf-94b1a8221c8d".
    const char* interfaceIdentity = "";
    const char* identity = "";
    /// One row per member; a property has one row for its get and one for its let.
    std::span<const MemberInfo> (*members)() = nullptr;
    /// The rows as `findMember` searches them.
    const MemberIndex& (*index)() = nullptr;
    /// Makes an instance over the given ports; null when a client cannot make one.
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

struct FieldInfo {
    const char* name = "";
    TypeInfo type;
};

struct RecordInfo {
    const char* name = "";
    const char* sentence = "";
    std::span<const FieldInfo> fields;
};

/// The frozen identity of the library as a whole.
inline constexpr const char* kLibraryIdentity = "673d863d-04b8-44f9-aadf-94b1a8221c8d";

/// All public classes, in the published order.
std::span<const ClassInfo> classes();
/// The classes of the runtime's own objects.
std::span<const ClassInfo> runtimeClasses();
/// The public or runtime class of that name, without regard to case; null when there is none.
const ClassInfo* findClass(StringView name);

/// The row that a call of this kind reaches, by name without regard to case or by identifier; null
/// when there is none.
const MemberInfo* findMember(const ClassInfo& info, StringView name, CallKind kind);
const MemberInfo* findMember(const ClassInfo& info, Long identifier, CallKind kind);
/// The position of the parameter of that name, without regard to case; nothing when there is none.
std::optional<std::size_t> findParameter(const MemberInfo& member, StringView name);

/// All public enumerations, and all public records.
std::span<const EnumerationInfo> enumerations();
std::span<const RecordInfo> records();
/// The enumeration or record of that name, without regard to case; null when there is none.
const EnumerationInfo* findEnumeration(StringView name);
const RecordInfo* findRecord(StringView name);
/// The value of a constant by its name, without regard to case; nothing when there is none.
std::optional<Long> findConstant(const EnumerationInfo& enumeration, StringView name);

}  // namespace quorkit
