#include "inifile/profile.h"

#include <algorithm>

#include "frame/error_patterns.h"
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

SectionLines sectionLines(const IniDocument& document, StringView section, Long size) {
    const auto buffer = static_cast<std::size_t>(size);
    SectionLines lines{document.entries(section, buffer), {}, 0};
    for (const String& line : lines.whole) lines.size += line.size() + 1;
    if (lines.size <= buffer - 1) return lines;

    lines.size = buffer - 2;
    std::size_t left = lines.size;
    std::size_t fitting = 0;
    while (lines.whole[fitting].size() + 1 <= left) left -= lines.whole[fitting++].size() + 1;
    lines.cut = lines.whole[fitting].substr(0, left);
    lines.whole.resize(fitting);
    return lines;
}

Array<String> nameArray(std::vector<String> names) {
    if (names.empty()) names.emplace_back();
    return Array<String>(std::move(names));
}

SectionContent readContent(const IniDocument& document, StringView section, Long size) {
    SectionContent content;
    SectionLines lines = sectionLines(document, section, size);
    if (lines.size <= 2 || lines.whole.empty()) return content;

    content.table = Array<String>({0, 2}, {0, static_cast<Long>(lines.whole.size())});
    auto slot = content.table.elements().begin();
    for (String& line : lines.whole) {
        const auto equals = line.find(u'=');
        if (equals != String::npos) {
            slot[0].assign(line, 0, equals);
            slot[1] = std::move(line.erase(0, equals + 1));
            ++content.count;
        }
        slot += 2;
    }
    return content;
}

KeyValueTable::KeyValueTable(const Variant& value) {
    const auto take = [&](const auto& array) {
        if (array.dimensions() != 2 || array.bounds(1).count < 2) return false;
        step_ = static_cast<std::size_t>(array.bounds(1).count);
        count_ = array.bounds(2).count;
        return true;
    };
    if (const auto* texts = value.getIf<Array<String>>()) {
        if (take(*texts)) texts_ = texts->elements().data();
    } else if (const auto* values = value.getIf<Array<Variant>>(); values && take(*values)) {
        const bool readable = resumeNext([&] {
            for (const Variant& element : values->elements())
                converted_.push_back(runtime::CStr(element));
        });
        if (!readable) count_ = 0;
        texts_ = converted_.data();
    }
}

}  // namespace quorkit
