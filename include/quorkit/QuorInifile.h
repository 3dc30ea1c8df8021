// Reads and writes one INI file: keys, sections, whole sections, values of several lines.
//
// Nothing is held open and nothing is cached: every member works on the file itself, so two
// objects, or two programs, see each other's writes at once. A write locks the file, reads it
// again, makes its change and puts the new content in place in one step; a failure at any point
// leaves the old content. docs/inifile.md describes the layout of a file.
//
// A missing file, section or key raises no error: reads give the default, "" or an empty list,
// writes give 0.
//
// Two names are the same when they are equal in small letters; blanks around a name do not count.
// Text that the layout or the encoding of the file cannot hold is refused, never altered. Three
// kinds of files are refused as a whole: those of more than 256 MB, UTF-32, and UTF-16 without a
// byte-order mark. For such a file reads find nothing, ReadSectionContent and ReadMultiLineSection
// give -1, isIniFileMultiLineFieldSave gives False, writes give 0, DeleteKeys and
// DeleteMultiLineKeys give -1. ports::takeReason tells the reason.
#pragma once

#include <quorkit/array.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class QuorInifile {
   public:
    explicit QuorInifile(Ports& ports = ports::native()) : ports_(ports) {}

    /// The file that all members work on; "" at first. The name is not checked, and the file need
    /// not exist.
    const String& IniFileName() const { return sIniFileName; }
    void setIniFileName(const String& name);

    // --- Keys and sections ---

    /// The value of a key, cut to 4095 characters; the default when the section or the key is
    /// missing.
    String ReadKeyValue(const String& sSection, const String& sKeyName,
                        const String& vsDefaultValue);

    /// Sets a key and makes the file, the section and the key as needed. An empty value is stored
    /// as an empty value. 1, or 0 when it could not be written; then nothing has changed.
    Long WriteKeyValue(const String& sSection, const String& sKeyName, const String& sValue);

    /// The names of a section's keys as a String array counted from 0; a single empty element when
    /// there are none. Names beyond a total of 32767 characters are dropped.
    Variant ReadSectionKeys(const String& sSection, Out<Long> countKeysRead);
    /// The names of the file's sections, in the same form.
    Variant ReadSectionNames(Out<Long> countSectionsRead);

    /// Removes a section with all its lines. 1, or 0 when it is missing or cannot be removed.
    Long DeleteSection(const String& sSection);
    /// Removes a key's line. 1, or 0 when it is missing or cannot be removed.
    Long DeleteKey(Unchanged<String> sSection, Unchanged<String> sKeyName);
    /// Makes an empty section. A section that exists is emptied: only its header line and its blank
    /// lines stay. 1, or 0 when it could not be written.
    Long AddSection(Unchanged<String> sSection);

    /// Removes several keys by writing the whole section anew, at the end of the file. Lines of the
    /// section without "=" are written as "=", and for each such line one of the last entries is
    /// lost. Returns the number of keys removed; with 0 the section is written anew too, unless it
    /// or the list is empty. -2 when the section holds a key twice; then nothing is written. -1
    /// when reading or writing failed. `lSectionSizeInByte` has no effect, but one that is no Long
    /// gives -1.
    Long DeleteKeys(Unchanged<String> sSection, Unchanged<Array<String>> sKeyNames,
                    const Optional<Variant>& lSectionSizeInByte = {});

    // --- Whole sections ---

    /// The lines of a section as a table (0 to 1, 0 to lines - 1) of key and value; a line without
    /// "=" is an empty entry. `countKeys` receives the number of lines with "=", or -1 on an error.
    /// A caller that reads only so many entries misses the last ones when lines without "=" come
    /// before them. The text of the section is cut at 32767 characters, or at `lSectionSizeInByte`
    /// when that is more.
    Variant ReadSectionContent(const String& sSection, Out<Long> countKeys,
                               const Optional<Variant>& lSectionSizeInByte = {});

    /// Merges a key/value table (with any lower bounds) into a section: existing keys get the new
    /// value in place, new keys follow at the end. Returns the number of entries written; entries
    /// that the layout or the encoding cannot hold are left out and not counted. 0, and an
    /// untouched file, when nothing is left to write, when the table cannot be read or when the
    /// section name cannot be stored. Lines without "=" are written as "=", and for each such line
    /// one of the last entries is lost. Only `lastResult` tells whether the write itself succeeded.
    /// `lOldSectionSizeInByte` has no effect, but one that is no Long gives -1, and nothing is
    /// written.
    Long WriteSectionContent(const String& sSection, const Variant& sKeyArray,
                             const Optional<Variant>& lOldSectionSizeInByte = {});

    // --- Values of several lines ---

    /// Stores a value. One that holds "\r\n" takes several lines of the file; of line breaks at its
    /// end one is lost. 1, or 0 when the key is empty or ends in a digit, or when key or value
    /// cannot be stored. Only `lastResult` tells whether the write itself succeeded.
    Long WriteMultiLineValue(const String& sSection, const String& sKey, const String& sValue);

    /// A value with its lines joined by "\r\n". An empty section or key name gives "", not the
    /// default. Each line is cut to 4095 characters. Only lines whose key is among the first 32767
    /// characters of the section's key names are found.
    String ReadMultiLineValue(const String& sSection, const String& sKeyName,
                              const Optional<Variant>& vsDefaultValue = {});

    /// Deletes the keys of a table as DeleteMultiLineKeys does, then stores the table in front of
    /// the section's other lines. Returns the number of entries accepted; a key that is empty or
    /// ends in a digit, and an entry that cannot be stored, is left out. With 0 the file is not
    /// touched. Never raises an error: an argument that does not convert gives 0. With
    /// `vbSupportOldMultiLineFields` True six old key names always take the form of several lines.
    /// `lOldSectionSizeInByte` must be a Long, but has no effect.
    Long WriteMultiLineSection(const String& sSection, const Variant& sKeyValueArray,
                               const Optional<Variant>& lOldSectionSizeInByte = {},
                               const Optional<Variant>& vbSupportOldMultiLineFields = {});

    /// The section as a key/value table in which the lines of a value are joined. `countKeys`
    /// receives the number of entries, -2 when a key occurs twice, -1 on an error. Keys that end in
    /// a digit are left out.
    Variant ReadMultiLineSection(const String& sSection, Out<Long> countKeys,
                                 const Optional<Variant>& lSectionSizeInByte = {});

    /// Like DeleteKeys, but each key is deleted together with its numbered lines, which are not
    /// counted. A key whose own name ends in digits cannot be deleted this way. DeleteMultiLineKey
    /// deletes one key.
    Long DeleteMultiLineKeys(const String& sSection, Unchanged<Array<String>> sKeyNames,
                             const Optional<Variant>& lSectionSizeInByte = {});
    Long DeleteMultiLineKey(const String& sSection, const String& sKeyName);

    /// Whether ReadMultiLineSection can read every section of the file.
    Boolean isIniFileMultiLineFieldSave();

    // --- For C++ callers; not in the catalogue ---

    /// The outcome of the last write: not 0 when it succeeded. Most reads set it to 0.
    Long lastResult() const { return lLastResult; }

   private:
    Ports& ports_;
    String sIniFileName;
    Long lLastResult = 0;
};

}  // namespace quorkit
