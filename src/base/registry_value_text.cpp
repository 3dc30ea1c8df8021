#include "base/registry_value_text.h"

#include <algorithm>
#include <charconv>

#include "base/code_page.h"
#include "base/dword.h"
#include "base/unicode.h"

namespace quorkit::base {
namespace {

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

void skipBlanks(StringView& rest) {
    while (!rest.empty() && isBlank(rest.front())) rest.remove_prefix(1);
}

bool skip(StringView& rest, StringView word) {
    if (!rest.starts_with(word)) return false;
    rest.remove_prefix(word.size());
    return true;
}

/// A character and the letter that stands for it behind a backslash.
struct Escape {
    char16_t letter;
    char16_t unit;
};
constexpr Escape kEscapes[] = {
    {u'\\', u'\\'}, {u'"', u'"'}, {u'n', u'\n'}, {u'r', u'\r'}, {u'0', u'\0'}};

/// The escape whose `field` is `unit`; null when there is none.
const Escape* findEscape(char16_t Escape::*field, char16_t unit) {
    const auto found = std::ranges::find(kEscapes, unit, field);
    return found == std::end(kEscapes) ? nullptr : found;
}

String quoted(StringView text) {
    String result = u"\"";
    for (const char16_t unit : text) {
        const Escape* const escape = findEscape(&Escape::unit, unit);
        if (escape != nullptr) result += u'\\';
        result += escape == nullptr ? unit : escape->letter;
    }
    return result += u'"';
}

std::optional<String> readQuoted(StringView& rest) {
    if (!skip(rest, u"\"")) return {};
    String text;
    while (!rest.empty()) {
        const char16_t unit = rest.front();
        rest.remove_prefix(1);
        if (unit == u'"') return text;
        const Escape* const escape =
            unit == u'\\' && !rest.empty() ? findEscape(&Escape::letter, rest.front()) : nullptr;
        text += escape == nullptr ? unit : escape->unit;
        if (escape != nullptr) rest.remove_prefix(1);
    }
    return {};
}

std::optional<std::uint32_t> readHexadecimal(StringView& rest, std::size_t mostDigits) {
    char digits[8];
    std::size_t count = 0;
    while (count < std::min(mostDigits, rest.size()) && rest[count] < 0x80) {
        digits[count] = static_cast<char>(rest[count]);
        ++count;
    }
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits, digits + count, number, 16);
    if (error != std::errc()) return {};
    rest.remove_prefix(static_cast<std::size_t>(end - digits));
    return number;
}

std::optional<std::string> readBytes(StringView& rest) {
    std::string bytes;
    skipBlanks(rest);
    if (rest.empty() || rest.front() == u';') return bytes;
    for (;;) {
        const auto byte = readHexadecimal(rest, 2);
        if (!byte) return {};
        bytes += static_cast<char>(*byte);
        skipBlanks(rest);
        if (!skip(rest, u",")) return bytes;
        skipBlanks(rest);
    }
}

/// Reads "(type):", or ":" alone for `type`.
bool readType(StringView& rest, std::uint32_t& type) {
    if (skip(rest, u"(")) {
        const auto number = readHexadecimal(rest, 8);
        if (!number || !skip(rest, u")")) return false;
        type = *number;
    }
    return skip(rest, u":");
}

std::optional<RegistryValue> readData(StringView& rest, RegForm form) {
    RegistryValue value{kRegString, {}};
    const bool plain = rest.starts_with(u'"');
    if (plain || skip(rest, u"str")) {
        if (!plain && !readType(rest, value.type)) return {};
        const auto text = readQuoted(rest);
        if (!text || !isRegistryText(value.type)) return {};
        value.data = toUtf16(*text + u'\0');
        return value;
    }
    if (skip(rest, u"dword:")) {
        const auto number = readHexadecimal(rest, 8);
        if (!number) return {};
        return RegistryValue{kRegDWord, dwordData(*number)};
    }
    value.type = kRegBinary;
    if (!skip(rest, u"hex") || !readType(rest, value.type)) return {};
    auto bytes = readBytes(rest);
    if (!bytes) return {};
    value.data = form == RegForm::Version4 && isRegistryText(value.type) ? toUtf16(fromAnsi(*bytes))
                                                                         : std::move(*bytes);
    return value;
}

/// Whether a text can be written between quotation marks. It must hold no control characters except
/// `escapable`, and no surrogate without its partner.
bool isPlain(StringView text, StringView escapable) {
    const bool readable = std::ranges::all_of(text, [&](char16_t unit) {
        const bool control = (unit < u' ' && unit != u'\t') || unit == u'\x7F';
        return !control || escapable.find(unit) != StringView::npos;
    });
    return readable && findLoneSurrogate(text) == StringView::npos;
}

/// The text of a value, if it can be written between quotation marks.
std::optional<String> plainText(const RegistryValue& value, RegTexts texts) {
    const bool readable = texts == RegTexts::Readable;
    if (!isRegistryText(value.type) || (!readable && value.type != kRegString)) return {};
    if (value.data.size() % sizeof(char16_t) != 0) return {};
    String text = fromUtf16(value.data);
    if (!text.ends_with(u'\0')) return {};
    text.pop_back();
    if (!isPlain(text, readable ? StringView(u"\n\r\0", 3) : StringView())) return {};
    return text;
}

String hexadecimal(std::uint32_t number, std::size_t width) {
    char digits[8];
    const auto end = std::to_chars(digits, std::end(digits), number, 16).ptr;
    const auto count = static_cast<std::size_t>(end - digits);
    return String(width - std::min(width, count), u'0') + String(digits, end);
}

String bytesOf(const RegistryValue& value) {
    constexpr StringView digits = u"0123456789abcdef";
    String result = u"hex";
    if (value.type != kRegBinary) result += u'(' + hexadecimal(value.type, 1) + u')';
    result += u':';
    for (const char one : value.data) {
        const auto byte = static_cast<unsigned char>(one);
        result.append({digits[byte >> 4], digits[byte & 15], u','});
    }
    if (!value.data.empty()) result.pop_back();
    return result;
}

String printData(const RegistryValue& value, RegTexts texts) {
    if (const auto text = plainText(value, texts))
        return (value.type == kRegString ? u"" : u"str(" + hexadecimal(value.type, 1) + u"):") +
               quoted(*text);
    if (value.type != kRegDWord || value.data.size() != kDWordSize) return bytesOf(value);
    return u"dword:" + hexadecimal(dwordIn(value.data), 8);
}

}  // namespace

String printValue(const NamedValue& one, RegTexts texts) {
    return (one.name.empty() ? u"@" : quoted(one.name)) + u'=' + printData(one.value, texts);
}

std::optional<String> readName(StringView& line) {
    skipBlanks(line);
    String name;
    if (!skip(line, u"@")) {
        auto found = readQuoted(line);
        if (!found) return {};
        name = std::move(*found);
    }
    skipBlanks(line);
    if (!skip(line, u"=")) return {};
    return name;
}

std::optional<ValueLine> readValue(StringView line, RegForm form) {
    auto name = readName(line);
    if (!name) return {};
    ValueLine result{std::move(*name), false, {}};
    skipBlanks(line);
    if (skip(line, u"-"))
        result.deletes = true;
    else
        result.value = readData(line, form);
    skipBlanks(line);
    const bool complete = line.empty() || line.front() == u';';
    if (!complete) result = {std::move(result.name), false, {}};
    return result;
}

}  // namespace quorkit::base
