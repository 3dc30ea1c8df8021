// Removes several keys of a section by writing it anew without them.
#pragma once

#include <quorkit/array.h>
#include <quorkit/ports/files.h>
#include <quorkit/variant.h>

#include "inifile/document.h"

namespace quorkit::inifile {

/// The name by which a key is looked up among the names to delete.
using BaseOfKey = StringView (*)(StringView key);
/// The key itself.
StringView wholeKey(StringView key);
/// The key without the decimal digits at its end; "" for a key of digits only.
StringView RemoveTrailingDigits(StringView key);

/// An order to delete several keys.
class Deletion {
   public:
    /// Deletes each key whose base is among `names`, and counts those that are equal to their base.
    /// Unless `names` has exactly one dimension, it is empty. The arguments must outlive the order.
    Deletion(StringView section, const Array<String>& names, BaseOfKey base);

    /// Whether there is nothing to delete.
    bool isEmpty() const { return names_.dimensions() != 1 || names_.elements().empty(); }

    enum Outcome : Long { kTwice = -2, kFailed = -1 };  // otherwise the number of keys removed

    /// What has happened to the document: it was rewritten, or it is unchanged.
    struct Done {
        Long result = 0;
        bool rewritten = false;
    };
    /// Works on the whole section, however large it is.
    Done run(IniDocument& document) const;

   private:
    StringView section_;
    const Array<String>& names_;
    BaseOfKey base_;
};

/// Runs the order on a file. `size` is the size of the section that the caller gave; kFailed when
/// it is no Long. `lastResult` receives the outcome of the write, 0 when nothing was written.
Long deleteFromFile(Files& files, const String& name, const Deletion& deletion, const Variant& size,
                    Long& lastResult);

}  // namespace quorkit::inifile
