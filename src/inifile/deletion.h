// Removing several keys of a section by writing it anew without them.
#pragma once

#include <quorkit/array.h>
#include <quorkit/ports/files.h>
#include <quorkit/variant.h>

#include <unordered_set>

#include "inifile/document.h"
#include "runtime/letter_case.h"

namespace quorkit {

/// The name under which a key is looked for among the names to delete.
using BaseOfKey = StringView (*)(StringView key);
/// The key itself.
StringView wholeKey(StringView key);
/// The key without the decimal digits at its end; "" when it is nothing else.
StringView RemoveTrailingDigits(StringView key);

/// One order to delete keys.
class Deletion {
   public:
    /// `size` is the caller's size of the section, or missing. Keys go whose base is among `names`,
    /// without regard to case; those that are their own base are counted. `names` without exactly
    /// one dimension is empty. The arguments must outlive the order.
    Deletion(StringView section, const Array<String>& names, const Variant& size, BaseOfKey base);

    enum Outcome : Long { kTwice = -2, kFailed = -1 };  // else the number of keys removed

    /// What has become of the document: rewritten, or as it was.
    struct Done {
        Long result = 0;
        bool rewritten = false;
    };
    Done run(IniDocument& document) const;

   private:
    StringView section_;
    const Array<String>& names_;
    const Variant& size_;
    BaseOfKey base_;
};

/// Runs the order on a file. `lastResult` is the outcome of the write, 0 when there was none.
Long deleteFromFile(Files& files, const String& name, const Deletion& deletion, Long& lastResult);

}  // namespace quorkit
