#include "cli/linux_findings.h"

#include <quorkit/utf8.h>

#include <algorithm>

namespace quorkit::cli {
namespace {

constexpr const char* kLocale = "locale";
constexpr const char* kDisplay = "display";
constexpr const char* kUserStore = "registry of the user";
constexpr const char* kMachineStore = "registry of the machine";

/// What to do about folders on other machines; "" for those on this one.
Findings networkFindings(const char* topic, const FolderFacts& folder) {
    if (!folder.onNetwork) return {};
    return {{State::Note, topic,
             folder.path + " is on a network file system, where a lock may not hold for programs "
                           "on other machines",
             "let only one machine write there at a time, or set XDG_DATA_HOME to a local folder"}};
}

std::string remedyFor(const std::string& tool) {
    if (tool.starts_with("quorkit-"))
        return "install it with the library, or set QUORKIT_LIBEXEC to its folder";
    return "install " + tool;
}

}  // namespace

Findings localeFindings(const LocaleFacts& facts) {
    if (facts.name.empty())
        return {{State::Note, kLocale, "none is set, so the user's language is not known",
                 "set LANG, such as LANG=de_CH.UTF-8"}};
    if (!facts.installed)
        return {{State::Problem, kLocale,
                 facts.name + " is not installed, so the country's dialling code is not known and "
                              "other programs fall back to English",
                 "install it (on Debian: dpkg-reconfigure locales), or choose one of locale -a"}};
    if (facts.encoding != "UTF-8")
        return {{State::Note, kLocale,
                 facts.name + " has the encoding " + facts.encoding +
                     ", but all input and output of quorkit is UTF-8",
                 "choose a locale that ends in .UTF-8"}};
    return {{State::Ok, kLocale, facts.name + ", which is UTF-8 and installed"}};
}

Findings displayFindings(const DisplayFacts& facts) {
    if (facts.answers) return {{State::Ok, kDisplay, "the X server " + facts.x11 + " answers"}};
    if (!facts.x11.empty())
        return {{State::Problem, kDisplay,
                 facts.reason.empty() ? facts.x11 + " does not answer" : facts.reason,
                 "see whether DISPLAY is right and this user may use that server (xdpyinfo)"}};
    if (!facts.wayland.empty())
        return {{State::Problem, kDisplay,
                 "there is a Wayland session, but no X server beside it, so windows, keys and "
                 "clipboard are not there",
                 "let the session start Xwayland"}};
    return {{State::Note, kDisplay,
             "there is none, so windows, keys, clipboard and dialogs are not there",
             "start the program in a desktop session if it needs them"}};
}

Findings toolFindings(const std::vector<ports::Tool>& tools, bool hasDisplay) {
    Findings findings;
    std::vector<std::string> uses;
    for (const ports::Tool& tool : tools)
        if (std::ranges::find(uses, tool.use) == uses.end()) uses.push_back(tool.use);
    for (const std::string& use : uses) {
        std::string names;
        const ports::Tool* found = nullptr;
        for (const ports::Tool& tool : tools) {
            if (tool.use != use) continue;
            names += (names.empty() ? "" : " or ") + tool.name;
            if (found == nullptr && !tool.path.empty()) found = &tool;
        }
        const std::string topic = "tool for " + use;
        if (found != nullptr)
            findings.push_back({State::Ok, topic, found->path});
        else
            findings.push_back({hasDisplay ? State::Problem : State::Note, topic,
                                names + " is not there", remedyFor(names)});
    }
    return findings;
}

Findings userStoreFindings(const FolderFacts& folder) {
    if (folder.path.empty())
        return {{State::Problem, kUserStore, "there is no folder for it: HOME is not set",
                 "set HOME or XDG_DATA_HOME to a folder"}};
    Findings findings = networkFindings(kUserStore, folder);
    if (!folder.exists && !folder.writable)
        findings.push_back({State::Problem, kUserStore, folder.path + " cannot be made",
                            "give this user the right to write in the folder above"});
    else if (folder.exists && !(folder.readable && folder.writable))
        findings.push_back({State::Problem, kUserStore,
                            "this user may not read and write " + folder.path,
                            "give the folder to this user: chown -R"});
    else
        findings.push_back(
            {State::Ok, kUserStore,
             folder.path + (folder.exists ? "" : " will be made when it is needed")});
    return findings;
}

Findings machineStoreFindings(const FolderFacts& folder) {
    Findings findings = networkFindings(kMachineStore, folder);
    if (folder.exists && !folder.readable)
        findings.push_back({State::Problem, kMachineStore, "this user may not read " + folder.path,
                            "let everybody read it: chmod -R go+rX"});
    else if (!folder.exists)
        findings.push_back({State::Ok, kMachineStore, "it is empty: there is no " + folder.path});
    else
        findings.push_back(
            {State::Ok, kMachineStore,
             folder.path + (folder.writable ? "" : ", which this user can only read")});
    return findings;
}

Findings damageFindings(const std::vector<RegistryDamage>& damage) {
    constexpr const char* topic = "registry store";
    if (damage.empty()) return {{State::Ok, topic, "no damage found"}};
    const std::string more =
        damage.size() == 1 ? "" : ", and " + std::to_string(damage.size() - 1) + " more";
    return {{State::Problem, topic,
             toUtf8(damage.front().place) + ": " + toUtf8(damage.front().what) + more,
             "mend the places that quorkit registry check lists"}};
}

}  // namespace quorkit::cli
