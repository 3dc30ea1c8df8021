// The text of one INI file, read and changed in place: a change touches only its own line. When a
// name is there twice, the first section, and in it the first key, counts.
//
// These are the four profile operations as Win32 has them, on a text in memory.
// GetPrivateProfileStringA is value, forEachKey and sectionNames; WritePrivateProfileStringA is
// setValue, removeKey and removeSection; GetPrivateProfileSectionA is entries;
// WritePrivateProfileSectionA is setEntries. profile.h has the limits of their buffers.
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

namespace quorkit::inifile {

/// A line for a section: name, "=" and value. A name that begins with ";" makes it a comment.
/// Refers to texts of the caller.
struct IniEntry {
    StringView name;
    StringView value;
};

class IniDocument {
   public:
    /// Takes the content of a file.
    explicit IniDocument(std::string content) : file_(takeApart(std::move(content))) {}
    /// The document of a file that can be neither read nor written.
    static IniDocument refused() { return IniDocument(FileText{.refused = true}); }
    /// Whether the file can be neither read nor written; the document then is empty.
    bool isRefused() const { return file_.refused; }

    /// The content of the file; nothing when it would be read back in another encoding.
    std::optional<std::string> content() &&;
    /// Whether anything has been changed.
    bool changed() const { return changed_; }

    // Reading. Names are compared as keys are, see base::sameKey; blanks around them do not count.

    std::optional<String> value(StringView section, StringView key) const;
    /// Passes `use` the name of every key of a section, in order, and a function that gives its
    /// value.
    using KeyUse = std::function<void(String name, const std::function<String()>& value)>;
    void forEachKey(StringView section, const KeyUse& use) const;
    /// The names of the sections in order, without empty ones. May stop when their text exceeds
    /// `enough` characters.
    std::vector<String> sectionNames(std::size_t enough) const;
    /// The lines of a section in order, without blank ones: name, "=" and value of a key, any other
    /// line as it is. May stop when their text exceeds `enough` characters.
    std::vector<String> entries(StringView section, std::size_t enough) const;
    /// Whether the encoding has all characters of a text; if not, ports::takeReason says so.
    bool canHold(StringView text) const { return isAscii(text) || encoded(text); }
    /// Whether a section of that name exists or can be made.
    bool canHoldSection(StringView name) const;
    /// Finds sections by an index from now on, for callers that look for many of them.
    void indexSections() { index_ = Index(); }

    // Changing. False when the layout or the encoding cannot hold the new content, or when nothing
    // is there to be removed; then the document is unchanged.

    bool setValue(StringView section, StringView key, StringView value);
    bool removeKey(StringView section, StringView key);
    bool removeSection(StringView section);
    /// Replaces the lines of a section by the given ones. A line that stays keeps every byte, and
    /// blank lines keep their places.
    bool setEntries(StringView section, std::span<const IniEntry> lines);
    /// Puts lines in front of those of a section, which stay.
    bool putInFront(StringView section, std::span<const IniEntry> lines);
    /// Moves a section to the end and drops the blank lines behind it. A section stays where it is
    /// if another one of its name would then come first.
    void moveSectionToEnd(StringView section);

   private:
    explicit IniDocument(FileText file) : file_(std::move(file)) {}

    /// A name to compare lines with.
    struct Wanted {
        explicit Wanted(StringView name);
        String lower;
        std::optional<std::string> ascii;  ///< the same text, if it is plain ASCII
    };

    std::string_view part(std::size_t begin, std::size_t end) const {
        return std::string_view(file_.text).substr(begin, end - begin);
    }
    Encoding encoding() const;
    std::optional<std::string> encoded(StringView text) const;
    bool addEncoded(std::string& bytes, StringView text) const;
    String decoded(std::size_t begin, std::size_t end) const;
    String nameOf(const Line& line) const { return decoded(line.nameBegin, line.nameEnd); }
    void addDecoded(String& text, std::size_t begin, std::size_t end) const;
    void addValue(String& text, const Line& line) const;
    String valueOf(const Line& line) const;
    String entryOf(const Line& line) const;

    bool isNamed(const Line& line, const Wanted& name) const;
    /// Calls `use` with each line of a section behind its header, until `use` returns false.
    template <class Use>
    void forEachLine(const Line& header, Use use) const;
    std::optional<Line> nextHeader(std::size_t from) const;
    std::optional<Line> findSection(StringView name) const;
    std::optional<Line> findInIndex(const String& lower) const;
    std::optional<Line> findKey(const Line& header, StringView key) const;
    std::size_t endOfSection(const Line& header) const;
    Line lastLineBut(const Line& header, std::initializer_list<LineKind> kinds) const;

    class OldLines;
    bool holds(std::size_t begin, std::size_t end, StringView text) const;
    bool holdsKey(const Line& line, StringView key) const;
    bool isEntry(const Line& line, const IniEntry& entry) const;
    std::string lineEndAt(const Line& line) const;
    bool addRewritten(std::string& text, const Line& line, StringView value) const;
    bool addWritten(std::string& text, const IniEntry& entry) const;
    bool addMerged(std::string& text, const Line& header, std::span<const IniEntry> lines) const;
    bool addLines(std::string& text, std::span<const IniEntry> lines,
                  std::string_view lineEnd) const;
    bool appendSection(StringView name, std::span<const IniEntry> lines);
    void append(std::string_view lines);
    void replace(std::size_t begin, std::size_t end, std::string_view by);

    FileText file_;
    mutable std::optional<Encoding> encoding_;  // determined when it first matters
    /// The headers found so far, by their names in small letters, and the place to search on.
    struct Index {
        std::unordered_map<String, Line> headers;
        std::size_t end = 0;
    };
    mutable std::optional<Index> index_;
    bool changed_ = false;
};

template <class Use>
void IniDocument::forEachLine(const Line& header, Use use) const {
    for (std::size_t at = header.next; at < file_.text.size();) {
        const Line line = lineAt(file_.text, at);
        if (line.kind == LineKind::Section || !use(line)) return;
        at = line.next;
    }
}

}  // namespace quorkit::inifile
