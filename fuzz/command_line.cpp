// Command lines. Fields: a command line, then words. Finds: words that a quoting line does not
// return; names of programs that take more than their words; shortcuts whose parts do not fit
// together.
#include "base/command_line.h"

#include <vector>

#include "base/unicode.h"
#include "file/shell_link.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

/// The word as programs quote it when they want it back unchanged.
String quoted(const String& word) {
    String line = u"\"";
    std::size_t backslashes = 0;
    for (const char16_t unit : word) {
        if (unit == u'"') line.append(backslashes + 1, u'\\');
        backslashes = unit == u'\\' ? backslashes + 1 : 0;
        line += unit;
    }
    return line.append(backslashes, u'\\') + u'"';
}

void checkWords(const std::vector<String>& words) {
    String line;
    for (const String& word : words) line += quoted(word) + u" \t";
    promise(base::splitArguments(line) == words, "quoted words come back");
}

void checkProgram(const String& line) {
    base::ProgramName program(line);
    std::vector<String> words = base::splitArguments(program.behind());
    for (std::size_t length = 0; !program.name().empty(); program.lengthen()) {
        promise(program.name().size() > length, "a longer name is longer");
        length = program.name().size();
        promise(base::splitArguments(program.behind()) == words,
                "a name takes one word after another");
        if (!words.empty()) words.erase(words.begin());
    }
}

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) {
    promise(at + size <= bytes.size(), "the parts of a shortcut lie within it");
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

String untilEnd(const String& text) {
    return text.substr(0, text.find(u'\0'));
}

void checkLink(const String& target, const String& description) {
    file::ShellLink link;
    link.target = target;
    link.description = description;
    const std::string file = file::shellLinkFile(link);
    std::size_t at = number(file, 0, 4);
    const std::uint32_t flags = number(file, 20, 4);
    promise(((flags & 2) != 0) == !untilEnd(target).empty(), "a target is there when it is given");
    if ((flags & 2) != 0) {
        const std::size_t size = number(file, at, 4);
        const std::string_view info = std::string_view(file).substr(at, size);
        const auto textAt = [&](std::size_t field) {
            const std::size_t from = number(info, field, 4);
            return untilEnd(base::fromUtf16(info.substr(std::min(from, info.size()))));
        };
        if ((number(info, 8, 4) & 1) != 0)
            promiseEqual(textAt(28), untilEnd(target), "the target in a shortcut");
        at += size;
    }
    if ((flags & 4) != 0) {
        const std::size_t count = number(file, at, 2);
        const auto text = base::fromUtf16(std::string_view(file).substr(at + 2, 2 * count));
        promiseEqual(text, untilEnd(description), "the description in a shortcut");
        at += 2 + 2 * count;
    }
    while (number(file, at, 4) != 0) at += number(file, at, 4);
    promiseEqual(at + 4, file.size(), "a shortcut ends behind its last part");
}

}  // namespace

void run(std::string_view input) {
    Fields fields(input);
    const String line = fields.text();
    checkProgram(line);
    const std::vector<String> words = base::splitArguments(line);
    checkWords(words);
    std::vector<String> others;
    while (!fields.done()) others.push_back(fields.text());
    checkWords(others);
    checkLink(line, others.empty() ? String() : others[0]);
}

}  // namespace quorkit::fuzz
