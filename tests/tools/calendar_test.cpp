#include "runtime/calendar.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/late.h"

namespace quorkit::test {
namespace {

using runtime::DateSerial;

Variant integer(int value) {
    return static_cast<Integer>(value);
}

TEST(ToolsCalendar, DateAddEx) {
    const Date from = DateSerial(2024, 1, 31);
    const auto at = [](int year, int month, int day, Double seconds = 0) {
        return Date{DateSerial(year, month, day).days + seconds / 86400};
    };
    const struct {
        const char16_t* options;
        Date forward;
        Date back;
    } cases[] = {
        {u"m=1,d=1", at(2024, 3, 1), at(2023, 12, 30)},
        {u"d=1, M=1 , y = \"1\"", at(2025, 3, 1), at(2022, 12, 30)},
        {u"h=1,n=1,s=1", at(2024, 1, 31, 3661), at(2024, 1, 30, 86400 - 3661)},
        {u"d=1.5", at(2024, 2, 2), at(2024, 1, 29)},
        {u"d=2.5", at(2024, 2, 2), at(2024, 1, 29)},
        {u"y=,d=1", at(2024, 2, 1), at(2024, 1, 30)},
        {u"y=x,d=1,w=5", at(2024, 2, 1), at(2024, 1, 30)},
        {u"y=9000,d=1", at(2024, 2, 1), at(2024, 1, 30)},
        {u"d=1,d=2", from, from},
        {u"nonsense", from, from},
        {u"", from, from},
    };
    Late tools(u"GQuorTools");
    for (const auto& [options, forward, back] : cases) {
        EXPECT_EQ(tools(u"DateAddEx", {from, options}), Variant(forward));
        EXPECT_EQ(tools(u"DateAddEx", {from, options, true}), Variant(back));
    }
    EXPECT_EQ(tools(u"DateAddEx", {Date{1e9}, u"d=1"}), Variant(Date{1e9}));
    EXPECT_EQ(tools(u"DateAddEx", {from, String(40000, u'x')}), Variant(from));
}

TEST(ToolsCalendar, HolidaysThatDependOnEaster) {
    Late tools(u"GQuorTools");
    const struct {
        int year;
        Date easter;
    } cases[] = {
        {2024, DateSerial(2024, 3, 31)}, {2025, DateSerial(2025, 4, 20)},
        {1981, DateSerial(1981, 4, 19)}, {1989, DateSerial(1989, 4, 19)},
        {1954, DateSerial(1954, 4, 18)}, {2038, DateSerial(2038, 4, 25)},
        {1700, DateSerial(1700, 4, 11)}, {1818, DateSerial(1818, 3, 22)},
        {2199, DateSerial(2199, 4, 14)}, {1699, DateSerial(1699, 3, 27)},
        {2200, DateSerial(2200, 4, 6)},  {24, DateSerial(2024, 3, 27)},
    };
    for (const auto& [year, easter] : cases)
        EXPECT_EQ(tools(u"OsterSonntag", {integer(year)}), Variant(easter)) << year;
    EXPECT_EQ(tools(u"Auffahrt", {integer(2024)}), Variant(DateSerial(2024, 5, 9)));
    EXPECT_EQ(tools(u"PfingstSonntag", {integer(2024)}), Variant(DateSerial(2024, 5, 19)));
    EXPECT_EQ(tools(u"Fronleichnam", {integer(2024)}), Variant(DateSerial(2024, 5, 30)));
    for (const int year : {-32768, -1, 10000, 32767})
        EXPECT_EQ(tools.errorOf(u"OsterSonntag", {integer(year)}), 5);
}

TEST(ToolsCalendar, WochentagString) {
    Late tools(u"GQuorTools");
    const struct {
        int day;  ///< of January 2024, which began on a Monday
        bool full;
        Long language;
        const char16_t* name;
    } cases[] = {
        {3, false, 1, u"Mi"},      {7, false, 1, u"So"},
        {7, false, 2, u"Di"},      {6, false, 3, u"Sa"},
        {4, false, 4, u"Th"},      {3, true, 1, u"Donnerstag"},
        {7, true, 2, u"Lundi"},    {7, true, 3, u"Luned\u00EC"},
        {5, true, 4, u"Saturday"}, {6, true, 1, u""},
        {3, false, 5, u""},        {3, true, 0, u""},
        {3, true, 9, u""},         {3, false, -2147483647 - 1, u""},
    };
    for (const auto& [day, full, language, name] : cases)
        EXPECT_EQ(tools(u"WochentagString", {DateSerial(2024, 1, day), full, language}),
                  Variant(name));
    EXPECT_EQ(tools(u"WochentagString", {DateSerial(2024, 1, 3)}), Variant(u"Mi"));
}

TEST(ToolsCalendar, CountWeekDaysInYear) {
    Late tools(u"GQuorTools");
    const struct {
        int year;
        std::vector<int> often;
    } cases[] = {{2024, {1, 2}}, {2023, {7}}, {2000, {6, 0}}, {2012, {7, 1}}, {24, {1, 2}}};
    for (const auto& [year, often] : cases)
        for (int day = -1; day < 9; ++day) {
            const bool is53 = std::ranges::find(often, day) != often.end();
            EXPECT_EQ(tools(u"CountWeekDaysInYear", {integer(year), integer(day)}),
                      integer(is53 ? 53 : 52))
                << year << ' ' << day;
        }
    EXPECT_EQ(tools.errorOf(u"CountWeekDaysInYear", {integer(-5), integer(1)}), 5);
}

TEST(ToolsCalendar, LastDayOfAMonth) {
    Late tools(u"GQuorTools");
    const struct {
        int month;
        int year;
        int day;
    } cases[] = {{2, 2000, 29}, {2, 1900, 28},   {2, 2023, 28}, {13, 2023, 31}, {0, 2023, 31},
                 {4, 2023, 30}, {-10, 2024, 28}, {1, 100, 31},  {12, 1899, 31}};
    for (const auto& [month, year, day] : cases)
        EXPECT_EQ(tools(u"LastDayInMonth", {integer(month), integer(year)}), integer(day)) << month;
    EXPECT_EQ(tools.errorOf(u"LastDayInMonth", {integer(12), integer(9999)}), 5);
    EXPECT_EQ(tools.errorOf(u"LastDayInMonth", {integer(-32768), integer(-32768)}), 5);
    EXPECT_EQ(tools(u"LastDayInMonth2", {DateSerial(2023, 4, 15)}), integer(30));
    EXPECT_EQ(tools(u"LastDayInMonth2", {Date{DateSerial(2024, 2, 29).days + 0.75}}), integer(29));
    EXPECT_EQ(tools.errorOf(u"LastDayInMonth2", {Date{3e6}}), 5);
}

}  // namespace
}  // namespace quorkit::test
