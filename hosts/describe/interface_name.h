#pragma once

#include <quorkit/catalogue.h>

#include <string>

namespace quorkit::describe {

/// The name of a class's interface in interface definitions and type libraries.
inline std::string interfaceName(const ClassInfo& info) {
    const std::string name = info.name;  // the runtime's own have the names that clients know
    return name == "Dictionary" ? "IDictionary" : name == "Picture" ? "IPictureDisp" : "_" + name;
}

}  // namespace quorkit::describe
