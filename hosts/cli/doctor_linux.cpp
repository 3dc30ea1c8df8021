// The facts that quorkit doctor examines on Linux.
#include <langinfo.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/drives.h>
#include <quorkit/ports/system.h>
#include <quorkit/utf8.h>
#include <unistd.h>

#include <clocale>
#include <filesystem>

#include "cli/linux_findings.h"

namespace quorkit::cli {
namespace {

std::string variable(Ports& ports, const String& name) {
    String value;
    ports.system.GetEnvironmentVariableA(name, value);
    return toUtf8(value);
}

Findings checkLocale(Ports& ports) {
    LocaleFacts facts;
    for (const StringView name : {u"LC_ALL", u"LC_CTYPE", u"LANG"})
        if (facts.name.empty()) facts.name = variable(ports, String(name));
    if (const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr)) {
        facts.installed = true;
        facts.encoding = nl_langinfo_l(CODESET, locale);
        freelocale(locale);
    }
    return localeFindings(facts);
}

DisplayFacts displayFacts(Ports& ports) {
    return {variable(ports, u"DISPLAY"), variable(ports, u"WAYLAND_DISPLAY")};
}

Findings checkDisplay(Ports& ports) {
    DisplayFacts facts = displayFacts(ports);
    ScreenArea area;
    ports::takeReason();
    facts.answers = ports.desktop.WorkArea(area);
    facts.reason = ports::takeReason();
    return displayFindings(facts);
}

Findings checkTools(Ports& ports) {
    return toolFindings(ports::tools(), displayFacts(ports).isThere());
}

FolderFacts folderFacts(Ports& ports, const String& name) {
    constexpr int networkDrive = 4;
    FolderFacts facts;
    facts.path = toUtf8(name);
    if (name.empty()) return facts;
    const auto may = [](const std::filesystem::path& path, int right) {
        return access(path.c_str(), right) == 0;
    };
    std::filesystem::path folder = facts.path;
    facts.exists = may(folder, F_OK);
    while (!may(folder, F_OK) && folder.has_relative_path()) folder = folder.parent_path();
    facts.readable = may(folder, R_OK | X_OK);
    facts.writable = may(folder, W_OK | X_OK);
    facts.onNetwork = ports.drives.GetDriveTypeA(fromUtf8(folder.string())) == networkDrive;
    return facts;
}

Findings checkUserStore(Ports& ports) {
    return userStoreFindings(folderFacts(ports, ports::registryFolders()[0]));
}

Findings checkMachineStore(Ports& ports) {
    return machineStoreFindings(folderFacts(ports, ports::registryFolders()[1]));
}

Findings checkDamage(Ports& ports) {
    return damageFindings(ports.registry.FindDamage());
}

constexpr Check kChecks[] = {
    {"locale", checkLocale},
    {"display", checkDisplay},
    {"tools", checkTools},
    {"registry of the user", checkUserStore},
    {"registry of the machine", checkMachineStore},
    {"registry store", checkDamage},
};

}  // namespace

void endAtOnce(int status) {
    _exit(status);
}

std::span<const Check> checks() {
    return kChecks;
}

}  // namespace quorkit::cli
