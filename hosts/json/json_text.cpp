#include "json/json_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "json/utf8.h"

// JSON values hold UTF-8, which has no lone surrogates. A surrogate is written in them as the
// noncharacter U+10FFFF, followed by the surrogate moved into the private-use area; U+10FFFF itself
// is doubled.

namespace quorkit::json {
namespace {

constexpr int kDeepest = 200;
constexpr char32_t kMark = 0x10FFFF;
constexpr std::string_view kMarkBytes = "\xF4\x8F\xBF\xBF";
constexpr char32_t kMoved = 0xE000 - 0xD800;

void appendCarried(std::string& bytes, char32_t codePoint) {
    if (base::isSurrogate(codePoint) || codePoint == kMark) base::appendUtf8(bytes, kMark);
    base::appendUtf8(bytes, base::isSurrogate(codePoint) ? codePoint + kMoved : codePoint);
}

/// The code unit of an escape like \u00E9 at `position`.
std::optional<char16_t> escapedUnit(std::string_view text, std::size_t position) {
    constexpr std::size_t kLength = 6;
    if (text.size() - position < kLength || text.substr(position, 2) != "\\u") return {};
    unsigned unit = 0;
    const char* end = text.data() + position + kLength;
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
        if (text.substr(position, kMarkBytes.size()) == kMarkBytes) {
            appendCarried(result, kMark);
            position += kMarkBytes.size();
            continue;
        }
        const auto unit = escapedUnit(text, position);
        if (unit && base::isSurrogate(*unit)) {
            String units(1, *unit);
            if (const auto second = escapedUnit(text, position + 6)) units += *second;
            std::size_t used = 0;
            appendCarried(result, base::nextCodePoint(units, used));
            position += 6 * used;
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
    const std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string result;
    result.reserve(text.size());
    std::size_t position = 0;
    for (std::size_t mark; (mark = text.find(kMarkBytes, position)) != std::string::npos;) {
        result.append(text, position, mark - position);
        position = mark + kMarkBytes.size();
        if (text.compare(position, kMarkBytes.size(), kMarkBytes) == 0) {
            result += kMarkBytes;
            position += kMarkBytes.size();
        } else {
            const char32_t surrogate = fromUtf8(text.substr(position, 3))[0] - kMoved;
            char digits[4];
            std::to_chars(digits, std::end(digits), static_cast<unsigned>(surrogate), 16);
            result.append("\\u").append(digits, 4);
            position += 3;
        }
    }
    return result.append(text, position);
}

Json jsonString(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        appendCarried(bytes, base::nextCodePoint(text, position));
    return bytes;
}

String textOf(const Json& string) {
    const String held = fromUtf8(string.get_ref<const std::string&>());
    String text;
    text.reserve(held.size());
    for (std::size_t position = 0; position < held.size();) {
        std::size_t start = position;
        if (base::nextCodePoint(held, position) == kMark) {
            start = position;
            if (base::nextCodePoint(held, position) != kMark) {
                text += static_cast<char16_t>(held[start] - kMoved);
                continue;
            }
        }
        text.append(held, start, position - start);
    }
    return text;
}

}  // namespace quorkit::json
