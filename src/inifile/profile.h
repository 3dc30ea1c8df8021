// What the profile operations hand back in buffers of a given size, and the tables made of it.
#pragma once

#include <quorkit/variant.h>

#include <vector>

#include "inifile/document.h"

namespace quorkit {

constexpr Long kValueBuffer = 4096;
constexpr Long kListBuffer = 32767;

/// The given size when it is larger than the usual buffer of 32767 characters, else that one; for
/// a missing size too. Error 13 or 6 when the size is no Long.
Long bufferSize(const Variant& given);

/// A value as far as it fits into a buffer with its terminating U+0000.
String cutValue(String value);

/// The names that fit: when all of them, each with a U+0000, and one more U+0000 exceed the
/// buffer, those that do are dropped.
std::vector<String> fittingNames(std::vector<String> names);

/// The lines of a section, each with a U+0000, as far as they fit into a buffer of `size`
/// characters; a line may be cut.
String sectionText(const IniDocument& document, StringView section, Long size);

/// The entries of such a text, each up to its U+0000, the cut one at the end included.
std::vector<String> entriesOf(StringView sectionText);

/// The names as an array counted from 0, one empty element when there are none.
Array<String> nameArray(std::vector<String> names);

/// A section as a table of key and value, both dimensions counted from 0.
struct SectionContent {
    Array<String> table{{0, 2}, {0, 1}};
    Long count = 0;  ///< lines with "=", although the table has an entry for every line
};
SectionContent readContent(const IniDocument& document, StringView section, Long size);

/// A table handed in by a caller: two dimensions with any bounds, the first with two elements, of
/// texts or Variants. Any other value is a table without entries.
class KeyValueTable {
   public:
    explicit KeyValueTable(const Variant& value);

    Long count() const { return count_; }
    /// Entry `index`, counted from 0. Error 13 when it has no text.
    String key(Long index) const { return element(0, index); }
    String value(Long index) const { return element(1, index); }

   private:
    String element(Long row, Long index) const;

    const Variant& value_;
    Long count_ = 0;
};

}  // namespace quorkit
