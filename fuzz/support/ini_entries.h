// Keys and values of a section as a model has them, and what is promised of lines and keys.
#pragma once

#include <quorkit/QuorInifile.h>
#include <quorkit/variant.h>

#include <optional>
#include <vector>

#include "support/ini_text.h"

namespace quorkit::fuzz {

struct Entry {
    String key;
    String value;
};
using Entries = std::vector<Entry>;

/// Stands for a value of several lines.
inline constexpr StringView kMarker = u"$!MULTILINEFIELD@#";

/// The keys of a section, when it has nothing else that counts as one, as other lines are lost and
/// changed on purpose.
std::optional<Entries> keysOf(const IniText& ini, std::size_t header);
/// Whether a key is there twice.
bool hasTwice(const Entries& keys);

/// Whether it may stand in a table: what a line can carry, and comments.
bool isEntry(const Entry& one);
/// Whether it is a comment or begins as a header does: a table may bring it, though no single key.
bool isOdd(const Entry& one);
Variant tableOf(const Entries& entries);
/// The lines that an entry becomes whose value may have several.
Entries linesOf(const Entry& entry);
/// A value of several lines as it is read: the members lose a line break at its end.
String withoutLastBreak(const String& value);
String withoutDigits(String key);

IniLines withoutBlanks(IniLines lines);
/// The same lines; only the last one of a file may have lost or got a line end.
void promiseSameLines(const IniLines& got, const IniLines& wanted);
/// Sections, keys and values are read as they stand; lists that are cut are left out.
void promiseReading(QuorInifile& file, const IniText& ini);
void promiseKeys(const std::optional<Entries>& got, const Entries& wanted);

}  // namespace quorkit::fuzz
