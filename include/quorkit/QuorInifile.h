// Reads and writes one INI file: keys, sections, whole sections, values of several lines.
//
// Nothing is held open and nothing is cached: every member works on the file itself, so two
// objects, or two programs, see each other's writes at once. A write locks the file, reads it
// again, changes what it must and puts the new content in place in one step; a failure at any
// point leaves the old content. How a file is laid out is told in docs/inifile.md.
//
// No member raises an error for a missing file, section or key: reads give the default, "" or an
// empty list, writes give 0.
//
// Names are the same when they are equal in small letters; blanks around them do not count. What
// the layout or the encoding of the file cannot carry is refused, never bent. A file of more than
// 256 MB, in UTF-32, or in UTF-16 without a byte-order mark, is refused whole: reads find nothing,
// ReadSectionContent and ReadMultiLineSection give -1, isIniFileMultiLineFieldSave False, writes 0,
// DeleteKeys and DeleteMultiLineKeys -1. ports::takeReason says what was refused.
#pragma once

#include <quorkit/array.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class QuorInifile {
   public:
    explicit QuorInifile(Ports& ports = ports::native()) : ports_(ports) {}

    /// The file all members work on; "" at first. Nothing is checked, the file need not exist.
    const String& IniFileName() const { return sIniFileName; }
    void setIniFileName(const String& name);

    // --- Keys and sections ---

    /// The value of a key, cut to 4095 characters; the default when section or key is missing.
    String ReadKeyValue(const String& sSection, const String& sKeyName,
                        const String& vsDefaultValue);

    /// Sets a key and makes file, section and key as needed. An empty value stays an empty value.
    /// 1, or 0 when it could not be written: then nothing has changed.
    Long WriteKeyValue(const String& sSection, const String& sKeyName, const String& sValue);

    /// The names of a section's keys as a String array counted from 0, one empty element when
    /// there are none. Names past 32767 characters in all are dropped.
    Variant ReadSectionKeys(const String& sSection, Out<Long> countKeysRead);
    /// The names of the file's sections, in the same form.
    Variant ReadSectionNames(Out<Long> countSectionsRead);

    /// Removes a section with all its lines. 1, or 0 when it is not there or cannot be written.
    Long DeleteSection(const String& sSection);
    /// Removes a key's line. 1, or 0 when it is not there or cannot be written.
    Long DeleteKey(Unchanged<String> sSection, Unchanged<String> sKeyName);
    /// Makes an empty section. A section that exists is emptied: only its header line stays, and
    /// blank lines. 1, or 0 when it could not be written.
    Long AddSection(Unchanged<String> sSection);

    /// Removes several keys by writing the section anew, at the end of the file. Its lines without
    /// "=" become "=", and as many of the last entries are lost. The number of keys removed (0
    /// rewrites the section all the same, unless it or the list is empty); -2 when the section
    /// holds a key twice, then nothing is written; -1 when reading or writing failed. The whole
    /// section is taken, whatever `lSectionSizeInByte` says; one that is no Long gives -1.
    Long DeleteKeys(Unchanged<String> sSection, Unchanged<Array<String>> sKeyNames,
                    const Optional<Variant>& lSectionSizeInByte = {});

    // --- Whole sections ---

    /// The lines of a section as a table (0 to 1, 0 to lines - 1) of key and value; a line without
    /// "=" is an empty entry. `countKeys` counts only the lines with "=", -1 on an error; callers
    /// that walk the table by it miss the last entries when a line without "=" comes earlier. The
    /// text of the section is cut at 32767 characters, or at `lSectionSizeInByte` when that is
    /// more.
    Variant ReadSectionContent(const String& sSection, Out<Long> countKeys,
                               const Optional<Variant>& lSectionSizeInByte = {});

    /// Merges a key/value table (any lower bounds) into a section: present keys get the new value
    /// in place, new ones follow at the end. The number of entries written. Entries that layout or
    /// encoding cannot carry are left out and not counted. 0 when nothing is left to write, for an
    /// unreadable table and a section name that cannot be carried: then the file is not touched.
    /// Lines without "=" become "=", and as many of the last entries are lost. Whether the write
    /// itself succeeded shows only in `lastResult`. The whole section is taken, whatever
    /// `lOldSectionSizeInByte` says; one that is no Long gives -1, and nothing is written.
    Long WriteSectionContent(const String& sSection, const Variant& sKeyArray,
                             const Optional<Variant>& lOldSectionSizeInByte = {});

    // --- Values of several lines ---

    /// Stores a value, in several lines of the file when it holds "\r\n"; of those at its very end
    /// one is lost. 1, or 0 when it is refused because the key is empty or ends in a digit, or it
    /// cannot be carried. Whether the write itself succeeded shows only in `lastResult`.
    Long WriteMultiLineValue(const String& sSection, const String& sKey, const String& sValue);

    /// A value with its lines joined by "\r\n". An empty section or key name gives "", not the
    /// default. Each line is cut to 4095 characters, and lines are found as long as the section's
    /// key names fit into 32767 characters.
    String ReadMultiLineValue(const String& sSection, const String& sKeyName,
                              const Optional<Variant>& vsDefaultValue = {});

    /// Stores a key/value table in front of the section's other lines, after DeleteMultiLineKeys of
    /// its keys. Returns the number of entries accepted: those that cannot be carried, and keys
    /// that are empty or end in a digit, are left out. Never raises: an argument that does not
    /// convert gives 0. With 0 the file is not touched. With `vbSupportOldMultiLineFields` True six
    /// old key names always take the form of several lines. `lOldSectionSizeInByte` must be a Long,
    /// and nothing else.
    Long WriteMultiLineSection(const String& sSection, const Variant& sKeyValueArray,
                               const Optional<Variant>& lOldSectionSizeInByte = {},
                               const Optional<Variant>& vbSupportOldMultiLineFields = {});

    /// The section as a key/value table with the values of several lines joined. `countKeys` is
    /// the number of entries, -2 when a key occurs twice, -1 on an error. Keys that end in a digit
    /// are left out.
    Variant ReadMultiLineSection(const String& sSection, Out<Long> countKeys,
                                 const Optional<Variant>& lSectionSizeInByte = {});

    /// Like DeleteKeys, but each key goes with its numbered lines; counts the main keys only. A key
    /// whose own name ends in digits cannot be deleted this way. DeleteMultiLineKey: for one key.
    Long DeleteMultiLineKeys(const String& sSection, Unchanged<Array<String>> sKeyNames,
                             const Optional<Variant>& lSectionSizeInByte = {});
    Long DeleteMultiLineKey(const String& sSection, const String& sKeyName);

    /// Whether ReadMultiLineSection can read every section of the file.
    Boolean isIniFileMultiLineFieldSave();

    // --- For C++ callers; not in the catalogue ---

    /// The outcome of the last write: nonzero when it succeeded. Most reads set it to 0.
    Long lastResult() const { return lLastResult; }

   private:
    Ports& ports_;
    String sIniFileName;
    Long lLastResult = 0;
};

}  // namespace quorkit
