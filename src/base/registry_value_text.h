// Values of the registry as text, in the notation of .reg files, version 5:
//
//   "Name"="text"  @="text of the default value"  "Name"=dword:0000000c  "Name"=hex(b):01,02
//   "Name"=-       which deletes
//
// Where people are to read the values, expandable and multiple texts are written as
// "Name"=str(2):"%HOME%" and "Name"=str(7):"one\0two\0". Between quotation marks \" \\ \n \r \0
// mean the same as in C; any other backslash stands for itself.
//
// Source: "How to add, modify, or delete registry subkeys and values by using a .reg file",
// Microsoft's article 310516. The notation str() is Wine's, which keeps its registry in it.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/registry_value.h>

#include <optional>

namespace quorkit::base {

/// How texts that are not plain are written.
enum class RegTexts {
    Hexadecimal,  ///< for all readers of .reg files
    Readable,     ///< with \n, \r and str()
};

/// `one` as a line without its end. Reading the line gives exactly the same value.
String printValue(const NamedValue& one, RegTexts texts);

/// One line for a value.
struct ValueLine {
    String name;
    bool deletes = false;
    /// Nothing when the line deletes the value, and when the text behind "=" is not a value.
    std::optional<RegistryValue> value;
};

/// In the old form, REGEDIT4, names and the bytes of texts in hexadecimal digits are in code page
/// 1252; here only the digits are concerned.
enum class RegForm { Version5, Version4 };

/// Takes the name and "=" off a line. Nothing when the line does not begin with them.
std::optional<String> readName(StringView& line);

/// Reads a line, which may have blanks around its parts. Nothing when it does not begin with a name
/// and "=".
std::optional<ValueLine> readValue(StringView line, RegForm form = RegForm::Version5);

}  // namespace quorkit::base
