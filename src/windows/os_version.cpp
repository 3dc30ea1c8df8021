#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorWindows.h>
#include <quorkit/ports/system.h>

#include <optional>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "frame/ui_language.h"
#include "runtime/convert.h"
#include "runtime/val.h"

namespace quorkit {
namespace {

constexpr std::uint8_t kWorkstation = 1;
constexpr std::uint16_t kEnterprise = 0x0002;
constexpr std::uint16_t kDatacenter = 0x0080;
constexpr std::uint16_t kPersonal = 0x0200;

/// The name and number of an edition, and its service pack.
struct Edition {
    String name;
    eOSVersion version = eOSVersion_Unknown;
    String servicePack = {};
};

/// Removes U+0000, tabs and blanks at both ends; nothing when no text is left.
std::optional<String> trimmed(StringView text) {
    constexpr StringView blanks(u"\0\t ", 3);
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == StringView::npos) return {};
    return String(text.substr(first, text.find_last_not_of(blanks) + 1 - first));
}

Edition windows9x(const OsVersion& system) {
    const String letter = base::toUpper(trimmed(system.servicePack).value_or(u""));
    switch (system.minorVersion) {
        case 0:
            if (letter != u"A" && letter != u"B" && letter != u"C")
                return {u"Windows 95", eOSVersion_Win95};
            return {u"Windows 95 " + letter, eOSVersion_Win95, letter};
        case 10:
            if (letter != u"A") return {u"Windows 98", eOSVersion_Win98};
            return {u"Windows 98 SE", eOSVersion_Win98, u"SE"};
        case 90:
            return {u"Windows ME", eOSVersion_WinME};
        default:
            return {};
    }
}

/// This system tells the kind of its product only from service pack 6 on.
Edition windowsNt4(const OsVersion& system, const String& servicePack) {
    const auto text = trimmed(system.servicePack);
    if (!text) return {u"Windows NT 4.0", eOSVersion_NT4};
    const char16_t last = text->back();
    if (last < u'6' || last > u'9') return {u"Windows NT 4.0", eOSVersion_NT4, String(1, last)};
    if (system.productType == kWorkstation)
        return {u"Windows NT 4.0 Workstation", eOSVersion_NT4_Workstation, servicePack};
    return {u"Windows NT 4.0 Server", eOSVersion_NT4_Server, servicePack};
}

/// Windows 2000 and Windows 2003 check the two suites in opposite order.
Edition windowsNt5(const OsVersion& system) {
    const auto has = [&](std::uint16_t suite) { return (system.suiteMask & suite) != 0; };
    const bool workstation = system.productType == kWorkstation;
    switch (system.minorVersion) {
        case 0:
            if (workstation) return {u"Windows 2000 Professional", eOSVersion_Win2000_Prof};
            if (has(kEnterprise))
                return {u"Windows 2000 Advanced Server", eOSVersion_Win2000_Advanced_Server};
            if (has(kDatacenter))
                return {u"Windows 2000 Datacenter Server", eOSVersion_Win2000_Datacenter_Server};
            return {u"Windows 2000 Server", eOSVersion_Win2000_Server};
        case 1:
            if (!workstation) return {};
            if (has(kPersonal)) return {u"Windows XP Home Edition", eOSVersion_WinXP_Home};
            return {u"Windows XP Professional", eOSVersion_WinXP_Prof};
        case 2:
            if (has(kDatacenter))
                return {u"Windows 2003 Datacenter Server", eOSVersion_Win2003_DataCenter_Server};
            if (has(kEnterprise))
                return {u"Windows 2003 Enterprise Server", eOSVersion_Win2003_Enterprise_Server};
            return {u"Windows 2003 Server", eOSVersion_Win2003_Server};
        default:
            return {u"Neue, unbekannte Windows-Version", eOSVersion_Future};
    }
}

Edition windowsNt(const OsVersion& system) {
    const String servicePack = runtime::CStr(Long{system.servicePackMajor});
    switch (system.majorVersion) {
        case 3:
            return {u"Windows NT 3." + runtime::CStr(static_cast<Long>(system.minorVersion)),
                    eOSVersion_NT3};
        case 4:
            return windowsNt4(system, servicePack);
        case 5: {
            Edition edition = windowsNt5(system);
            edition.servicePack = servicePack;
            return edition;
        }
        default:
            return {u"Neue, unbekannte Windows-Version", eOSVersion_Future};
    }
}

Edition editionOf(const OsVersion& system) {
    switch (system.platformId) {
        case 0:
            return {u"Win32s f\u00FCr Windows 3.x"};
        case 1:
            return windows9x(system);
        case 2:
            return windowsNt(system);
        default:
            return {u"Unbekannte Version"};
    }
}

}  // namespace

Boolean GQuorWindows::GetOSVersion(Out<String> sName, Out<eOSVersion> OSVersion,
                                   Out<String> sServicePack) {
    sName = String();
    OSVersion = eOSVersion_Unknown;
    sServicePack = String();
    OsVersion system;
    if (!ports_.system.GetVersionExA(OsRecord::Extended, system) &&
        !ports_.system.GetVersionExA(OsRecord::Short, system))
        return false;
    Edition edition = editionOf(system);
    sName = std::move(edition.name);
    OSVersion = edition.version;
    sServicePack = std::move(edition.servicePack);
    return true;
}

eLanguage GQuorWindows::GetOSLanguage() {
    return frame::uiLanguage(ports_);
}

Long GQuorWindows::GetSystemCountryCode() {
    return frame::onErrorReturn(Long{0}, [&] {
        String code;
        ports_.system.DiallingCode(code);
        return runtime::roundToLong(runtime::Val(code));
    });
}

}  // namespace quorkit
