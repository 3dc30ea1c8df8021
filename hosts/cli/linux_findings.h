// The rules of quorkit doctor for Linux: facts, and what they mean to a user.
#pragma once

#include <quorkit/ports/registry.h>
#include <quorkit/ports/surroundings.h>

#include <string>
#include <vector>

#include "cli/doctor.h"

namespace quorkit::cli {

struct LocaleFacts {
    std::string name;        ///< what the environment asks for; "" for nothing
    bool installed = false;  ///< whether the system has it
    std::string encoding;    ///< the one of texts at a terminal
};
Findings localeFindings(const LocaleFacts& facts);

struct DisplayFacts {
    std::string x11;      ///< DISPLAY
    std::string wayland;  ///< WAYLAND_DISPLAY
    bool answers = false;
    std::string reason = {};  ///< why it does not answer

    bool isThere() const { return !x11.empty() || !wayland.empty(); }
};
Findings displayFindings(const DisplayFacts& facts);

/// One finding for each use of tools.
Findings toolFindings(const std::vector<ports::Tool>& tools, bool hasDisplay);

struct FolderFacts {
    std::string path;  ///< "" when there is no such folder
    bool exists = false;
    bool readable = false;
    bool writable = false;   ///< or can be made
    bool onNetwork = false;  ///< the folder, or what it would be made in
};
Findings userStoreFindings(const FolderFacts& folder);
Findings machineStoreFindings(const FolderFacts& folder);
Findings damageFindings(const std::vector<RegistryDamage>& damage);

}  // namespace quorkit::cli
