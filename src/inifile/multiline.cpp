// Values of several lines: a marker line, followed by one numbered key for each line of the value.
#include <quorkit/GQuorConvert.h>
#include <quorkit/QuorInifile.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "inifile/deletion.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

using base::KeyEqual;
using base::KeyHash;

constexpr StringView kMarker = u"$!MULTILINEFIELD@#";
constexpr StringView kBreak = u"\r\n";
constexpr std::size_t kCheckedSectionSize = 100000;

/// Keys that always take several lines, whatever their value, when the caller asks for it.
constexpr std::array<StringView, 6> kOldFields = {
    u"RASENDER",           u"RASENDERBOLD",        u"RARETURNLINE",
    u"RAUNDERWRITINGLEFT", u"RAUNDERWRITINGRIGHT", u"RACOMPLEMENTARYCLOSEADDON"};

bool isMarker(StringView value) {
    return base::toUpper(value) == kMarker;
}

bool endsInDigit(StringView key) {
    return !key.empty() && key.back() >= u'0' && key.back() <= u'9';
}

String numbered(StringView key, Long number) {
    const std::string digits = std::to_string(number);
    return String(key) + String(digits.begin(), digits.end());
}

/// The values of key1, key2 ... as one text, up to the first key that `find` does not know.
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

/// A section as a table in which the lines of each value are joined. `count` is -2 when a key is
/// there twice.
inifile::SectionContent joinedContent(const inifile::IniDocument& document, StringView section,
                                      std::size_t size) {
    inifile::SectionContent read = inifile::readContent(document, section, size);
    inifile::SectionContent joined;
    if (read.count < 1) return joined;

    std::unordered_map<StringView, const String*, KeyHash, KeyEqual> values;
    for (Long i = 0; i < read.count; ++i) {
        const String& key = read.table.at(0, i);
        const bool isNew = values.emplace(key, &read.table.at(1, i)).second;
        if (!isNew && inifile::isKeyName(key)) {
            joined.count = inifile::Deletion::kTwice;
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
    return std::ranges::find(kOldFields, base::toUpper(key)) != kOldFields.end();
}

/// The lines that store a table.
class MultiLineEntries {
   public:
    MultiLineEntries(Ports& ports, const inifile::IniDocument& document, bool oldFields)
        : convert_(ports), document_(document), oldFields_(oldFields) {}

    void add(const String& key, const String& value) {
        const StringView name = inifile::trimBlanks(key);
        if (endsInDigit(name) || !inifile::isEntry(key, value)) return;
        if (!document_.canHold(key) || !document_.canHold(value)) return;
        keys_.push_back(key);
        if (value.find(kBreak) == String::npos && !(oldFields_ && isOldField(name))) {
            lines_.emplace_back(key, value);
            return;
        }
        Array<String> pieces;
        const Long count = convert_.StringTokenToStringArray(value, String(kBreak), pieces);
        lines_.emplace_back(key, kMarker);
        for (Long i = 0; i < count; ++i) lines_.emplace_back(numbered(name, i + 1), pieces.at(i));
    }

    /// The keys that were accepted.
    const std::vector<String>& keys() const { return keys_; }
    std::vector<inifile::IniEntry> entries() const {
        std::vector<inifile::IniEntry> all;
        all.reserve(lines_.size());
        for (const auto& [key, value] : lines_) all.push_back({key, value});
        return all;
    }

   private:
    GQuorConvert convert_;
    const inifile::IniDocument& document_;
    bool oldFields_;
    std::vector<String> keys_;
    std::vector<std::pair<String, String>> lines_;
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
    return frame::onErrorReturn(Long{0}, [&] {
        inifile::bufferSize(*lOldSectionSizeInByte);
        const bool oldFields = !vbSupportOldMultiLineFields->isMissing() &&
                               runtime::CBool(*vbSupportOldMultiLineFields);
        const inifile::KeyValueTable input(sKeyValueArray);
        if (input.count() < 1) return Long{0};
        Long accepted = 0;
        lLastResult =
            inifile::editIni(ports_.files, sIniFileName, [&](inifile::IniDocument& document) {
                accepted = 0;
                if (!document.canHoldSection(sSection)) return false;
                MultiLineEntries entries(ports_, document, oldFields);
                for (Long i = 0; i < input.count(); ++i) entries.add(input.key(i), input.value(i));
                accepted = static_cast<Long>(entries.keys().size());
                if (accepted == 0) return false;
                inifile::Deletion(sSection, Array<String>(entries.keys()),
                                  inifile::RemoveTrailingDigits)
                    .run(document);
                return document.putInFront(sSection, entries.entries());
            });
        return accepted;
    });
}

String QuorInifile::ReadMultiLineValue(const String& sSection, const String& sKeyName,
                                       const Optional<Variant>& vsDefaultValue) {
    lLastResult = 0;
    String byDefault;
    if (!vsDefaultValue->isMissing())
        frame::resumeNext([&] { byDefault = runtime::CStr(*vsDefaultValue); });
    if (sSection.empty() || sKeyName.empty()) return {};

    const inifile::IniDocument document = inifile::readIni(ports_.files, sIniFileName);
    String value = inifile::cutValue(document.value(sSection, sKeyName).value_or(byDefault));
    if (!isMarker(value)) return value;

    const String prefix(inifile::trimBlanks(sKeyName));
    std::vector<String> names;
    std::unordered_map<String, String, KeyHash, KeyEqual> lines;
    document.forEachKey(sSection, [&](String name, const auto& valueOfKey) {
        const StringView start = StringView(name).substr(0, prefix.size());
        if (base::sameKey(start, prefix) && !lines.contains(name))
            lines.emplace(name, inifile::cutValue(valueOfKey()));
        names.push_back(std::move(name));
    });
    names = inifile::fittingNames(std::move(names));
    const std::unordered_set<StringView, KeyHash, KeyEqual> known(names.begin(), names.end());
    const String text = joinLines(prefix, [&](const String& name) -> const String* {
        return known.contains(name) ? &lines.find(name)->second : nullptr;
    });
    return text.empty() ? byDefault : text;
}

Variant QuorInifile::ReadMultiLineSection(const String& sSection, Out<Long> countKeys,
                                          const Optional<Variant>& lSectionSizeInByte) {
    lLastResult = 1;
    inifile::SectionContent content =
        frame::onErrorReturn(inifile::SectionContent::unreadable(), [&] {
            return joinedContent(inifile::readIni(ports_.files, sIniFileName), sSection,
                                 inifile::bufferSize(*lSectionSizeInByte));
        });
    countKeys = content.count;
    return std::move(content.table);
}

Long QuorInifile::DeleteMultiLineKeys(const String& sSection, Unchanged<Array<String>> sKeyNames,
                                      const Optional<Variant>& lSectionSizeInByte) {
    return inifile::deleteFromFile(
        ports_.files, sIniFileName,
        inifile::Deletion(sSection, *sKeyNames, inifile::RemoveTrailingDigits), *lSectionSizeInByte,
        lLastResult);
}

Long QuorInifile::DeleteMultiLineKey(const String& sSection, const String& sKeyName) {
    return DeleteMultiLineKeys(sSection, Array<String>(std::vector<String>{sKeyName}));
}

Boolean QuorInifile::isIniFileMultiLineFieldSave() {
    inifile::IniDocument document = inifile::readIni(ports_.files, sIniFileName);
    if (document.isRefused()) return false;
    document.indexSections();
    std::unordered_set<String, KeyHash, KeyEqual> checked;
    return std::ranges::all_of(
        inifile::fittingNames(document.sectionNames(inifile::kListBuffer)),
        [&](const String& section) {
            return !checked.insert(section).second ||
                   joinedContent(document, section, kCheckedSectionSize).count >= 0;
        });
}

}  // namespace quorkit
