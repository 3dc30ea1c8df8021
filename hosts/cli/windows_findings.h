// The rules of quorkit doctor for Windows: facts, and what they mean to a user.
#pragma once

#include <string>
#include <vector>

#include "cli/doctor.h"

namespace quorkit::cli {

/// What the registry has for one scope and one kind of programs.
struct RegistrationFacts {
    bool user = false;        ///< for this user, otherwise for everybody on the machine
    int bits = 64;            ///< for programs of so many bits
    std::size_t classes = 0;  ///< how many are registered
    std::string path;         ///< of the server
    bool fileExists = false;
    int fileBits = 0;     ///< 0 when the file is no DLL of these kinds
    std::string version;  ///< of the file, such as "0.1.0.0"; "" when it has none
};

/// What this program is.
struct OwnFacts {
    int bits = 64;
    std::size_t classes = 0;  ///< of the catalogue
    std::string version;      ///< "0.1.0"
};

/// `all` has one row for each scope and each kind of programs that this system can run.
Findings registrationFindings(const std::vector<RegistrationFacts>& all, const OwnFacts& own);

/// An object was created by name and called; `failure` is "" or tells what the system said.
Findings objectFindings(int bits, const std::string& failure);

struct TypeLibraryFacts {
    std::string path;     ///< "" when none is registered
    std::string failure;  ///< why it cannot be loaded
};
Findings typeLibraryFindings(const TypeLibraryFacts& facts);

Findings screenFindings(bool visible);

}  // namespace quorkit::cli
