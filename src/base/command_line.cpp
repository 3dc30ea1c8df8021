#include "base/command_line.h"

#include <algorithm>

namespace quorkit::base {
namespace {

constexpr StringView kBlanks = u" \t";
constexpr char16_t kQuote = u'"';
constexpr std::size_t kLongestGuess = 260;

bool isBlank(char16_t unit) {
    return kBlanks.find(unit) != StringView::npos;
}

}  // namespace

ProgramName::ProgramName(StringView line) : line_(line) {
    line_.remove_prefix(std::min(line_.find_first_not_of(kBlanks), line_.size()));
    quoted_ = line_.starts_with(kQuote);
    if (quoted_) line_.remove_prefix(1);
    const std::size_t end = quoted_ ? line_.find(kQuote) : line_.find_first_of(kBlanks);
    length_ = std::min(end, line_.size());
    closed_ = quoted_ && length_ < line_.size() ? 1 : 0;
}

void ProgramName::lengthen() {
    const std::size_t next = line_.find_first_not_of(kBlanks, length_);
    if (quoted_ || next == StringView::npos) {
        length_ = 0;
        return;
    }
    length_ = std::min(line_.find_first_of(kBlanks, next), line_.size());
    if (length_ > kLongestGuess || name().find(kQuote) != StringView::npos) length_ = 0;
}

std::vector<String> splitArguments(StringView line) {
    std::vector<String> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (!quoted && isBlank(line[i])) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        String& word = words.back();
        const std::size_t end = std::min(line.find_first_not_of(u'\\', i), line.size());
        const std::size_t backslashes = end - i;
        if (end == line.size() || line[end] != kQuote) {
            const std::size_t plain = std::max<std::size_t>(backslashes, 1);
            word += line.substr(i, plain);
            i += plain - 1;
            continue;
        }
        word.append(backslashes / 2, u'\\');
        i = end;
        if (backslashes % 2 != 0) {
            word += kQuote;
        } else if (quoted && line.substr(end + 1).starts_with(kQuote)) {
            word += kQuote;
            ++i;
        } else {
            quoted = !quoted;
        }
    }
    return words;
}

}  // namespace quorkit::base
