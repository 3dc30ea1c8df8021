#include "inifile/deletion.h"

#include <unordered_set>

#include "base/letter_case.h"
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

Deletion::Deletion(StringView section, const Array<String>& names, BaseOfKey base)
    : section_(section), names_(names), base_(base) {}

Deletion::Done Deletion::run(IniDocument& document) const {
    if (isEmpty()) return {};
    using Keys = std::unordered_set<StringView, base::KeyHash, base::KeyEqual>;
    Keys names;
    for (const String& name : names_.elements()) names.insert(trimBlanks(name));
    const SectionContent content = wholeContent(document, section_);
    Keys keys;
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

Long deleteFromFile(Files& files, const String& name, const Deletion& deletion, const Variant& size,
                    Long& lastResult) {
    lastResult = 0;
    if (deletion.isEmpty()) return 0;
    if (!resumeNext([&] { bufferSize(size); })) return Deletion::kFailed;
    Deletion::Done done{Deletion::kFailed, false};
    lastResult = editIni(files, name, [&](IniDocument& document) {
        done = deletion.run(document);
        return done.rewritten;
    });
    return done.rewritten && lastResult == 0 ? Deletion::kFailed : done.result;
}

}  // namespace quorkit
