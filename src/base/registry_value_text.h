// Values of the registry as text, in the notation of .reg files, version 5:
//
//   "Name"="text"  @="text of the default value"  "Name"=dword:0000000c  "Name"=hex(b):01,02
//   "Name"=-       which deletes
//
// and besides, where a person shall read it, expandable and multiple texts as
// "Name"=str(2):"%HOME%" and "Name"=str(7):"one\0two\0". Between quotation marks \" \\ \n \r \0
// stand for what they do in C; any other backslash for itself.
//
// Source: "How to add, modify, or delete registry subkeys and values by using a .reg file",
// Microsoft's article 310516; str() is the notation that Wine keeps its registry in.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/registry_value.h>

#include <optional>

namespace quorkit::base {

/// How texts other than plain ones are written.
enum class RegTexts {
    Hexadecimal,  ///< for every reader of .reg files
    Readable,     ///< with \n, \r and str()
};

/// `one` as a line, without its end. Reading it gives exactly the value again.
String printValue(const NamedValue& one, RegTexts texts);

/// One line for a value.
struct ValueLine {
    String name;
    bool deletes = false;
    /// Nothing when it deletes, and when what stands behind "=" is none.
    std::optional<RegistryValue> value;
};

/// The bytes of texts in hexadecimal digits, and of names, are those of code page 1252 in the old
/// form, REGEDIT4; only the digits matter here.
enum class RegForm { Version5, Version4 };

/// Takes the name and "=" off a line. Nothing when it does not begin so.
std::optional<String> readName(StringView& line);

/// Reads a line, blanks around its parts allowed. Nothing when it does not begin with a name and
/// "=".
std::optional<ValueLine> readValue(StringView line, RegForm form = RegForm::Version5);

}  // namespace quorkit::base
