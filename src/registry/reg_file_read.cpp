#include <algorithm>

#include "base/code_page.h"
#include "base/unicode.h"
#include "registry/key_name.h"
#include "registry/reg_file.h"

namespace quorkit {
namespace {

constexpr StringView kBlanks = u" \t\r";
constexpr StringView kOldHeader = u"REGEDIT4";
constexpr StringView kHeader = u"Windows Registry Editor Version 5.00";

[[noreturn]] void fail(std::size_t number, const char* what) {
    throw BadRegLine{number, what};
}

template <class Text>
std::size_t countLines(const Text& text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

String decodeUtf16(std::string_view bytes) {
    String text = base::fromUtf16(bytes);
    if (bytes.size() % 2 != 0) fail(countLines(text) + 1, "half a character of UTF-16");
    return text;
}

String decodeUtf8(std::string_view bytes) {
    if (base::isUtf8(bytes)) return base::fromUtf8(bytes);
    std::size_t number = 1;
    std::size_t end = bytes.find('\n');
    for (; end != String::npos && base::isUtf8(bytes.substr(0, end)); end = bytes.find('\n')) {
        bytes.remove_prefix(end + 1);
        ++number;
    }
    fail(number, "not UTF-8");
}

String decode(std::string_view content) {
    using base::kUtf16Mark;
    using base::kUtf8Mark;
    if (content.starts_with(kUtf16Mark)) return decodeUtf16(content.substr(kUtf16Mark.size()));
    if (content.starts_with(kUtf8Mark)) return decodeUtf8(content.substr(kUtf8Mark.size()));
    return content.starts_with("REGEDIT4") ? base::fromAnsi(content) : decodeUtf8(content);
}

class Reader {
   public:
    Reader(StringView text, std::vector<RegChange>& changes) : rest_(text), changes_(changes) {}

    void read() {
        readHeader();
        while (!rest_.empty()) {
            const StringView line = rest_.substr(0, rest_.find(u'\n'));
            const std::size_t start = line.find_first_not_of(kBlanks);
            if (start == String::npos || line[start] == u';') {
                takeLine();
            } else if (line[start] == u'[') {
                readKey(line.substr(start));
                takeLine();
            } else {
                addValue();
            }
        }
    }

   private:
    /// What is left of this line; the next one begins behind it.
    StringView takeLine() {
        const StringView line = rest_.substr(0, rest_.find(u'\n'));
        if (line.size() < rest_.size()) ++number_;
        rest_.remove_prefix(std::min(rest_.size(), line.size() + 1));
        return line;
    }

    void readHeader() {
        StringView line = takeLine();
        line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
        if (line == kOldHeader)
            form_ = base::RegForm::Version4;
        else if (line != kHeader)
            fail(1, "not the beginning of a registry file");
    }

    void readKey(StringView line) {
        const std::size_t end = line.rfind(u']');
        if (end == String::npos) fail(number_, "\"]\" is missing");
        const std::size_t behind = line.find_first_not_of(kBlanks, end + 1);
        if (behind != String::npos && line[behind] != u';') fail(number_, "text behind \"]\"");
        RegChange change;
        change.deletes = line.starts_with(u"[-");
        const std::size_t start = change.deletes ? 2 : 1;
        auto key = readKeyName(line.substr(start, end - start));
        if (!key) fail(number_, "not the name of a key");
        if (change.deletes && key->path.empty()) fail(number_, "a root cannot be deleted");
        change.key = std::move(*key);
        changes_.push_back(std::move(change));
    }

    void addValue() {
        const std::size_t number = number_;
        auto line = base::readValue(takeValue(), form_);
        if (!line) fail(number, "neither a key nor a value");
        if (!line->deletes && !line->value) fail(number, "not a value behind \"=\"");
        if (line->name.size() > kLongestValueName || line->name.find(u'\0') != String::npos)
            fail(number, "not the name of a value");
        if (changes_.empty() || changes_.back().deletes)
            fail(number, "a value without a key above it");
        changes_.back().values.push_back(std::move(*line));
    }

    /// A value with the lines that it goes on in, as one, and without comments.
    String takeValue() {
        const std::size_t number = number_;
        String value;
        for (;;) {
            const std::size_t end = std::min(rest_.find_first_of(u"\";\n"), rest_.size());
            value += rest_.substr(0, end);
            rest_.remove_prefix(end);
            if (rest_.starts_with(u'"')) {
                const StringView text = takeText();
                if (text.empty()) fail(number, "a quotation mark without its second one");
                value += text;
                continue;
            }
            takeLine();
            value.resize(value.find_last_not_of(kBlanks) + 1);
            if (!value.ends_with(u'\\')) return value;
            if (rest_.empty()) fail(number, "the file ends in the middle of a value");
            value.back() = u' ';
        }
    }

    /// What stands between two quotation marks, with these; nothing when there is no second one.
    StringView takeText() {
        std::size_t end = 1;
        while (end < rest_.size() && rest_[end] != u'"') end += rest_[end] == u'\\' ? 2 : 1;
        if (end >= rest_.size()) return {};
        const StringView text = rest_.substr(0, end + 1);
        number_ += countLines(text);
        rest_.remove_prefix(text.size());
        return text;
    }

    StringView rest_;
    std::size_t number_ = 1;  ///< of the line in which the rest begins
    base::RegForm form_ = base::RegForm::Version5;
    std::vector<RegChange>& changes_;
};

}  // namespace

std::optional<BadRegLine> readRegFile(std::string_view content, std::vector<RegChange>& changes) {
    try {
        const String text = decode(content);
        Reader(text, changes).read();
        return {};
    } catch (const BadRegLine& line) {
        return line;
    }
}

}  // namespace quorkit
