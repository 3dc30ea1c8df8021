#include "support/ini_entries.h"

#include <algorithm>
#include <set>
#include <string>

#include "support/target.h"

namespace quorkit::fuzz {

std::optional<Entries> keysOf(const IniText& ini, std::size_t header) {
    Entries keys;
    if (header == IniText::kNone) return keys;
    const std::size_t end = ini.endOfSection(header);
    for (std::size_t i = header + 1; i < end; ++i) {
        const IniLine& line = ini.lines[i];
        if (line.kind == IniLine::Blank) continue;
        if (line.kind != IniLine::Key || line.name.empty()) return {};
        keys.push_back({line.name, line.value});
    }
    return keys;
}

bool hasTwice(const Entries& keys) {
    std::set<String> seen;
    return !std::ranges::all_of(
        keys, [&](const Entry& one) { return seen.insert(comparable(one.key)).second; });
}

bool isEntry(const Entry& one) {
    const String key = trimBlanks(one.key);
    if (!key.starts_with(u';')) return isKeyName(one.key) && isValue(one.value);
    return one.key.find_first_of(StringView(u"=\r\n\0", 4)) == String::npos && isValue(one.value) &&
           one.value.find_first_of(u"\r\n") == String::npos;
}

bool isOdd(const Entry& one) {
    const String key = trimBlanks(one.key);
    return key.starts_with(u';') || key.starts_with(u'[');
}

Variant tableOf(const Entries& entries) {
    Array<String> table({0, 2}, {0, static_cast<Long>(entries.size())});
    for (std::size_t i = 0; i < entries.size(); ++i) {
        table.elements()[2 * i] = entries[i].key;
        table.elements()[2 * i + 1] = entries[i].value;
    }
    return table;
}

Entries linesOf(const Entry& entry) {
    const String key = trimBlanks(entry.key);
    if (entry.value.find(u"\r\n") == String::npos) return {{key, entry.value}};
    Entries lines = {{key, String(kMarker)}};
    const String value = withoutLastBreak(entry.value);
    for (std::size_t at = 0, end = 0; end != String::npos; at = end + 2) {
        end = value.find(u"\r\n", at);
        const std::string number = std::to_string(lines.size());
        lines.push_back({key + String(number.begin(), number.end()),
                         value.substr(at, end == String::npos ? end : end - at)});
    }
    return lines;
}

String withoutLastBreak(const String& value) {
    return value.ends_with(u"\r\n") ? value.substr(0, value.size() - 2) : value;
}

String withoutDigits(String key) {
    while (!key.empty() && key.back() >= u'0' && key.back() <= u'9') key.pop_back();
    return key;
}

IniLines withoutBlanks(IniLines lines) {
    std::erase_if(lines, [](const IniLine& line) { return line.kind == IniLine::Blank; });
    return lines;
}

void promiseSameLines(const IniLines& got, const IniLines& wanted) {
    // A "\r" at the end of a file becomes part of the line end that is appended.
    const auto textOf = [](const IniLine& line, bool last) {
        return last && line.text.ends_with(u'\r') ? line.text.substr(0, line.text.size() - 1)
                                                  : line.text;
    };
    promiseEqual(got.size(), wanted.size(), "no line is lost or added");
    for (std::size_t i = 0; i < got.size(); ++i) {
        const bool last = got[i].end.empty() || wanted[i].end.empty();
        promiseEqual(textOf(got[i], last), textOf(wanted[i], last),
                     "a line that nothing was asked for stays");
        if (!last) promiseEqual(got[i].end, wanted[i].end, "a line keeps its end");
    }
}

void promiseKeys(const std::optional<Entries>& got, const Entries& wanted) {
    const auto all = [](const Entries& keys) {
        String text;
        for (const Entry& one : keys) text.append(one.key).append(u"=").append(one.value) += u'\n';
        return text;
    };
    promise(got.has_value(), "a section of keys stays one");
    promiseEqual(all(*got), all(wanted), "the keys and values of a section");
}

void promiseReading(QuorInifile& file, const IniText& ini) {
    std::vector<String> sections;
    std::size_t size = 0;
    for (const IniLine& line : ini.lines)
        if (line.kind == IniLine::Header && !line.name.empty()) sections.push_back(line.name);
    for (const String& name : sections) size += name.size() + 1;
    if (size > 32'000 || sections.empty() || ini.looksForeign()) return;
    Long count = 0;
    promise(file.ReadSectionNames(count) == Variant(Array<String>(std::vector(sections))),
            "all sections are listed");
    const std::size_t header = ini.findSection(sections[0]);
    std::vector<String> keys;
    size = 0;
    const std::size_t end = ini.endOfSection(header);
    for (std::size_t i = header + 1; i < end; ++i)
        if (ini.lines[i].kind == IniLine::Key && !ini.lines[i].name.empty())
            keys.push_back(ini.lines[i].name);
    for (const String& key : keys) size += key.size() + 1;
    if (size > 32'000 || keys.empty()) return;
    promise(file.ReadSectionKeys(sections[0], count) == Variant(Array<String>(std::vector(keys))),
            "all keys are listed");
    promiseEqual(file.ReadKeyValue(sections[0], keys[0], u""),
                 ini.lines[ini.findKey(header, keys[0])].value.substr(0, 4095),
                 "a value is read as it stands");
}

}  // namespace quorkit::fuzz
