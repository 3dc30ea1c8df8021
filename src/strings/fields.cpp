// Field names in texts, field names with line numbers, and command-line parameters.
#include <quorkit/GQuorStrings.h>

#include <utility>

#include "base/letter_case.h"
#include "runtime/search.h"
#include "strings/positions.h"

namespace quorkit {
namespace {

using runtime::Search;

/// Where the digits at the end of `s` begin.
std::size_t lineNumberOf(const String& s) {
    strings::require16BitPositions(s);
    const std::size_t last = s.find_last_not_of(u"0123456789");
    return last == String::npos ? 0 : last + 1;
}

}  // namespace

CollectionRef GQuorStrings::ReadAllVarFields(
    Unchanged<String> sText, const Optional<String, Text(u"@#")>& sVarFieldHeader,
    const Optional<String, Text(u"#@")>& sVarFieldTrailer) {
    auto names = Collection::make();
    const String text = base::toLower(*sText);
    const String header = base::toLower(*sVarFieldHeader);
    const String trailer = base::toLower(*sVarFieldTrailer);
    const Search headers(header);
    const Search trailers(trailer);
    for (std::size_t trailerAt = 0;;) {
        const std::size_t headerAt = headers.in(text, trailerAt + trailer.size());
        if (headerAt == Search::kNotFound) break;
        const std::size_t nameAt = headerAt + header.size();
        trailerAt = trailers.in(text, nameAt);
        if (trailerAt == Search::kNotFound) break;
        if (trailerAt > nameAt) names->add(sText->substr(nameAt, trailerAt - nameAt));
    }
    return names;
}

void GQuorStrings::SplitDOSCMDParam(const String& Param, Out<String> cmd, Out<String> arg) {
    strings::require16BitPositions(Param);
    const std::size_t equals = Param.find(u'=');
    String command = Param.substr(0, equals);  // `cmd` or `arg` may be `Param` itself
    if (equals != String::npos) arg = Param.substr(equals + 1);
    cmd = std::move(command);
}

String GQuorStrings::getFieldNameWithoutLineNumber(const String& s,
                                                   eConvertToUpperOrLower eConvert) {
    String name = s.substr(0, lineNumberOf(s));
    switch (eConvert) {
        case eConvertChars_toUpper:
            return base::toUpper(name);
        case eConvertChars_toLower:
            return base::toLower(name);
        default:
            return name;
    }
}

String GQuorStrings::getFieldNameLineNumber(const String& s) {
    return s.substr(lineNumberOf(s));
}

}  // namespace quorkit
