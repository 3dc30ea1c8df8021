#include "inifile/profile.h"

#include <algorithm>

#include "runtime/convert.h"

namespace quorkit {

Long bufferSize(const Variant& given) {
    return given.isMissing() ? kListBuffer : std::max(kListBuffer, runtime::CLng(given));
}

String cutValue(String value) {
    if (value.size() > kValueBuffer - 1) value.resize(kValueBuffer - 1);
    return value;
}

std::vector<String> fittingNames(std::vector<String> names) {
    constexpr std::size_t whole = kListBuffer - 1;
    constexpr std::size_t cut = kListBuffer - 2;
    std::size_t used = 0;
    std::size_t fitting = 0;
    for (const String& name : names) {
        used += name.size() + 1;
        if (used <= cut) ++fitting;
    }
    if (used > whole) names.resize(fitting);
    return names;
}

String sectionText(const IniDocument& document, StringView section, Long size) {
    const auto buffer = static_cast<std::size_t>(size);
    String text;
    for (const String& entry : document.entries(section, buffer)) {
        text += entry;
        text += u'\0';
    }
    if (text.size() > buffer - 1) text.resize(buffer - 2);
    return text;
}

std::vector<String> entriesOf(StringView sectionText) {
    std::vector<String> entries;
    while (!sectionText.empty()) {
        const auto end = std::min(sectionText.find(u'\0'), sectionText.size());
        entries.emplace_back(sectionText.substr(0, end));
        sectionText.remove_prefix(std::min(end + 1, sectionText.size()));
    }
    return entries;
}

Array<String> nameArray(std::vector<String> names) {
    if (names.empty()) names.emplace_back();
    return Array<String>(std::move(names));
}

SectionContent readContent(const IniDocument& document, StringView section, Long size) {
    SectionContent content;
    const String text = sectionText(document, section, size);
    if (text.size() <= 2 || text.front() == u'\0') return content;
    const auto lines = static_cast<Long>(std::ranges::count(text, u'\0'));
    if (lines == 0) return content;

    content.table = Array<String>({0, 2}, {0, lines});
    auto slot = content.table.elements().begin();
    StringView rest = text;
    for (Long i = 0; i < lines; ++i, slot += 2) {
        const StringView line = rest.substr(0, rest.find(u'\0'));
        rest.remove_prefix(line.size() + 1);
        const auto equals = line.find(u'=');
        if (equals == StringView::npos) continue;
        slot[0] = line.substr(0, equals);
        slot[1] = line.substr(equals + 1);
        ++content.count;
    }
    return content;
}

KeyValueTable::KeyValueTable(const Variant& value) : value_(value) {
    const auto entries = [](const auto* array) {
        const bool table =
            array != nullptr && array->dimensions() == 2 && array->bounds(1).count >= 2;
        return table ? array->bounds(2).count : 0;
    };
    count_ =
        std::max(entries(value.getIf<Array<String>>()), entries(value.getIf<Array<Variant>>()));
}

String KeyValueTable::element(Long row, Long index) const {
    if (const auto* texts = value_.getIf<Array<String>>())
        return texts->at(texts->lower(1) + row, texts->lower(2) + index);
    const auto& values = value_.get<Array<Variant>>();
    return runtime::CStr(values.at(values.lower(1) + row, values.lower(2) + index));
}

}  // namespace quorkit
