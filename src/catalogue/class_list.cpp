// The one list of public classes, and its searches.
#include <quorkit/GQuorClipboard.h>
#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorKeyboard.h>
#include <quorkit/GQuorLanguage.h>
#include <quorkit/GQuorProgram.h>
#include <quorkit/GQuorRegistry.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/GQuorTools.h>
#include <quorkit/GQuorWindows.h>
#include <quorkit/QuorAddress.h>
#include <quorkit/QuorCollection.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/QuorLogFile.h>
#include <quorkit/QuorTesting.h>
#include <quorkit/catalogue.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/errors.h>
#include <quorkit/picture.h>

#include <algorithm>
#include <memory>
#include <type_traits>

#include "base/published_names.h"
#include "catalogue/member_index.h"
#include "frame/enumeration_rows.h"
#include "frame/instance.h"

namespace quorkit {
namespace {

template <class C>
ObjectRef make(Ports& ports) {
    return std::make_shared<frame::Instance<C>>(ports, ports);
}

template <class C>
const MemberIndex& indexOf() {
    static const MemberIndex index(frame::memberRows<C>());
    return index;
}

template <class C>
constexpr ClassInfo publicClass(const char* interfaceIdentity, const char* identity,
                                const char* name, ClassKind kind, const char* role) {
    return {name,        kind,    role, interfaceIdentity, identity, &frame::memberRows<C>,
            &indexOf<C>, &make<C>};
}

template <class C>
ObjectRef makeOwn(Ports&) {
    return C::make();
}

constexpr ClassKind Global = ClassKind::Global;
constexpr ClassKind Creatable = ClassKind::Creatable;

constexpr ClassInfo kClasses[] = {
    publicClass<GQuorStrings>(
        "673d863e-04b8-44f9-aadf-94b1a8221c8d", "673d863f-04b8-44f9-aadf-94b1a8221c8d",
        "GQuorStrings", Global,
        "string helpers: white space, padding, replacement, digit extraction, parsing, field-name "
        "line numbers, application version strings, placeholder expansion, mail-address check"),
    publicClass<QuorCollection>(
        "673d8640-04b8-44f9-aadf-94b1a8221c8d", "673d8641-04b8-44f9-aadf-94b1a8221c8d",
        "QuorCollection", Creatable,
        "ordered key/value collection with index and key access, key list and clone"),
    publicClass<QuorInifile>("673d8642-04b8-44f9-aadf-94b1a8221c8d",
                             "673d8643-04b8-44f9-aadf-94b1a8221c8d", "QuorInifile", Creatable,
                             "INI file: keys, sections, bulk section content, multi-line values"),
    publicClass<GQuorRegistry>("673d8644-04b8-44f9-aadf-94b1a8221c8d",
                               "673d8645-04b8-44f9-aadf-94b1a8221c8d", "GQuorRegistry", Global,
                               "registry: typed values, enumeration, bulk write, deletion"),
    publicClass<QuorLogFile>("673d8646-04b8-44f9-aadf-94b1a8221c8d",
                             "673d8647-04b8-44f9-aadf-94b1a8221c8d", "QuorLogFile", Creatable,
                             "log file writer with levels, formats and size limit"),
    publicClass<GQuorFile>(
        "673d8648-04b8-44f9-aadf-94b1a8221c8d", "673d8649-04b8-44f9-aadf-94b1a8221c8d", "GQuorFile",
        Global,
        "path names, directory listings, drives and UNC names, file content, temporary files, "
        "dialogs, special folders, version information, shortcuts"),
    publicClass<GQuorConvert>(
        "673d864a-04b8-44f9-aadf-94b1a8221c8d", "673d864b-04b8-44f9-aadf-94b1a8221c8d",
        "GQuorConvert", Global,
        "conversions: Boolean/Integer, token strings to arrays and collections, language "
        "identifiers, number bases, colours, twips/pixels, tolerant number parsing"),
    publicClass<GQuorTools>(
        "673d864c-04b8-44f9-aadf-94b1a8221c8d", "673d864d-04b8-44f9-aadf-94b1a8221c8d",
        "GQuorTools", Global,
        "miscellaneous tools: element search, text-box input check, date arithmetic and "
        "holidays, sorting, delay, error report"),
    publicClass<GQuorProgram>(
        "673d864e-04b8-44f9-aadf-94b1a8221c8d", "673d864f-04b8-44f9-aadf-94b1a8221c8d",
        "GQuorProgram", Global,
        "running programs and waiting for them, opening URLs and mail, URL path encoding"),
    publicClass<QuorAddress>(
        "673d8650-04b8-44f9-aadf-94b1a8221c8d", "673d8651-04b8-44f9-aadf-94b1a8221c8d",
        "QuorAddress", Creatable,
        "address record with named attributes, postal address block, phone number formatting"),
    publicClass<GQuorWindows>(
        "673d8652-04b8-44f9-aadf-94b1a8221c8d", "673d8653-04b8-44f9-aadf-94b1a8221c8d",
        "GQuorWindows", Global,
        "window search and control, operating system version and language, screen geometry, "
        "form positions, wait window, about dialog"),
    publicClass<GQuorKeyboard>("673d8654-04b8-44f9-aadf-94b1a8221c8d",
                               "673d8655-04b8-44f9-aadf-94b1a8221c8d", "GQuorKeyboard", Global,
                               "state of Shift, Control and Scroll Lock keys"),
    publicClass<GQuorClipboard>("673d8656-04b8-44f9-aadf-94b1a8221c8d",
                                "673d8657-04b8-44f9-aadf-94b1a8221c8d", "GQuorClipboard", Global,
                                "clipboard text, RTF text and pictures"),
    publicClass<QuorTesting>("673d8658-04b8-44f9-aadf-94b1a8221c8d",
                             "673d8659-04b8-44f9-aadf-94b1a8221c8d", "QuorTesting", Creatable,
                             "random test data: last names, first names, organisational units"),
    publicClass<GQuorLanguage>("673d865a-04b8-44f9-aadf-94b1a8221c8d",
                               "673d865b-04b8-44f9-aadf-94b1a8221c8d", "GQuorLanguage", Global,
                               "a class with no members"),
};

constexpr ClassInfo kRuntimeClasses[] = {
    {"Collection", ClassKind::Runtime,
     "ordered list of values, counted from 1, each optionally under a key",
     "a4c46780-499f-101b-bb78-00aa00383cbb", "", &frame::memberRows<Collection>,
     &indexOf<Collection>, &makeOwn<Collection>},
    {"Dictionary", ClassKind::Runtime, "values under unique keys, in the order of their adding",
     "42c642c1-97e1-11cf-978f-00a02463e06f", "", &frame::memberRows<Dictionary>,
     &indexOf<Dictionary>, &makeOwn<Dictionary>},
    {"Picture", ClassKind::Runtime, "a picture, as the bytes of its file",
     "7bf80981-bf32-101a-8bbb-00aa00300cab", "", &frame::memberRows<Picture>, &indexOf<Picture>,
     nullptr},
};

constexpr FieldInfo kRectangle[] = {{"Left", {Type::Long}},
                                    {"Top", {Type::Long}},
                                    {"Width", {Type::Long}},
                                    {"Height", {Type::Long}}};
constexpr RecordInfo kRecords[] = {{"TRect", "A rectangle on the screen.", kRectangle}};

/// The entry of that name; null when there is none.
template <class Info>
const Info* named(std::span<const Info> all, StringView name) {
    const auto found =
        std::ranges::find_if(all, [&](const Info& one) { return base::sameName(name, one.name); });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace

const ClassInfo& frame::classOfRows(std::span<const MemberInfo> (*rows)()) {
    for (const auto all : {classes(), runtimeClasses()})
        if (const auto found = std::ranges::find(all, rows, &ClassInfo::members);
            found != all.end())
            return *found;
    raise(ErrorNumber::InternalError);
}

std::span<const ClassInfo> classes() {
    return kClasses;
}

std::span<const ClassInfo> runtimeClasses() {
    return kRuntimeClasses;
}

const ClassInfo* findClass(StringView name) {
    const ClassInfo* found = named(classes(), name);
    return found != nullptr ? found : named(runtimeClasses(), name);
}

const MemberInfo* findMember(const ClassInfo& info, StringView name, CallKind kind) {
    return info.index().find(name, kind);
}

const MemberInfo* findMember(const ClassInfo& info, Long identifier, CallKind kind) {
    return info.index().find(identifier, kind);
}

std::optional<std::size_t> findParameter(const MemberInfo& member, StringView name) {
    for (std::size_t i = 0; i < member.parameterCount; ++i)
        if (base::sameName(name, member.parameterRow[i].name)) return i;
    return {};
}

std::span<const EnumerationInfo> enumerations() {
    return frame::kEnumerations;
}

std::span<const RecordInfo> records() {
    return kRecords;
}

const EnumerationInfo* findEnumeration(StringView name) {
    return named(enumerations(), name);
}

const RecordInfo* findRecord(StringView name) {
    return named(records(), name);
}

std::optional<Long> findConstant(const EnumerationInfo& enumeration, StringView name) {
    const ConstantInfo* constant = named(enumeration.constants, name);
    return constant == nullptr ? std::optional<Long>() : constant->value;
}

const char* TypeInfo::name() const {
    if (enumeration != nullptr) return enumeration->name;
    if (classOf != nullptr) return classOf().name;
    switch (type) {
        case Type::None:
            return "";
        case Type::Boolean:
            return "Boolean";
        case Type::Integer:
            return "Integer";
        case Type::Long:
            return "Long";
        case Type::Double:
            return "Double";
        case Type::Date:
            return "Date";
        case Type::String:
            return "String";
        case Type::Variant:
            return "Variant";
        case Type::StringArray:
            return "String()";
        case Type::ByteArray:
            return "Byte()";
        case Type::VariantArray:
            return "Variant()";
        case Type::Object:
            break;
    }
    return "Object";
}

}  // namespace quorkit
