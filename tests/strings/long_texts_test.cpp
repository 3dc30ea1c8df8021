// What takes time, and what only C++ can say.
#include <gtest/gtest.h>
#include <quorkit/GQuorStrings.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

// Neither texts full of near misses nor many replacements may take quadratic time: with a million
// characters that would not end.
TEST(LongTexts, TakeLinearTime) {
    constexpr std::size_t length = 1'000'000;
    const String text(length, u'a');
    Late strings(u"GQuorStrings");
    strings.expect(u"StringReplace",
                   {Row({text, String(length / 2, u'a') + u"b", u""}, text),
                    Row({text, u"A", u"bb", true, true}, String(2 * length, u'b'))});
    String many = u"--", names;
    for (int i = 0; i < 100'000; ++i) {
        many += u"@#field#@";
        names += u":field|";
    }
    strings.expect(u"ReadAllVarFields", {Row({many}, names)});
}

TEST(SplitDOSCMDParam, SplitsATextIntoItself) {
    String text = u"/a=b";
    String value;
    GQuorStrings().SplitDOSCMDParam(text, text, value);
    EXPECT_EQ(text + u" " + value, u"/a b");
    text = u"/a=b";
    GQuorStrings().SplitDOSCMDParam(text, value, text);
    EXPECT_EQ(value + u" " + text, u"/a b");
}

}  // namespace
}  // namespace quorkit::test
