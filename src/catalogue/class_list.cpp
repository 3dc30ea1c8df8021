// The one list of public classes, and look-ups in it.
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
#include <quorkit/dispatch.h>

#include <algorithm>
#include <type_traits>
#include <utility>

#include "base/published_names.h"
#include "frame/member_row.h"

namespace quorkit {
namespace {

template <class C>
class Instance final : public CatalogueObject {
   public:
    /// `from` is what C is made of.
    template <class From>
    Instance(const ClassInfo& info, Ports& ports, From&& from)
        : CatalogueObject(ports), info_(info), self_(std::forward<From>(from)) {}
    const ClassInfo& info() const override { return info_; }
    void letGo() override {
        if constexpr (std::is_same_v<C, QuorCollection>)
            while (self_.removeByIndex(self_.count())) continue;
    }

   private:
    void* self() override { return &self_; }
    const ClassInfo& info_;
    C self_;
};

template <class C>
ObjectRef make(Ports& ports);

template <class C>
constexpr ClassInfo publicClass(const char* name, ClassKind kind, const char* role) {
    return {name, kind, role, &frame::memberRows<C>, &make<C>};
}

constexpr ClassKind Global = ClassKind::Global;
constexpr ClassKind Creatable = ClassKind::Creatable;

constexpr ClassInfo kClasses[] = {
    publicClass<GQuorStrings>(
        "GQuorStrings", Global,
        "string helpers: white space, padding, replacement, digit extraction, parsing, field-name "
        "line numbers, application version strings, placeholder expansion, mail-address check"),
    publicClass<QuorCollection>(
        "QuorCollection", Creatable,
        "ordered key/value collection with index and key access, key list and clone"),
    publicClass<QuorInifile>("QuorInifile", Creatable,
                             "INI file: keys, sections, bulk section content, multi-line values"),
    publicClass<GQuorRegistry>("GQuorRegistry", Global,
                               "registry: typed values, enumeration, bulk write, deletion"),
    publicClass<QuorLogFile>("QuorLogFile", Creatable,
                             "log file writer with levels, formats and size limit"),
    publicClass<GQuorFile>(
        "GQuorFile", Global,
        "path names, directory listings, drives and UNC names, file content, temporary files, "
        "dialogs, special folders, version information, shortcuts"),
    publicClass<GQuorConvert>(
        "GQuorConvert", Global,
        "conversions: Boolean/Integer, token strings to arrays and collections, language "
        "identifiers, number bases, colours, twips/pixels, tolerant number parsing"),
    publicClass<GQuorTools>(
        "GQuorTools", Global,
        "miscellaneous tools: element search, text-box input check, date arithmetic and "
        "holidays, sorting, delay, error report"),
    publicClass<GQuorProgram>(
        "GQuorProgram", Global,
        "running programs and waiting for them, opening URLs and mail, URL path encoding"),
    publicClass<QuorAddress>(
        "QuorAddress", Creatable,
        "address record with named attributes, postal address block, phone number formatting"),
    publicClass<GQuorWindows>(
        "GQuorWindows", Global,
        "window search and control, operating system version and language, screen geometry, "
        "form positions, wait window, about dialog"),
    publicClass<GQuorKeyboard>("GQuorKeyboard", Global,
                               "state of Shift, Control and Scroll Lock keys"),
    publicClass<GQuorClipboard>("GQuorClipboard", Global, "clipboard text, RTF text and pictures"),
    publicClass<QuorTesting>("QuorTesting", Creatable,
                             "random test data: last names, first names, organisational units"),
    publicClass<GQuorLanguage>("GQuorLanguage", Global, "a class with no members"),
};

template <class C, class From>
ObjectRef instance(Ports& ports, From&& from) {
    static const ClassInfo& info = *std::ranges::find(kClasses, &make<C>, &ClassInfo::create);
    return std::make_shared<Instance<C>>(info, ports, std::forward<From>(from));
}

template <class C>
ObjectRef make(Ports& ports) {
    return instance<C>(ports, ports);
}

#define ENUMERATION(name, sentence) constexpr ConstantInfo k_##name[] = {
#define CONSTANT(name, value) {#name, value},
#define END(name) \
    }             \
    ;
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END

constexpr EnumerationInfo kEnumerations[] = {
#define ENUMERATION(name, sentence) {#name, sentence, k_##name},
#define CONSTANT(name, value)
#define END(name)
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END
};

bool reaches(CallKind kind, const MemberInfo& member) {
    return (kind == CallKind::Let) == (member.kind == MemberKind::PropertyLet);
}

}  // namespace

ObjectRef objectOf(QuorCollection result) {
    Ports& ports = *result.ports_;
    return instance<QuorCollection>(ports, std::move(result));
}

std::span<const ClassInfo> classes() {
    return kClasses;
}

const ClassInfo* findClass(StringView name) {
    const auto found = std::ranges::find_if(
        kClasses, [&](const ClassInfo& one) { return base::sameName(name, one.name); });
    return found == std::end(kClasses) ? nullptr : found;
}

const MemberInfo* findMember(const ClassInfo& info, StringView name, CallKind kind) {
    for (const MemberInfo& member : info.members())
        if (reaches(kind, member) && base::sameName(name, member.name)) return &member;
    return nullptr;
}

const MemberInfo* findMember(const ClassInfo& info, Long identifier, CallKind kind) {
    for (const MemberInfo& member : info.members())
        if (member.identifier == identifier && reaches(kind, member)) return &member;
    return nullptr;
}

std::span<const EnumerationInfo> enumerations() {
    return kEnumerations;
}

}  // namespace quorkit
