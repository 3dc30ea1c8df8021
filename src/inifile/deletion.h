// Removing several keys of a section by writing it anew without them.
#pragma once

#include <quorkit/array.h>
#include <quorkit/ports/files.h>
#include <quorkit/variant.h>

#include "inifile/document.h"

namespace quorkit::inifile {

/// The name under which a key is looked for among the names to delete.
using BaseOfKey = StringView (*)(StringView key);
/// The key itself.
StringView wholeKey(StringView key);
/// The key without the decimal digits at its end; "" when it is nothing else.
StringView RemoveTrailingDigits(StringView key);

/// One order to delete keys.
class Deletion {
   public:
    /// Keys go whose base is among `names`; those that are their own base are counted. `names`
    /// without exactly one dimension is empty. The arguments must outlive the order.
    Deletion(StringView section, const Array<String>& names, BaseOfKey base);

    /// Whether there is nothing to delete.
    bool isEmpty() const { return names_.dimensions() != 1 || names_.elements().empty(); }

    enum Outcome : Long { kTwice = -2, kFailed = -1 };  // else the number of keys removed

    /// What has become of the document: rewritten, or as it was.
    struct Done {
        Long result = 0;
        bool rewritten = false;
    };
    /// Takes the whole section, however large it is.
    Done run(IniDocument& document) const;

   private:
    StringView section_;
    const Array<String>& names_;
    BaseOfKey base_;
};

/// Runs the order on a file. `size` is what the caller gave as the size of the section: kFailed
/// when it is no Long. `lastResult` is the outcome of the write, 0 when there was none.
Long deleteFromFile(Files& files, const String& name, const Deletion& deletion, const Variant& size,
                    Long& lastResult);

}  // namespace quorkit::inifile
