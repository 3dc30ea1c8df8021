#include "base/letter_case.h"

#include <gtest/gtest.h>

namespace quorkit::base {
namespace {

TEST(LetterCase, MapsPairs) {
    EXPECT_EQ(toLower(u"AZ\u00C4\u0100\u017D\u03A9\u042F\u1E9E\u2160\uFF21"),
              u"az\u00E4\u0101\u017E\u03C9\u044F\u00DF\u2170\uFF41");
    EXPECT_EQ(toUpper(u"az\u00E4\u00FF\u0101\u017E\u03C9\u044F\u1F80\uFF41"),
              u"AZ\u00C4\u0178\u0100\u017D\u03A9\u042F\u1F88\uFF21");
    EXPECT_EQ(toLower(u'\u0130'), u'i');
}

TEST(LetterCase, LeavesTheRest) {
    // Characters next to the runs, between members of a run with stride two, and without a simple
    // mapping.
    const String others = u"@[`{0\u00D7\u00DF\u0138\u0149\U00010400\uFFFF";
    EXPECT_EQ(toLower(others), others);
    EXPECT_EQ(toUpper(u"@[`{0\u00F7\u00DF\u0138\u0149"), u"@[`{0\u00F7\u00DF\u0138\u0149");
    EXPECT_EQ(toLower(u'\u0101'), u'\u0101');
    EXPECT_EQ(toUpper(u'\u0100'), u'\u0100');
}

TEST(LetterCase, SameText) {
    EXPECT_TRUE(sameText(u"Stra\u00DFe \u00C4", u"sTRA\u00DFE \u00E4"));
    EXPECT_TRUE(sameText(u"", u""));
    EXPECT_FALSE(sameText(u"ab", u"abc"));
    EXPECT_FALSE(sameText(u"a", u"\u00E4"));
    // Letters that are not the capitals of their own small letters.
    EXPECT_FALSE(sameText(u"\u0130\u1E9E", u"i\u00DF"));
    EXPECT_TRUE(sameKey(u"\u0130\u1E9EA", u"i\u00DFa"));
    EXPECT_EQ(KeyHash()(u"\u0130\u1E9EA"), KeyHash()(u"i\u00DFa"));
}

}  // namespace
}  // namespace quorkit::base
