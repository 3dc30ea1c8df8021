#include "runtime/code_page.h"

#include <gtest/gtest.h>

namespace quorkit::runtime {
namespace {

TEST(CodePage, EveryByteSurvivesARoundTrip) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(toAnsi(fromAnsi(bytes)), bytes);
    EXPECT_EQ(fromAnsi("\x80\x81\x9F\xA0\xFF"), u"\u20AC\u0081\u0178\u00A0\u00FF");
}

TEST(CodePage, WhatItLacksIsAQuestionMark) {
    for (const int unit : {0x0080, 0x009F, 0x0100, 0x03A9, 0x20AB, 0xD800, 0xFFFF})
        EXPECT_EQ(toAnsi(static_cast<char16_t>(unit)), '?');
}

// Texts around the block size of the fast path, so that every position of the first character
// that is not ASCII is met.
TEST(Utf8, CodesTextsOfEveryLength) {
    const struct {
        String text;
        std::string bytes;
    } cases[] = {
        {u"\u0080", "\xC2\x80"},
        {u"\u07FF", "\xDF\xBF"},
        {u"\u0800", "\xE0\xA0\x80"},
        {u"\uFFFF", "\xEF\xBF\xBF"},
        {u"\U00010000", "\xF0\x90\x80\x80"},
        {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
    };
    for (const auto& [text, bytes] : cases)
        for (std::size_t before = 0; before < 18; ++before)
            for (const std::size_t behind : {0, 1, 8}) {
                const String whole = String(before, u'a') + text + String(behind, u'\0');
                const std::string coded =
                    std::string(before, 'a') + bytes + std::string(behind, '\0');
                EXPECT_EQ(toUtf8(whole), coded);
                EXPECT_EQ(fromUtf8(coded), whole);
                EXPECT_TRUE(isUtf8(coded));
                EXPECT_FALSE(isUtf8(coded.substr(0, before + bytes.size() - 1)));
            }
}

TEST(Utf8, MeetsWhatIsNoUtf8) {
    const struct {
        std::string bytes;
        String text;
    } cases[] = {
        {"a\x80z", u"a\uFFFDz"},          // a continuation alone
        {"\xC3", u"\uFFFD"},              // cut off
        {"\xE2\x82z", u"\uFFFD\uFFFDz"},  // cut off, one sign for each byte
        {"\xC0\x80", u"\uFFFD\uFFFD"},    // over-long forms
        {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last character
        {"\xF8\xFF", u"\uFFFD\uFFFD"},
        {"\xED\xA0\x80", String(1, char16_t{0xD800})},  // a surrogate
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(fromUtf8(bytes), text);
        EXPECT_FALSE(isUtf8(bytes));
    }
}

TEST(Utf8, LoneSurrogatesAreReplacedOrKept) {
    const char16_t high = 0xD83D;
    const char16_t low = 0xDE00;
    for (const String& text :
         {String{high}, String{low}, String{low, high}, String{high, high, low},
          String{u'a', high, u'b'}, String{high, low, low}}) {
        EXPECT_EQ(fromUtf8(toUtf8(text, LoneSurrogate::Keep)), text);
        EXPECT_TRUE(isUtf8(toUtf8(text)));
    }
    EXPECT_EQ(toUtf8(String{high, high, low}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace quorkit::runtime
