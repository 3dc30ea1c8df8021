#include "inifile/deletion.h"

#include "frame/error_patterns.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"

namespace quorkit {

StringView wholeKey(StringView key) {
    return key;
}

StringView RemoveTrailingDigits(StringView key) {
    while (!key.empty() && key.back() >= u'0' && key.back() <= u'9') key.remove_suffix(1);
    return key;
}

Deletion::Deletion(StringView section, const Array<String>& names, const Variant& size,
                   BaseOfKey base)
    : section_(section), names_(names), size_(size), base_(base) {}

Deletion::Done Deletion::run(IniDocument& document) const {
    if (names_.dimensions() != 1 || names_.elements().empty()) return {};
    std::unordered_set<String, runtime::TextHash, runtime::TextEqual> names;
    for (const String& name : names_.elements()) names.insert(document.asStored(name));
    SectionContent content;
    if (!resumeNext([&] { content = readContent(document, section_, bufferSize(size_)); }))
        return {kFailed, false};
    std::unordered_set<StringView, runtime::TextHash, runtime::TextEqual> keys;
    std::vector<IniEntry> kept;
    Long removed = 0;
    for (Long i = 0; i < content.count; ++i) {
        const String& key = content.table.at(0, i);
        if (isKeyName(key) && !keys.insert(key).second) return {kTwice, false};
        const StringView base = base_(key);
        if (!key.empty() && names.contains(base))
            removed += base == key ? 1 : 0;
        else
            kept.push_back({key, content.table.at(1, i)});
    }
    if (content.count < 1) return {};
    if (!document.setEntries(section_, kept)) return {kFailed, false};
    document.moveSectionToEnd(section_);
    return {removed, true};
}

Long deleteFromFile(Files& files, const String& name, const Deletion& deletion, Long& lastResult) {
    Deletion::Done done;
    lastResult = editIni(files, name, [&](IniDocument& document) {
        done = deletion.run(document);
        return done.rewritten;
    });
    return done.rewritten && lastResult == 0 ? Deletion::kFailed : done.result;
}

}  // namespace quorkit
