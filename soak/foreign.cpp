#include "foreign.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "base/unicode.h"

namespace quorkit::soak {
namespace {

/// The section that writing many keys at once moves to the end, with new blanks and line ends.
constexpr std::string_view kMoved = "Bulk";
constexpr std::string_view kOfWorkers = "Own ";

struct Section {
    std::vector<std::string> lines;
    std::set<std::string> keysOfWorkers;
};

struct Layout {
    std::string_view mark;
    std::vector<std::string> order;  ///< of the sections that are not moved
    std::map<std::string, Section> sections;
    std::string twice;  ///< keys of workers that are there twice
};

std::string withoutEnd(std::string line) {
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    return line;
}

bool isOfWorker(std::string_view line, char prefix) {
    return line.size() > 1 && line[0] == prefix && line[1] >= '0' && line[1] <= '9';
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

Layout layoutOf(std::string_view content) {
    Layout layout;
    std::string text(content);
    for (const std::string_view mark : {base::kUtf8Mark, base::kUtf16Mark})
        if (content.starts_with(mark)) layout.mark = mark;
    text.erase(0, layout.mark.size());
    if (layout.mark == base::kUtf16Mark) text = base::toUtf8(base::fromUtf16(text));
    std::string name;
    for (std::string& line : linesOf(text)) {
        if (line.starts_with('[')) {
            name = line.substr(1, line.find(']') - 1);
            if (!name.starts_with(kOfWorkers) && name != kMoved) layout.order.push_back(name);
        }
        if (name.starts_with(kOfWorkers)) continue;
        Section& section = layout.sections[name];
        if (isOfWorker(line, 'w')) {
            const std::string key = line.substr(0, line.find('='));
            if (!section.keysOfWorkers.insert(key).second) layout.twice += " " + key;
            continue;
        }
        if (name == kMoved) line = withoutEnd(line);
        if (name != kMoved || !line.empty()) section.lines.push_back(line);
    }
    return layout;
}

/// The last line of a file may have got a line end.
bool sameLine(const std::string& before, const std::string& after) {
    return before == after || (!before.ends_with('\n') && before == withoutEnd(after));
}

std::string compare(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
        if (i < before.size() && i < after.size() && sameLine(before[i], after[i])) continue;
        return "    of " + std::to_string(before.size()) + " lines of others " +
               std::to_string(after.size()) + " are left; line " + std::to_string(i + 1) +
               " was '" + (i < before.size() ? withoutEnd(before[i]) : "(none)") + "', is '" +
               (i < after.size() ? withoutEnd(after[i]) : "(none)") + "'\n";
    }
    return {};
}

}  // namespace

std::string foreignIni(Random& random) {
    std::string text =
        "; by hand = yes\r\nstray text before all sections\n\n"
        "[Other]\r\nkey = value ; no comment\r\n \t indented=  blanks  \n"
        "no sign of equality here\r\n; a comment\nKEY=of the same name\n"
        "[Shared]\r\n; comment by hand\r\nforeign = \"in quotes\"\n\r\nOTHER=1\r\n"
        "[Bulk]\r\n; note=kept\r\n";
    const int many = random.oneIn(2) ? 2500 : 3;
    for (int i = 0; i < many; ++i)
        text += "bulk" + std::to_string(i) + "x=a foreign value " + std::to_string(i) + "\r\n";
    text += "[Last]\r\n; the end\r\nlast=value";
    if (random.oneIn(2)) text += "\r\n";
    switch (random.below(5)) {
        case 0:
            return std::string(base::kUtf8Mark) + "; \xC3\xA9\r\n" + text;
        case 1:
            return std::string(base::kUtf16Mark) +
                   base::toUtf16(base::fromUtf8("; \xC3\xA9\r\n" + text));
        case 2:
            return "; code page 1252: \xE9 \xFC\r\n" + text;
        case 3:
            return "; \xC3\xA9 without a mark\r\n" + text;
        default:
            return text;
    }
}

std::string iniDamage(std::string_view before, std::string_view after) {
    const Layout was = layoutOf(before);
    Layout is = layoutOf(after);
    std::string damage;
    if (was.mark != is.mark) damage += "    the byte-order mark has changed\n";
    if (!is.twice.empty()) damage += "    there twice:" + is.twice + "\n";
    if (was.order != is.order) damage += "    sections are missing or moved\n";
    for (const auto& [name, section] : was.sections) {
        const std::string found = compare(section.lines, is.sections[name].lines);
        if (!found.empty()) damage += "    [" + name + "]:\n" + found;
    }
    return damage;
}

std::string foreignValues() {
    return "; a comment by hand\r\n\r\n\"hand\"=dword:0000002a\n# and one more\n";
}

std::string valuesDamage(std::string_view before, std::string_view after) {
    const auto foreign = [](std::string_view text) {
        std::vector<std::string> lines = linesOf(text);
        std::erase_if(lines, [](const std::string& line) {
            return line.starts_with('"') && isOfWorker(std::string_view(line).substr(1), 'w');
        });
        return lines;
    };
    return compare(foreign(before), foreign(after));
}

}  // namespace quorkit::soak
