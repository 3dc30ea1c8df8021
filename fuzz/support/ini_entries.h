// Keys and values of a section in a model, and the promises about lines and keys.
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

/// The marker of a value of several lines.
inline constexpr StringView kMarker = u"$!MULTILINEFIELD@#";

/// The keys of a section; nothing when it has other lines too, because those are lost or changed on
/// purpose.
std::optional<Entries> keysOf(const IniText& ini, std::size_t header);
/// Whether a key is there twice.
bool hasTwice(const Entries& keys);

/// Whether an entry may be in a table: a line can hold it, or it is a comment.
bool isEntry(const Entry& one);
/// Whether it is a comment or begins like a header: a table may contain it, but a single key may
/// not.
bool isOdd(const Entry& one);
Variant tableOf(const Entries& entries);
/// The lines of an entry whose value may have several.
Entries linesOf(const Entry& entry);
/// A value of several lines as it is read; the members lose a line break at its end.
String withoutLastBreak(const String& value);
String withoutDigits(String key);

IniLines withoutBlanks(IniLines lines);
/// Promises that the lines are the same; only the last one of a file may have lost or got a line
/// end.
void promiseSameLines(const IniLines& got, const IniLines& wanted);
/// Promises that sections, keys and values are read as they are in the file; cut lists are left
/// out.
void promiseReading(QuorInifile& file, const IniText& ini);
void promiseKeys(const std::optional<Entries>& got, const Entries& wanted);

}  // namespace quorkit::fuzz
