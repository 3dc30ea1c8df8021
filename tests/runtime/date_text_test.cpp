#include "runtime/date_text.h"

#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>
#include <quorkit/variant.h>

#include "frame/conversion.h"

namespace quorkit::runtime {
namespace {

const eLanguage kLanguages[] = {eLanguage_German, eLanguage_French, eLanguage_Italian,
                                eLanguage_English, eLanguage_Unknown};

/// The date in the text, the same in every language. When it is no date, a day that no test uses.
Double daysIn(const char16_t* text) {
    const auto date = dateIn(text, kLanguages[0]);
    for (const eLanguage language : kLanguages) EXPECT_EQ(dateIn(text, language), date);
    return date.value_or(Date{99999}).days;
}

TEST(DateIn, ReadsADayInManyForms) {
    for (const char16_t* text : {u"2024-01-03",
                                 u"2024-1-3",
                                 u"2024/1/3",
                                 u"2024.1.3",
                                 u"3.1.2024",
                                 u"03. 01. 24",
                                 u"3. Januar 2024",
                                 u"3.\u00A0J\u00E4nner 2024",
                                 u"Sonnabend, 3. Jan 2024",
                                 u"3 Jan 2024",
                                 u"3. Jan. 2024",
                                 u"3-Jan-24",
                                 u"3jan2024",
                                 u"January 3, 2024",
                                 u"Jan-3-24",
                                 u"janv. 3 2024",
                                 u"3 GENNAIO 2024",
                                 u"Mo 3.1.2024",
                                 u"Mittwoch, 3. Januar 2024",
                                 u"mer. 3 janvier 2024",
                                 u"mar 3 gennaio 2024"})
        EXPECT_EQ(daysIn(text), 45294) << testing::PrintToString(text);
    const struct {
        const char16_t* text;
        Double days;
    } cases[] = {{u"1/13/2024", 45304},  {u"13/1/2024", 45304},       {u"13-1-24", 45304},
                 {u"1/1/29", 47119},     {u"1/1/30", 10959},          {u"1/1/99", 36161},
                 {u"1/1/0", 36526},      {u"1/1/100", -657434},       {u"31.12.9999", 2958465},
                 {u"29.2.24", 45351},    {u"3. M\u00C4RZ 24", 45354}, {u"3 f\u00E9vr 2024", 45325},
                 {u"mar 3, 2024", 45354}};
    for (const auto& [text, days] : cases)
        EXPECT_EQ(daysIn(text), days) << testing::PrintToString(text);
}

TEST(DateIn, ReadsTimesAloneAndBesideADay) {
    const struct {
        const char16_t* text;
        Double hours;
    } cases[] = {{u"0:00", 0},      {u"12:00", 12},      {u"18:00:00", 18}, {u"9:00 PM", 21},
                 {u"9pm", 21},      {u"12:00 am", 0},    {u"12:00 PM", 12}, {u"0:30 PM", 12.5},
                 {u"13:00 PM", 13}, {u"1:30:00 AM", 1.5}};
    for (const auto& [text, hours] : cases)
        EXPECT_EQ(daysIn(text), hours / 24) << testing::PrintToString(text);
    for (const char16_t* text :
         {u"2024-01-03T18:00", u"2024-01-03 18:00:00", u"3.1.2024, 6 pm", u"6:00 PM Jan 3, 2024"})
        EXPECT_EQ(daysIn(text), 45294.75) << testing::PrintToString(text);
    EXPECT_EQ(daysIn(u"29.12.1899 6:00"), -1.25);
}

TEST(DateIn, RefusesTheRest) {
    const char16_t* const texts[] = {
        u"",          u"x",          u"3",         u"45000",     u"1.5",
        u"20240103",  u"3 Jan",      u"Jan 3",     u"3/1",       u"Jan 2024",
        u"Montag",    u"2001-02-29", u"31.2.2024", u"31/4/2024", u"0.1.2024",
        u"3.0.2024",  u"0099-01-01", u"1/1/099",   u"1/1/10000", u"3.1.2024x",
        u"3..1.2024", u"3/1-2024",   u"1/1/-5",    u"Jan 324",   u"x 3.1.2024"};
    for (const char16_t* text : texts)
        EXPECT_EQ(daysIn(text), 99999) << testing::PrintToString(text);
    const char16_t* const times[] = {u"23:60",     u"11:59:60", u"24:00",       u"12:34:56.7",
                                     u"12:",       u":34",      u"12:34 AM PM", u"12:xx",
                                     u"12",        u"",         u"AM",          u"T",
                                     u"9:00 9:00", u"9:00,",    u"3.1.2024"};
    for (const char16_t* text : times)
        EXPECT_EQ(daysIn((String(u"3.1.2024 ") + text).c_str()), 99999)
            << testing::PrintToString(text);
}

TEST(DateIn, PutsDayAndMonthInTheOrderOfTheLanguage) {
    for (const char16_t* text : {u"3/1/2024", u"3-1-2024", u"Wed, 3/1/24"})
        for (const eLanguage language : kLanguages)
            EXPECT_EQ(dateIn(text, language),
                      Date{language <= eLanguage_Italian && language != 0 ? 45294.0 : 45352.0});
}

TEST(Conversion, ReadsDatesInTheLanguageOfTheUser) {
    MemoryPorts world;
    Ports& ports = world;
    Variant german = u"3/1/2024";
    Variant english = german;
    EXPECT_FALSE(frame::convert(english, {Type::Date}, &ports));
    EXPECT_EQ(english, Variant(Date{45352}));
    world.system.userLanguage = 1031;
    EXPECT_FALSE(frame::convert(german, {Type::Date}, &ports));
    EXPECT_EQ(german, Variant(Date{45294}));
}

}  // namespace
}  // namespace quorkit::runtime
