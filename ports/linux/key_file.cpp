#include "linux/key_file.h"

#include <algorithm>
#include <unordered_map>

#include "base/letter_case.h"
#include "base/registry_names.h"
#include "base/registry_value_text.h"
#include "base/unicode.h"
#include "linux/folder_names.h"

namespace quorkit::native {
namespace {

using base::TextEqual;
using base::TextHash;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

/// One line, or several lines each of which, except the last, ends in ",\".
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;     ///< behind its line end
    std::size_t number = 0;  ///< of its first line, from 1
    std::string joined;      ///< the text, if there are several lines
    std::string_view says;   ///< the text without line ends and blanks around it

    String text() const { return base::fromUtf8(says); }
    bool saysNothing() const { return says.empty() || says.front() == ';' || says.front() == '#'; }
    bool isName() const { return says.starts_with('[') && says.ends_with(']'); }
};

constexpr std::string_view kGoesOn = ",\\";

/// Whether this line may continue a line of bytes: it has only digits, or nothing.
bool canGoOn(std::string_view line) {
    return line.find_first_not_of("0123456789abcdefABCDEF, \t\\") == std::string_view::npos;
}

/// Calls `visit` with each line until `visit` returns false.
template <class Visit>
void forEachLine(std::string_view text, Visit visit) {
    std::size_t at = text.starts_with(base::kUtf8Mark) ? base::kUtf8Mark.size() : 0;
    std::size_t number = 0;
    const auto endOfLine = [&] { return std::min(text.find('\n', at), text.size() - 1) + 1; };
    const auto lookAtLine = [&] { return trimmed(text.substr(at, endOfLine() - at)); };
    const auto takeLine = [&] {
        const std::string_view line = lookAtLine();
        at = endOfLine();
        ++number;
        return line;
    };
    while (at < text.size()) {
        Line line;
        line.begin = at;
        line.says = takeLine();
        line.number = number;
        while (line.says.ends_with(kGoesOn) && at < text.size() && canGoOn(lookAtLine())) {
            if (line.joined.empty()) line.joined = line.says;
            line.joined.pop_back();
            line.joined += takeLine();
            line.says = line.joined;
        }
        line.end = at;
        if (!visit(line)) return;
    }
}

std::optional<String> valueNameOf(const Line& line) {
    if (!line.says.starts_with('"') && !line.says.starts_with('@')) return {};
    const String text = line.text();
    StringView rest = text;
    auto name = base::readName(rest);
    return name && base::canNameValue(*name) ? name : std::nullopt;
}

/// False when a line is certainly not that of the value whose name in UTF-8 is `wanted`; one of the
/// first letters decides most cases.
bool mayBeNamed(std::string_view line, std::string_view wanted) {
    if (wanted.empty()) return line.starts_with('@') || line.starts_with("\"\"");
    if (!line.starts_with('"')) return false;
    line.remove_prefix(1);
    const auto isPlain = [](char byte) {
        return static_cast<unsigned char>(byte) < 0x80 && byte != '\\';
    };
    const auto lower = [](char byte) { return byte >= 'A' && byte <= 'Z' ? byte + 32 : int{byte}; };
    for (std::size_t i = 0; i < std::min(line.size(), wanted.size()); ++i) {
        if (!isPlain(line[i]) || !isPlain(wanted[i])) return true;
        if (lower(line[i]) != lower(wanted[i])) return false;
    }
    return true;
}

std::optional<base::ValueLine> lineOf(const std::string& text, const String& name) {
    const std::string wanted = base::toUtf8(name, Malformed::Keep);
    std::optional<base::ValueLine> found;
    forEachLine(text, [&](const Line& line) {
        if (!mayBeNamed(line.says, wanted)) return true;
        const auto here = valueNameOf(line);
        if (here && base::sameText(*here, name)) found = base::readValue(line.text());
        return true;
    });
    return found;
}

}  // namespace

std::optional<String> KeyFile::name() const {
    std::optional<String> name;
    forEachLine(text_, [&](const Line& line) {
        if (line.isName()) name = nameOfSpelled(line.says.substr(1, line.says.size() - 2));
        return !name;
    });
    return name;
}

bool KeyFile::find(const String& name, RegistryValue& value) const {
    auto line = lineOf(text_, name);
    if (!line || !line->value) return false;
    value = std::move(*line->value);
    return true;
}

void KeyFile::list(std::vector<NamedValue>& values) const {
    std::vector<base::ValueLine> lines;
    std::unordered_map<String, std::size_t, TextHash, TextEqual> positions;
    forEachLine(text_, [&](const Line& line) {
        auto value = base::readValue(line.text());
        if (!value || !base::canNameValue(value->name)) return true;
        const auto [found, isNew] = positions.emplace(value->name, lines.size());
        if (isNew)
            lines.push_back(std::move(*value));
        else
            lines[found->second] = std::move(*value);
        return true;
    });
    for (base::ValueLine& line : lines)
        if (line.value) values.push_back({std::move(line.name), std::move(*line.value)});
}

void KeyFile::set(std::span<const NamedValue> values) {
    const std::size_t firstEnd = text_.find('\n');
    const bool windows =
        firstEnd != std::string::npos && firstEnd > 0 && text_[firstEnd - 1] == '\r';
    const std::string_view lineEnd = windows ? "\r\n" : "\n";

    struct Place {
        String name;  // in the spelling of the file, or of the first new value
        const RegistryValue* value;
        std::size_t begin = std::string::npos;
        std::size_t end = 0;
    };
    // When a name comes twice, the last value is set.
    std::vector<Place> places;
    std::unordered_map<StringView, std::size_t, TextHash, TextEqual> wanted;
    for (const NamedValue& one : values) {
        const auto [found, isNew] = wanted.emplace(one.name, places.size());
        if (isNew) places.push_back({one.name, &one.value});
        places[found->second].value = &one.value;
    }
    forEachLine(text_, [&](const Line& line) {
        const auto name = valueNameOf(line);
        const auto found = name ? wanted.find(*name) : wanted.end();
        if (found == wanted.end()) return true;
        places[found->second].name = *name;
        places[found->second].begin = line.begin;
        places[found->second].end = line.end;
        return true;
    });

    std::ranges::stable_sort(places, {}, &Place::begin);
    std::string changed;
    std::size_t copied = 0;
    for (const Place& place : places) {
        const std::size_t begin = std::min(place.begin, text_.size());
        changed.append(text_, copied, begin - copied);
        copied = std::max(copied, place.begin == std::string::npos ? begin : place.end);
        if (!changed.empty() && !changed.ends_with('\n')) changed += lineEnd;
        changed +=
            base::toUtf8(base::printValue({place.name, *place.value}, base::RegTexts::Readable),
                         Malformed::Keep);
        changed += lineEnd;
    }
    changed.append(text_, copied);
    text_ = std::move(changed);
}

bool KeyFile::remove(const String& name) {
    std::string kept;
    std::size_t copied = 0;
    bool found = false;
    forEachLine(text_, [&](const Line& line) {
        const auto here = valueNameOf(line);
        if (!here || !base::sameText(*here, name)) return true;
        found = true;
        kept.append(text_, copied, line.begin - copied);
        copied = line.end;
        return true;
    });
    kept.append(text_, copied);
    text_ = std::move(kept);
    return found;
}

std::vector<KeyFile::Damage> KeyFile::damage() const {
    constexpr std::size_t most = 100;
    std::vector<Damage> found;
    std::unordered_map<String, std::size_t, TextHash, TextEqual> lines;
    bool named = false;
    forEachLine(text_, [&](const Line& line) {
        const auto say = [&](const char16_t* what) { found.push_back({line.number, what}); };
        if (found.size() >= most) {
            say(u"and what follows has more damage");
            return false;
        }
        if (line.saysNothing()) return true;
        const String text = line.text();
        if (base::toUtf8(text, Malformed::Keep) != line.says) say(u"is no UTF-8");
        if (line.isName()) {
            if (named) say(u"is a second name");
            named = true;
            return true;
        }
        const auto value = base::readValue(text);
        if (!value || !base::canNameValue(value->name)) {
            say(u"is no value");
            return true;
        }
        if (!value->value) say(u"has a name, but no value");
        if (!lines.emplace(value->name, line.number).second)
            say(u"has the name of a value further up, which does not count");
        return true;
    });
    return found;
}

std::string newKeyFile(const String& name) {
    return '[' + spelledNameOf(name) + "]\n";
}

}  // namespace quorkit::native
