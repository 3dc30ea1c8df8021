#include "base/unicode.h"

#include <gtest/gtest.h>

#include "base/code_page.h"

namespace quorkit::base {
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

// Texts of lengths around the block size of the fast path, so that the first character that is not
// ASCII comes at every position.
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

// Each invalid byte becomes U+FFFD, or a surrogate from which it comes back.
TEST(Utf8, MeetsWhatIsNoUtf8) {
    const struct {
        std::string bytes;
        String replaced;
        String asBytes;
    } cases[] = {
        {"a\x80z", u"a\uFFFDz", {u'a', 0xDC80, u'z'}},           // a continuation alone
        {"\xC3", u"\uFFFD", {0xDCC3}},                           // cut off
        {"\xE2\x82z", u"\uFFFD\uFFFDz", {0xDCE2, 0xDC82, 'z'}},  // cut off, one for each byte
        {"\xC0\x80", u"\uFFFD\uFFFD", {0xDCC0, 0xDC80}},         // over-long forms
        {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD", {0xDCE0, 0xDC9F, 0xDCBF}},
        {"\xF0\x8F\xBF\xBF", String(4, u'\uFFFD'), {0xDCF0, 0xDC8F, 0xDCBF, 0xDCBF}},
        {"\xF4\x90\x80\x80", String(4, u'\uFFFD'), {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},  // too large
        {"\xF8\xFF", u"\uFFFD\uFFFD", {0xDCF8, 0xDCFF}},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", {0xDCED, 0xDCA0, 0xDC80}},  // a surrogate
    };
    for (const auto& [bytes, replaced, asBytes] : cases) {
        EXPECT_FALSE(isUtf8(bytes));
        EXPECT_EQ(fromUtf8(bytes, Malformed::Replace), replaced);
        const bool surrogate = bytes[0] == '\xED';
        EXPECT_EQ(fromUtf8(bytes), surrogate ? String(1, char16_t{0xD800}) : replaced);
        EXPECT_EQ(fromUtf8(bytes, Malformed::AsBytes), asBytes);
        EXPECT_EQ(toUtf8(asBytes, Malformed::AsBytes), bytes);
    }
}

TEST(Utf8, MeetsSurrogatesWithoutPartner) {
    const char16_t high = 0xD83D;
    const char16_t low = 0xDE00;
    const std::string r = "\xEF\xBF\xBD";
    const struct {
        String text;
        std::size_t lone;
        std::string replaced;
    } cases[] = {
        {{high}, 0, r},
        {{low}, 0, r},
        {{low, high}, 0, r + r},
        {{high, high, low}, 0, r + "\xF0\x9F\x98\x80"},
        {{u'a', high, u'b'}, 1, "a" + r + "b"},
        {{high, low, low}, 2, "\xF0\x9F\x98\x80" + r},
        {{0xDC00, 0xDC7F, 0xDD00}, 0, r + r + r},  // these stand for no byte
        {{high, low}, String::npos, "\xF0\x9F\x98\x80"},
    };
    for (const auto& [text, lone, replaced] : cases) {
        EXPECT_EQ(findLoneSurrogate(text), lone);
        EXPECT_EQ(toUtf8(text), replaced);
        EXPECT_EQ(toUtf8(text, Malformed::AsBytes), replaced);
        EXPECT_EQ(fromUtf8(toUtf8(text, Malformed::Keep)), text);
    }
}

}  // namespace
}  // namespace quorkit::base
