// The text of one INI file, read and changed in place: a change touches its own line and nothing
// else. The first section, and in it the first key, of a name is the one that counts.
//
// These are the four profile operations as Win32 has them, on a text in memory:
// GetPrivateProfileStringA is value, forEachKey and sectionNames, WritePrivateProfileStringA is
// setValue, removeKey and removeSection, GetPrivateProfileSectionA is entries and
// WritePrivateProfileSectionA setEntries. What their buffers cut off is in profile.h.
#pragma once

#include <quorkit/values.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "inifile/encoding.h"
#include "inifile/line.h"

namespace quorkit {

/// A line that is to stand in a section: name, "=" and value; or `name` alone, as it stands. A name
/// that begins with ";" makes it a comment. Refers to texts of the caller.
struct IniEntry {
    StringView name;
    StringView value = {};
    bool key = true;

    /// From the form that IniDocument::entries gives.
    static IniEntry of(StringView line);
};

class IniDocument {
   public:
    /// Takes the content of a file. Text that is plain ASCII has no encoding yet; what is added to
    /// it is written in `asciiAs`.
    explicit IniDocument(std::string content, Encoding asciiAs = Encoding::Ansi);

    /// The content of the file again.
    std::string content() && { return putMarkOn(std::move(marked_)); }
    /// Whether anything has been changed.
    bool changed() const { return changed_; }
    /// Whether the content would be read back in the encoding that it was changed in.
    bool keepsItsEncoding() const;

    // Reading. A name with characters that the encoding lacks is looked for with "?" for them.

    /// A name as it would be read back: without blanks around it, and with "?" for what the
    /// encoding lacks.
    String asStored(StringView name) const;
    std::optional<String> value(StringView section, StringView key) const;
    /// Hands `use` the name of every key of a section, in order, and a function for its value.
    using KeyUse = std::function<void(String name, const std::function<String()>& value)>;
    void forEachKey(StringView section, const KeyUse& use) const;
    /// The names of the sections in order, but for those whose name is empty. May stop when their
    /// text exceeds `enough` characters.
    std::vector<String> sectionNames(std::size_t enough) const;
    /// The lines of a section in order, blank ones left out: name, "=" and value of a key, any
    /// other line as it stands. May stop when their text exceeds `enough` characters.
    std::vector<String> entries(StringView section, std::size_t enough) const;
    /// From here on sections are found by an index, for callers that ask for many of them.
    void indexSections() { index_ = Index(); }

    // Changing. False when the layout cannot carry it, or when what is to be removed is not there;
    // then nothing has changed.

    bool setValue(StringView section, StringView key, StringView value);
    bool removeKey(StringView section, StringView key);
    bool removeSection(StringView section);
    /// Makes the lines of a section the given ones. Lines that stay as they were keep every byte,
    /// and blank lines keep their place.
    bool setEntries(StringView section, std::span<const IniEntry> lines);
    /// Makes a section the last one, without the blank lines behind it. A section that another one
    /// of its name would then hide stays where it is.
    void moveSectionToEnd(StringView section);

   private:
    /// A name that lines are compared with.
    struct Wanted {
        String folded;
        std::optional<std::string> ascii;  ///< the same, when it is plain ASCII
    };

    std::string_view part(std::size_t begin, std::size_t end) const {
        return std::string_view(marked_.text).substr(begin, end - begin);
    }
    Encoding encoding() const;
    String decoded(std::size_t begin, std::size_t end) const;
    String nameOf(const Line& line) const { return decoded(line.nameBegin, line.nameEnd); }
    void addDecoded(String& text, std::size_t begin, std::size_t end) const;
    void addValue(String& text, const Line& line) const;
    String valueOf(const Line& line) const;
    String entryOf(const Line& line) const;

    Wanted wanted(StringView name) const;
    bool isNamed(const Line& line, const Wanted& name) const;
    /// Calls `use` with each line behind a section's header line, until it answers false.
    template <class Use>
    void forEachLine(const Line& header, Use use) const;
    std::optional<Line> nextHeader(std::size_t from) const;
    std::optional<Line> findSection(StringView name) const;
    std::optional<Line> findInIndex(const String& folded) const;
    std::optional<Line> findKey(const Line& header, StringView key) const;
    std::size_t endOfSection(const Line& header) const;
    Line lastLineBut(const Line& header, std::initializer_list<LineKind> kinds) const;

    class OldLines;
    bool holds(std::size_t begin, std::size_t end, StringView text) const;
    bool holdsKey(const Line& line, StringView key) const;
    bool isEntry(const Line& line, const IniEntry& entry) const;
    std::string lineEndAt(const Line& line) const;
    void addRewritten(std::string& text, const Line& line, StringView value) const;
    bool addWritten(std::string& text, const IniEntry& entry) const;
    bool addMerged(std::string& text, const Line& header, std::span<const IniEntry> lines) const;
    bool appendSection(StringView name, std::span<const IniEntry> lines);
    void append(std::string_view lines);
    void replace(std::size_t begin, std::size_t end, std::string_view by);

    MarkedText marked_;
    Encoding asciiAs_;
    mutable std::optional<Encoding> encoding_;  // found out when it first matters
    /// The headers found so far by their folded names, and where to look for more.
    struct Index {
        std::unordered_map<String, Line> headers;
        std::size_t end = 0;
    };
    mutable std::optional<Index> index_;
    bool changed_ = false;
};

template <class Use>
void IniDocument::forEachLine(const Line& header, Use use) const {
    for (std::size_t at = header.next; at < marked_.text.size();) {
        const Line line = lineAt(marked_.text, at);
        if (line.kind == LineKind::Section || !use(line)) return;
        at = line.next;
    }
}

}  // namespace quorkit
