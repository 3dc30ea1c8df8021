#include "base/command_line.h"

#include <gtest/gtest.h>

namespace quorkit::base {
namespace {

using Words = std::vector<String>;

// The first five are the examples of the documentation.
TEST(ProgramLine, SplitsTheArguments) {
    const std::pair<StringView, Words> cases[] = {
        {uR"("abc" d e)", {u"abc", u"d", u"e"}},
        {uR"(a\\b d"e f"g h)", {uR"(a\\b)", u"de fg", u"h"}},
        {uR"(a\\\"b c d)", {uR"(a\"b)", u"c", u"d"}},
        {uR"(a\\\\"b c" d e)", {uR"(a\\b c)", u"d", u"e"}},
        {uR"(a"b"" c d)", {uR"(ab" c d)"}},
        {u" \t ", {}},
        {u"\t a\t\tb\n$c '*' ", {u"a", u"b\n$c", u"'*'"}},
        {uR"("" "" """" x"")", {u"", u"", u"\"", u"x"}},
        {uR"(C:\a\ \ "C:\b c\\" "d)", {uR"(C:\a\)", uR"(\)", uR"(C:\b c\)", u"d"}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(splitArguments(line), words) << testing::PrintToString(line);
}

TEST(ProgramLine, NamesThePrograms) {
    const auto namesIn = [](StringView line) {  // each with the text behind it
        Words names;
        for (ProgramName name(line); !name.name().empty(); name.lengthen())
            names.push_back(String(name.name()) + u"|" + String(name.behind()));
        return names;
    };
    const std::pair<StringView, Words> cases[] = {
        {u"", {}},
        {uR"("" a)", {}},
        {u" \tprog", {u"prog|"}},
        {u"a  b\tc ", {u"a|  b\tc ", u"a  b|\tc ", u"a  b\tc| "}},
        {uR"("C:\a b\"c d)", {uR"(C:\a b\|c d)"}},
        {uR"(a b "c d")", {uR"(a| b "c d")", uR"(a b| "c d")"}},
    };
    for (const auto& [line, names] : cases)
        EXPECT_EQ(namesIn(line), names) << testing::PrintToString(line);
    EXPECT_EQ(namesIn(u"a b" + String(300, u' ') + u"c").size(), 2u);
}

}  // namespace
}  // namespace quorkit::base
