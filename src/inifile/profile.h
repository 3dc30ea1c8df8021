// The limits of the profile operations' buffers, and the tables made of their results.
#pragma once

#include <quorkit/variant.h>

#include <cstddef>
#include <vector>

#include "inifile/document.h"

namespace quorkit::inifile {

constexpr Long kValueBuffer = 4096;
constexpr Long kListBuffer = 32767;

/// The given size, but at least 32767 characters, the usual buffer; a missing size means that one.
/// Error 13 or 6 when the size is no Long.
std::size_t bufferSize(const Variant& given);

/// The part of a value that fits into a buffer with its terminating U+0000.
String cutValue(String value);

/// The names that fit. Each takes a U+0000 and the list one more; names beyond the buffer are
/// dropped.
std::vector<String> fittingNames(std::vector<String> names);

/// The names as an array counted from 0; a single empty element when there are none.
Array<String> nameArray(std::vector<String> names);

/// A section as a table of keys and values, both dimensions counted from 0.
struct SectionContent {
    Array<String> table{{0, 2}, {0, 1}};
    Long count = 0;  ///< lines with "="; the table has an entry for every line

    /// The result for a section that could not be read.
    static SectionContent unreadable() { return {Array<String>({0, 2}, {0, 1}), -1}; }
};
/// The lines that fit into a buffer of `size` characters; each takes a U+0000, and the section one
/// more. An error when the file is refused.
SectionContent readContent(const IniDocument& document, StringView section, std::size_t size);
/// The whole section, for callers that write it anew and would lose what they do not see.
SectionContent wholeContent(const IniDocument& document, StringView section);

/// A table from a caller: two dimensions with any bounds, the first with two elements or more; its
/// elements are texts, or Variants that have a text. Any other value is a table without entries.
class KeyValueTable {
   public:
    /// `value` must outlive the table.
    explicit KeyValueTable(const Variant& value);

    Long count() const { return count_; }
    /// The key and the value of entry `index`, counted from 0.
    const String& key(Long index) const { return texts_[static_cast<std::size_t>(index) * step_]; }
    const String& value(Long index) const { return (&key(index))[1]; }

   private:
    std::vector<String> converted_;
    const String* texts_ = nullptr;
    std::size_t step_ = 2;  ///< elements from one entry to the next
    Long count_ = 0;
};

}  // namespace quorkit::inifile
