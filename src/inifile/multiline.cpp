// Values of several lines: a marker line, then one numbered key for each line of the value.
#include <quorkit/GQuorConvert.h>
#include <quorkit/QuorInifile.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "frame/error_patterns.h"
#include "inifile/deletion.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"
#include "runtime/convert.h"
#include "runtime/letter_case.h"

namespace quorkit {
namespace {

using runtime::TextEqual;
using runtime::TextHash;

constexpr StringView kMarker = u"$!MULTILINEFIELD@#";
constexpr StringView kBreak = u"\r\n";
constexpr Long kCheckedSectionSize = 100000;

/// Keys that are stored in several lines whatever their value, when the caller asks for it.
constexpr std::array<StringView, 6> kOldFields = {
    u"RASENDER",           u"RASENDERBOLD",        u"RARETURNLINE",
    u"RAUNDERWRITINGLEFT", u"RAUNDERWRITINGRIGHT", u"RACOMPLEMENTARYCLOSEADDON"};

bool isMarker(StringView value) {
    return runtime::toUpper(value) == kMarker;
}

bool endsInDigit(StringView key) {
    return !key.empty() && key.back() >= u'0' && key.back() <= u'9';
}

String numbered(StringView key, Long number) {
    const std::string digits = std::to_string(number);
    return String(key) + String(digits.begin(), digits.end());
}

/// The values of key1, key2 ... up to the first that `find` does not know, as one text.
template <class Find>
String joinLines(StringView key, Find find) {
    String text;
    for (Long number = 1;; ++number) {
        const String* line = find(numbered(key, number));
        if (line == nullptr) break;
        text += *line;
        text += kBreak;
    }
    if (!text.empty()) text.resize(text.size() - kBreak.size());
    return text;
}

/// A section's table with the values of several lines joined; count -2 for a key that is there
/// twice.
SectionContent joinedContent(const IniDocument& document, StringView section, Long size) {
    SectionContent read = readContent(document, section, size);
    SectionContent joined;
    if (read.count < 1) return joined;

    std::unordered_map<StringView, const String*, TextHash, TextEqual> values;
    for (Long i = 0; i < read.count; ++i) {
        const String& key = read.table.at(0, i);
        const bool isNew = values.emplace(key, &read.table.at(1, i)).second;
        if (!isNew && isKeyName(key)) {
            joined.count = Deletion::kTwice;
            return joined;
        }
    }
    const auto find = [&](StringView key) {
        const auto found = values.find(key);
        return found == values.end() ? nullptr : found->second;
    };
    std::vector<String> texts;
    for (Long i = 0; i < read.count; ++i) {
        const String& key = read.table.at(0, i);
        const String& value = read.table.at(1, i);
        if (isMarker(value)) {
            texts.push_back(key);
            texts.push_back(joinLines(key, find));
        } else if (!endsInDigit(key)) {
            texts.push_back(key);
            texts.push_back(value);
        }
    }
    joined.count = static_cast<Long>(texts.size() / 2);
    if (joined.count > 0) {
        joined.table = Array<String>({0, 2}, {0, joined.count});
        joined.table.elements() = std::move(texts);
    }
    return joined;
}

bool isOldField(StringView key) {
    return std::ranges::find(kOldFields, runtime::toUpper(key)) != kOldFields.end();
}

/// The lines that store a table.
struct MultiLineEntries {
    GQuorConvert convert;
    std::vector<String> keys = {};  ///< those accepted
    std::vector<String> lines = {};

    void add(StringView key, const String& value, bool oldFields) {
        const StringView name = trimBlanks(key);
        if (endsInDigit(name) || !isEntry(key, value)) return;
        keys.emplace_back(key);
        if (value.find(kBreak) == String::npos && !(oldFields && isOldField(name))) {
            addLine(key, value);
            return;
        }
        Array<String> pieces;
        const Long count = convert.StringTokenToStringArray(value, String(kBreak), pieces);
        addLine(key, kMarker);
        for (Long i = 0; i < count; ++i) addLine(numbered(name, i + 1), pieces.at(i));
    }

    void addLine(StringView key, StringView value) {
        lines.push_back(String(key).append(u"=").append(value));
    }
};

}  // namespace

Long QuorInifile::WriteMultiLineValue(const String& sSection, const String& sKey,
                                      const String& sValue) {
    Array<String> table({0, 2}, {0, 1});
    table.at(0, 0) = sKey;
    table.at(1, 0) = sValue;
    return WriteMultiLineSection(sSection, table);
}

Long QuorInifile::WriteMultiLineSection(const String& sSection, const Variant& sKeyValueArray,
                                        const Optional<Variant>& lOldSectionSizeInByte,
                                        const Optional<Variant>& vbSupportOldMultiLineFields) {
    lLastResult = 0;
    return onErrorReturn(Long{0}, [&] {
        const Long size = bufferSize(*lOldSectionSizeInByte);
        const bool oldFields = !vbSupportOldMultiLineFields->isMissing() &&
                               runtime::CBool(*vbSupportOldMultiLineFields);
        MultiLineEntries entries{GQuorConvert(ports_)};
        const KeyValueTable input(sKeyValueArray);
        for (Long i = 0; i < input.count(); ++i)
            entries.add(input.key(i), input.value(i), oldFields);
        if (entries.keys.empty() || !isSectionName(sSection)) return Long{0};

        const Array<String> keys(entries.keys);
        const Deletion deletion(sSection, keys, *lOldSectionSizeInByte, RemoveTrailingDigits);
        lLastResult = editIni(ports_.files, sIniFileName, [&](IniDocument& document) {
            deletion.run(document);
            std::vector<IniEntry> all;
            all.reserve(entries.lines.size());
            for (const String& line : entries.lines) all.push_back(IniEntry::of(line));
            const SectionLines rest = sectionLines(document, sSection, size);
            if (rest.size > 2) {
                for (const String& line : rest.whole) all.push_back(IniEntry::of(line));
                if (!rest.cut.empty()) all.push_back(IniEntry::of(rest.cut));
            }
            return document.setEntries(sSection, all);
        });
        return static_cast<Long>(entries.keys.size());
    });
}

String QuorInifile::ReadMultiLineValue(const String& sSection, const String& sKeyName,
                                       const Optional<Variant>& vsDefaultValue) {
    lLastResult = 0;
    String byDefault;
    if (!vsDefaultValue->isMissing())
        resumeNext([&] { byDefault = runtime::CStr(*vsDefaultValue); });
    if (sSection.empty() || sKeyName.empty()) return {};

    const IniDocument document = readIni(ports_.files, sIniFileName);
    String value = cutValue(document.value(sSection, sKeyName).value_or(byDefault));
    if (!isMarker(value)) return value;

    const String prefix = document.asStored(sKeyName);
    std::vector<String> names;
    std::unordered_map<String, String, TextHash, TextEqual> lines;
    document.forEachKey(sSection, [&](String name, const auto& valueOfKey) {
        const StringView start = StringView(name).substr(0, prefix.size());
        if (runtime::sameText(start, prefix) && !lines.contains(name))
            lines.emplace(name, cutValue(valueOfKey()));
        names.push_back(std::move(name));
    });
    names = fittingNames(std::move(names));
    const std::unordered_set<StringView, TextHash, TextEqual> known(names.begin(), names.end());
    const String text = joinLines(prefix, [&](const String& name) -> const String* {
        return known.contains(name) ? &lines.find(name)->second : nullptr;
    });
    return text.empty() ? byDefault : text;
}

Variant QuorInifile::ReadMultiLineSection(const String& sSection, Long& countKeys,
                                          const Optional<Variant>& lSectionSizeInByte) {
    lLastResult = 1;
    SectionContent content = onErrorReturn(SectionContent::unreadable(), [&] {
        return joinedContent(readIni(ports_.files, sIniFileName), sSection,
                             bufferSize(*lSectionSizeInByte));
    });
    countKeys = content.count;
    return std::move(content.table);
}

Long QuorInifile::DeleteMultiLineKeys(const String& sSection, Unchanged<Array<String>> sKeyNames,
                                      const Optional<Variant>& lSectionSizeInByte) {
    return deleteFromFile(ports_.files, sIniFileName,
                          Deletion(sSection, *sKeyNames, *lSectionSizeInByte, RemoveTrailingDigits),
                          lLastResult);
}

Long QuorInifile::DeleteMultiLineKey(const String& sSection, const String& sKeyName) {
    return DeleteMultiLineKeys(sSection, Array<String>(std::vector<String>{sKeyName}));
}

Boolean QuorInifile::isIniFileMultiLineFieldSave() {
    IniDocument document = readIni(ports_.files, sIniFileName);
    document.indexSections();
    std::unordered_set<String, TextHash, TextEqual> checked;
    return std::ranges::all_of(
        fittingNames(document.sectionNames(kListBuffer)), [&](const String& section) {
            return !checked.insert(section).second ||
                   joinedContent(document, section, kCheckedSectionSize).count >= 0;
        });
}

}  // namespace quorkit
