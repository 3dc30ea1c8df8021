#include "runtime/calendar.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/late.h"

namespace quorkit::test {
namespace {

using runtime::DateSerial;

Date january(Long day) {  // the year began on a Monday
    return DateSerial(2024, 1, day);
}
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

TEST(ToolsCalendar, Holidays) {
    Late tools(u"GQuorTools");
    const std::tuple<Long, Long, Long> cases[] = {
        {2024, 3, 31}, {1989, 4, 19}, {1981, 4, 19}, {1954, 4, 18}, {2038, 4, 25}, {1700, 4, 11},
        {1818, 3, 22}, {2199, 4, 14}, {1699, 3, 27}, {2200, 4, 6},  {24, 3, 27}};
    for (const auto& [year, month, day] : cases)
        EXPECT_EQ(tools(u"OsterSonntag", {year}), Variant(DateSerial(year, month, day))) << year;
    EXPECT_EQ(tools(u"Auffahrt", {Long{2024}}), Variant(DateSerial(2024, 5, 9)));
    EXPECT_EQ(tools(u"PfingstSonntag", {Long{2024}}), Variant(DateSerial(2024, 5, 19)));
    EXPECT_EQ(tools(u"Fronleichnam", {Long{2024}}), Variant(DateSerial(2024, 5, 30)));
    for (const Long year : {-32768, -1, 10000})
        EXPECT_EQ(tools.errorOf(u"OsterSonntag", {year}), 5);
}

TEST(ToolsCalendar, DaysAndNames) {
    Late tools(u"GQuorTools");
    const std::tuple<const char16_t*, std::vector<Variant>, Variant> cases[] = {
        {u"WochentagString", {january(3)}, u"Mi"},
        {u"WochentagString", {january(7), false, Long{2}}, u"Di"},
        {u"WochentagString", {january(6), false, Long{4}}, u"Sa"},
        {u"WochentagString", {january(3), true}, u"Donnerstag"},
        {u"WochentagString", {january(7), true, Long{3}}, u"Luned\u00EC"},
        {u"WochentagString", {january(6), true}, u""},
        {u"WochentagString", {january(3), false, Long{5}}, u""},
        {u"WochentagString", {january(3), true, Long{0}}, u""},
        {u"LastDayInMonth", {Long{2}, Long{2000}}, integer(29)},
        {u"LastDayInMonth", {Long{2}, Long{1900}}, integer(28)},
        {u"LastDayInMonth", {Long{13}, Long{2023}}, integer(31)},
        {u"LastDayInMonth", {Long{-10}, Long{2024}}, integer(28)},
        {u"LastDayInMonth2", {DateSerial(2023, 4, 15)}, integer(30)},
    };
    for (const auto& [member, arguments, result] : cases)
        EXPECT_EQ(tools(member, arguments), result);
    EXPECT_EQ(tools.errorOf(u"LastDayInMonth", {Long{12}, Long{9999}}), 5);
}

TEST(ToolsCalendar, CountWeekDaysInYear) {
    const std::pair<Long, std::vector<Long>> cases[] = {
        {2024, {1, 2}}, {2023, {7}}, {2000, {6, 0}}, {2012, {7, 1}}};
    for (const auto& [year, often] : cases)
        for (Long weekDay = -1; weekDay < 9; ++weekDay) {
            const bool is53 = std::ranges::find(often, weekDay) != often.end();
            EXPECT_EQ(Late(u"GQuorTools")(u"CountWeekDaysInYear", {year, weekDay}),
                      integer(is53 ? 53 : 52))
                << year << ' ' << weekDay;
        }
}

}  // namespace
}  // namespace quorkit::test
