#include "json/json_text.h"

#include <quorkit/utf8.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <functional>
#include <optional>

// JSON values hold UTF-8, which has no lone surrogates. A surrogate is written in them as the
// noncharacter U+10FFFF, followed by the surrogate moved into the private-use area; U+10FFFF itself
// is doubled.

namespace quorkit::json {
namespace {

constexpr int kDeepest = 200;
constexpr std::string_view kMark = "\xF4\x8F\xBF\xBF";

/// A surrogate takes three bytes, of which the first is \xED and the second begins at \xA0; moved
/// up by 0x800 these two are \xEE and begin at \x80.
constexpr char kFirst = '\xED';
constexpr char kMovedFirst = '\xEE';
constexpr char kMoved = 0x20;
bool isSurrogate(std::string_view bytes) {
    return bytes.size() >= 3 && bytes[0] == kFirst && (bytes[1] & kMoved) != 0;
}

void appendCarried(std::string& bytes, StringView text) {
    const std::string plain = toUtf8(text, Malformed::Keep);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const std::string_view rest = std::string_view(plain).substr(i);
        if (rest.starts_with(kMark)) bytes += kMark;
        if (isSurrogate(rest)) {
            bytes.append(kMark).append({kMovedFirst, static_cast<char>(rest[1] ^ kMoved)});
            ++i;
        } else {
            bytes += rest[0];
        }
    }
}

/// Undoes it, and hands what was a surrogate to `surrogate` for its own form.
template <class Surrogate>
std::string uncarried(std::string_view bytes, Surrogate surrogate) {
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t mark; (mark = bytes.find(kMark)) != std::string::npos;) {
        result += bytes.substr(0, mark);
        bytes.remove_prefix(mark + kMark.size());
        if (bytes.starts_with(kMark)) {
            result += kMark;
            bytes.remove_prefix(kMark.size());
        } else {
            result +=
                surrogate(std::string{kFirst, static_cast<char>(bytes[1] ^ kMoved), bytes[2]});
            bytes.remove_prefix(3);
        }
    }
    return result.append(bytes);
}

constexpr std::size_t kEscapeLength = 6;
/// The code unit of an escape like \u00E9 at `position`.
std::optional<char16_t> escapedUnit(std::string_view text, std::size_t position) {
    if (position > text.size() || text.size() - position < kEscapeLength ||
        text.substr(position, 2) != "\\u")
        return {};
    unsigned unit = 0;
    const char* end = text.data() + position + kEscapeLength;
    if (std::from_chars(text.data() + position + 2, end, unit, 16).ptr != end) return {};
    return static_cast<char16_t>(unit);
}

/// The JSON text, with everything that the parser would refuse written in that form.
std::string carried(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t plain =
            std::min(text.find_first_of("\\\xF4", position), text.size()) - position;
        result += text.substr(position, plain);
        position += plain;
        if (text.substr(position, kMark.size()) == kMark) {
            result.append(kMark).append(kMark);
            position += kMark.size();
            continue;
        }
        // The parser reads all other escapes.
        String units;
        for (auto unit = escapedUnit(text, position); unit && (*unit & 0xF800) == 0xD800;
             unit = escapedUnit(text, position)) {
            units += *unit;
            position += kEscapeLength;
        }
        if (!units.empty()) {
            appendCarried(result, units);
        } else {
            const std::string_view one = text.substr(position, text[position] == '\\' ? 2 : 1);
            result += one;
            position += one.size();
        }
    }
    return result;
}

}  // namespace

Json readJson(std::string_view text) {
    try {
        return Json::parse(carried(text), [](int depth, Json::parse_event_t, const Json&) {
            if (depth > kDeepest) throw JsonError("nested too deeply");
            return true;
        });
    } catch (const Json::exception&) {
        throw JsonError("not JSON");
    }
}

std::string writeJson(const Json& value) {
    return uncarried(value.dump(-1, ' ', false, Json::error_handler_t::replace),
                     [](const std::string& surrogate) {
                         char text[8];
                         std::snprintf(text, sizeof text, "\\u%04x",
                                       unsigned{fromUtf8(surrogate, Malformed::Keep)[0]});
                         return std::string(text);
                     });
}

Json jsonString(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    appendCarried(bytes, text);
    return bytes;
}

String textOf(const Json& string) {
    return fromUtf8(uncarried(string.get_ref<const std::string&>(), std::identity()),
                    Malformed::Keep);
}

}  // namespace quorkit::json
