// What the profile operations hand back in buffers of a given size, and the tables made of it.
#pragma once

#include <quorkit/variant.h>

#include <cstddef>
#include <vector>

#include "inifile/document.h"

namespace quorkit::inifile {

constexpr Long kValueBuffer = 4096;
constexpr Long kListBuffer = 32767;

/// The given size when it is larger than the usual buffer of 32767 characters, else that one; for
/// a missing size too. Error 13 or 6 when the size is no Long.
std::size_t bufferSize(const Variant& given);

/// A value as far as it fits into a buffer with its terminating U+0000.
String cutValue(String value);

/// The names that fit: when all of them, each with a U+0000, and one more U+0000 exceed the
/// buffer, those that do are dropped.
std::vector<String> fittingNames(std::vector<String> names);

/// The names as an array counted from 0, one empty element when there are none.
Array<String> nameArray(std::vector<String> names);

/// A section as a table of key and value, both dimensions counted from 0.
struct SectionContent {
    Array<String> table{{0, 2}, {0, 1}};
    Long count = 0;  ///< lines with "=", although the table has an entry for every line

    /// What stands for a section whose reading failed.
    static SectionContent unreadable() { return {Array<String>({0, 2}, {0, 1}), -1}; }
};
/// As far as its lines, each with a U+0000, fit into a buffer of `size` characters with one more
/// U+0000. An error when the file is refused.
SectionContent readContent(const IniDocument& document, StringView section, std::size_t size);
/// All of it, for those who write it anew: what they do not see would be lost.
SectionContent wholeContent(const IniDocument& document, StringView section);

/// A table handed in by a caller: two dimensions with any bounds, the first with two elements or
/// more, of texts or of Variants that have a text. Any other value is a table without entries.
class KeyValueTable {
   public:
    /// `value` must outlive the table.
    explicit KeyValueTable(const Variant& value);

    Long count() const { return count_; }
    /// Entry `index`, counted from 0.
    const String& key(Long index) const { return texts_[static_cast<std::size_t>(index) * step_]; }
    const String& value(Long index) const { return (&key(index))[1]; }

   private:
    std::vector<String> converted_;
    const String* texts_ = nullptr;
    std::size_t step_ = 2;  ///< elements from one entry to the next
    Long count_ = 0;
};

}  // namespace quorkit::inifile
