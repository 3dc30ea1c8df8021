// .reg files: keys and values as text, to carry them from one registry to another.
//
//   Windows Registry Editor Version 5.00        or REGEDIT4, the old form
//
//   [HKEY_CURRENT_USER\Software\X]              makes a key; what follows goes there
//   @="text"                                    a value as in base/registry_value_text.h
//   "Name"=hex:01,02,\                          hexadecimal digits go on behind a "\"
//     03,04
//   "Gone"=-                                    deletes a value
//   [-HKEY_CURRENT_USER\Software\Y]             deletes a key with everything beneath it
//   ; to the end of the line: a comment
//
// A text between quotation marks may hold line breaks. A key's name ends at the last "]" of its
// line. Roots are those of key_name.h, long or short.
//
// Source: as base/registry_value_text.h; layout as Wine's "reg export" writes it.
#pragma once

#include <optional>
#include <vector>

#include "base/registry_value_text.h"
#include "registry/reg_path.h"

namespace quorkit::registry {

/// The key and all beneath it as a file of version 5, in UTF-16 with its mark: values and keys in
/// the registry's order, the default value first. A key beneath that cannot be read is left out
/// with all beneath it, and so is one whose name holds a line break, which no reader could
/// understand, or that no key can have (kInvalidName); answers the first one. `content` is empty
/// when it is the key itself.
RegResult printRegFile(Registry& registry, const RegPath& key, std::string& content);

/// One key of a file.
struct RegChange {
    RegPath key;
    bool deletes = false;                 ///< the key and all beneath it; then there are no values
    std::vector<base::ValueLine> values;  ///< each has a value or deletes one
};

struct BadRegLine {
    std::size_t number;  ///< from 1
    const char* what;
};

/// Appends the changes that a file asks for, in its order. UTF-16 has its mark, UTF-8 may have one;
/// REGEDIT4 without a mark is code page 1252. Lines end with LF or CRLF. Answers the first line
/// that is none of the above, also one that names a key or value that cannot be or deletes a root;
/// of a value in several lines, the first. `changes` is unspecified then.
std::optional<BadRegLine> readRegFile(std::string_view content, std::vector<RegChange>& changes);

/// Makes the changes in their order, up to the first that fails; those before it stay. Deleting
/// what is not there is no failure. In the classes root it is deleted wherever it comes from, the
/// user's and the machine's keys.
RegResult applyRegChanges(Registry& registry, std::vector<RegChange> changes);

}  // namespace quorkit::registry
