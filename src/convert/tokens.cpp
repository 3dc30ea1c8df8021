#include <quorkit/GQuorConvert.h>

#include "runtime/convert.h"
#include "runtime/search.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

/// Passes every piece of `s` that ends at a delimiter to `take`, and returns the text behind the
/// last one.
template <class Take>
StringView eachPieceBefore(StringView delimiter, StringView s, Take take) {
    const runtime::Search delimiters(delimiter);
    std::size_t start = 0;
    std::size_t hit = delimiters.in(s, start);
    for (; hit != runtime::Search::kNotFound; hit = delimiters.in(s, start)) {
        take(s.substr(start, hit - start));
        start = hit + delimiter.size();
    }
    return s.substr(start);
}

}  // namespace

Long GQuorConvert::StringTokenToStringArray(const String& s, const String& delimiter,
                                            Out<Array<String>> sArray) {
    std::vector<StringView> views;  // the texts are made once their number is known
    const StringView rest =
        eachPieceBefore(delimiter, s, [&](StringView piece) { views.push_back(piece); });
    // The rest counts unless `s` ends with the delimiter. Where delimiters could overlap ("aaa" at
    // "aa") a rest is dropped that way.
    if (views.empty() || !s.ends_with(delimiter)) views.push_back(rest);
    const auto count = static_cast<Long>(views.size());
    sArray = Array<String>(std::vector<String>(views.begin(), views.end()));
    return count;
}

Long GQuorConvert::StringTokenToStringCollection(const String& s, const String& delimiter,
                                                 Boolean bTrim, CollectionRef& c) {
    if (!s.empty()) {
        if (c == nullptr) c = Collection::make();
        const auto add = [&](StringView piece) {
            c->add(String(bTrim ? runtime::Trim(piece) : piece));
        };
        const StringView rest = eachPieceBefore(delimiter, s, add);
        if (!rest.empty()) add(rest);
    }
    return c == nullptr ? 0 : c->count();
}

String GQuorConvert::CollectionToStringToken(const CollectionRef& c, const String& delimiter) {
    if (c == nullptr) raise(ErrorNumber::ObjectNotSet);
    String text;
    for (Long position = 1; position <= c->count(); ++position) {
        if (position > 1) text += delimiter;
        text += runtime::CStr(c->item(position));
    }
    return text;
}

}  // namespace quorkit
