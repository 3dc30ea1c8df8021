#include "runtime/date_format.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/errors.h"

namespace quorkit::runtime {
namespace {

constexpr Date kMorning{45294 + (9 * 3600 + 5 * 60 + 7) / 86400.0};  // 3 January 2024, 9:05:07
constexpr Date kAfternoon{kMorning.days + 0.25};

TEST(Format, WritesInEveryLanguage) {
    const std::tuple<StringView, eLanguage, StringView> cases[] = {
        {u"c", eLanguage_German, u"03.01.2024 09:05:07"},
        {u"ddd dddd mmm mmmm", eLanguage_German, u"Mi Mittwoch Jan Januar"},
        {u"dddddd", eLanguage_German, u"Mittwoch, 3. Januar 2024"},
        {u"d/m/yy", eLanguage_German, u"3.1.24"},
        {u"", eLanguage_French, u"03/01/2024 09:05:07"},
        {u"ddd dddd mmm mmmm", eLanguage_French, u"mer. mercredi janv. janvier"},
        {u"dddddd", eLanguage_French, u"mercredi 3 janvier 2024"},
        {u"ddddd ttttt", eLanguage_Italian, u"03/01/2024 09:05:07"},
        {u"ddd dddd mmm mmmm", eLanguage_Italian, u"mer mercoled\u00EC gen gennaio"},
        {u"dddddd", eLanguage_Italian, u"mercoled\u00EC 3 gennaio 2024"},
        {u"ddddd ttttt", eLanguage_Spanish, u"1/3/2024 9:05:07 AM"},
        {u"ddd dddd mmm mmmm", eLanguage_English, u"Wed Wednesday Jan January"},
        {u"dddddd", eLanguage_English, u"Wednesday, January 3, 2024"}};
    for (const auto& [format, language, text] : cases)
        EXPECT_EQ(Format(kMorning, format, language), text);
}

TEST(Format, ReadsItsFormat) {
    const std::tuple<StringView, StringView, StringView> cases[] = {
        {u"c", u"1/3/2024 9:05:07 AM", u"1/3/2024 3:05:07 PM"},
        {u"d dd w ww q y", u"3 03 4 1 1 3", u"3 03 4 1 1 3"},
        {u"m mm yy yyyy", u"1 01 24 2024", u"1 01 24 2024"},
        {u"h hh n nn s ss", u"9 09 5 05 7 07", u"15 15 5 05 7 07"},
        {u"AM/PM am/pm A/P a/p AMPM ampm Am/Pm", u"AM am A a AM AM AM", u"PM pm P p PM PM PM"},
        // The longest token first.
        {u"yyy yyyyy ddddddd qq hhh", u"243 20243 Wednesday, January 3, 20243 11 099",
         u"243 20243 Wednesday, January 3, 20243 11 1515"},
        {u"mmmmm tttt ttttttt", u"January1 tttt 9:05:07 AMtt", u"January1 tttt 3:05:07 PMtt"},
        // The clock has 12 hours when a half of the day is anywhere in the format.
        {u"A/P hh", u"A 09", u"P 03"},
        {u"hh ttttt", u"09 9:05:07 AM", u"15 3:05:07 PM"},
        // Minutes behind an hour, months elsewhere.
        {u"hh:mm", u"09:05", u"15:05"},
        {u"yyyymmddhhmmss", u"20240103090507", u"20240103150507"},
        {u"hh\\hm h/mm", u"09h5 9/05", u"15h5 15/05"},
        {u"h:m:m mm:ss", u"9:5:1 01:07", u"15:5:1 01:07"},
        {u"h d m h:mmm", u"9 3 1 9:Jan", u"15 3 1 15:Jan"},
        // Text: quoted, escaped, or without a meaning.
        {u"\\d\\\\\"d\"d\"\"d\"dd", u"d\\d33dd", u"d\\d33dd"},
        {u"YYYY-MM-DD [x] 0#@;%\\", u"2024-01-03 [x] 0#@;%", u"2024-01-03 [x] 0#@;%"},
        {StringView(u"d\0\xD800\u00E4\u212A", 5), StringView(u"3\0\xD800\u00E4\u212A", 5),
         StringView(u"3\0\xD800\u00E4\u212A", 5)},
        {u"general DATE", u"1/3/2024 9:05:07 AM", u"1/3/2024 3:05:07 PM"},
        {u"Long Date", u"Wednesday, January 3, 2024", u"Wednesday, January 3, 2024"},
        {u"Medium Date", u"03-Jan-24", u"03-Jan-24"},
        {u"Medium Time", u"09:05 AM", u"03:05 PM"},
        {u"Short Time", u"09:05", u"15:05"}};
    for (const auto& [format, morning, afternoon] : cases) {
        EXPECT_EQ(Format(kMorning, format, eLanguage_English), morning);
        EXPECT_EQ(Format(kAfternoon, format, eLanguage_English), afternoon);
    }
}

TEST(Format, WritesDatesOfEveryKind) {
    const std::tuple<Double, StringView, StringView> cases[] = {
        {0, u"c", u"12:00:00 AM"},
        {0.5, u"c", u"12:00:00 PM"},
        {-0.5, u"c", u"12:00:00 PM"},
        {0.9999999, u"c", u"12/31/1899"},
        {45294, u"c", u"1/3/2024"},
        {45294.9999999, u"c", u"1/4/2024"},
        {-1.25, u"c", u"12/29/1899 6:00:00 AM"},
        {-657434, u"yyyy yy y", u"100 00 1"},
        {36891, u"ww y q", u"54 366 4"},
        {36527, u"ww w", u"2 1"},
        {-1, u"ww", u"52"},
        {1, u"ww", u"53"},
        {2958465.9999999, u"yyyy-mm-dd hh:nn:ss", u"9999-12-31 23:59:59"}};
    for (const auto& [days, format, text] : cases)
        EXPECT_EQ(Format({days}, format, eLanguage_English), text);
    for (const Double days : {2958466.0, -657435.0})
        EXPECT_EQ(test::errorOf([&] { Format({days}, u"x", eLanguage_English); }), 5);
}

}  // namespace
}  // namespace quorkit::runtime
