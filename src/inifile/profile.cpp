#include "inifile/profile.h"

#include <quorkit/errors.h>

#include <algorithm>
#include <limits>

#include "frame/error_patterns.h"
#include "runtime/convert.h"

namespace quorkit::inifile {
namespace {

/// The lines of a section that fit, and the number of their characters, with the part that fits of
/// a line that is cut.
struct SectionLines {
    std::vector<String> lines;
    std::size_t size = 0;
};

SectionLines sectionLines(const IniDocument& document, StringView section, std::size_t buffer) {
    SectionLines read{document.entries(section, buffer)};
    for (const String& line : read.lines) read.size += line.size() + 1;
    if (read.size <= buffer - 1) return read;

    read.size = buffer - 2;
    std::size_t left = read.size;
    std::size_t fitting = 0;
    while (read.lines[fitting].size() + 1 <= left) left -= read.lines[fitting++].size() + 1;
    read.lines.resize(fitting);
    return read;
}

}  // namespace

std::size_t bufferSize(const Variant& given) {
    const Long size = given.isMissing() ? kListBuffer : std::max(kListBuffer, runtime::CLng(given));
    return static_cast<std::size_t>(size);
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

Array<String> nameArray(std::vector<String> names) {
    if (names.empty()) names.emplace_back();
    return Array<String>(std::move(names));
}

SectionContent readContent(const IniDocument& document, StringView section, std::size_t size) {
    if (document.isRefused()) raise(ErrorNumber::DeviceError);
    SectionContent content;
    auto [lines, read] = sectionLines(document, section, size);
    if (read <= 2 || lines.empty()) return content;

    content.table = Array<String>({0, 2}, {0, static_cast<Long>(lines.size())});
    auto slot = content.table.elements().begin();
    for (String& line : lines) {
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

SectionContent wholeContent(const IniDocument& document, StringView section) {
    return readContent(document, section, std::numeric_limits<std::size_t>::max());
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
        const bool readable = frame::resumeNext([&] {
            for (const Variant& element : values->elements())
                converted_.push_back(runtime::CStr(element));
        });
        if (!readable) count_ = 0;
        texts_ = converted_.data();
    }
}

}  // namespace quorkit::inifile
