#include "runtime/calendar.h"

#include <gtest/gtest.h>
#include <quorkit/errors.h>

#include <limits>
#include <tuple>

#include "runtime/date_text.h"
#include "support/errors.h"

namespace quorkit::runtime {
namespace {

using test::errorOf;

constexpr Long kMost = std::numeric_limits<Long>::max();
constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNoNumber = std::numeric_limits<Double>::quiet_NaN();

TEST(Calendar, RoundsToTheSecond) {
    constexpr Double second = 1.0 / 86400;
    const struct {
        Double days;
        const char16_t* text;
        int weekday;
        int dayOfYear;
    } cases[] = {{0, u"1899-12-30", 7, 364},
                 {-0.5, u"1899-12-30 12:00:00", 7, 364},
                 {-1.25, u"1899-12-29 06:00:00", 6, 363},
                 {-2 - 0.6 * second, u"1899-12-28 00:00:01", 5, 362},
                 {-1.9999999, u"1899-12-30", 7, 364},
                 {45294 + 86399.4 * second, u"2024-01-03 23:59:59", 4, 3},
                 {45294 + 86399.6 * second, u"2024-01-04", 5, 4},
                 {45657.75, u"2024-12-31 18:00:00", 3, 366},
                 {-657434.75, u"0100-01-01 18:00:00", 6, 1},
                 {2958465.9999999, u"9999-12-31 23:59:59", 6, 365}};
    for (const auto& [days, text, weekday, number] : cases) {
        SCOPED_TRACE(days);
        EXPECT_EQ(dateText({days}), text);
        EXPECT_EQ(dateText(dateOf(partsOf({days}))), text);
        EXPECT_EQ(Weekday({days}), weekday);
        EXPECT_EQ(Weekday({days}, 2), (weekday + 5) % 7 + 1);
        EXPECT_EQ(dayOfYear({days}), number);
    }
    for (const Double days : {2958466.0, -657435.0, 1e300, kInfinity, kNoNumber})
        EXPECT_EQ(errorOf([&] { partsOf({days}); }), 5);
}

TEST(DateSerial, RollsMonthsAndDaysOver) {
    const std::tuple<Long, Long, Long, Double> cases[] = {
        {2024, 13, 1, 45658},  {2023, 0, 1, 44896},     {2024, 1, 0, 45291}, {2024, 2, 30, 45352},
        {2024, -1, 1, 45231},  {2024, 1, -400, 44891},  {0, 1, 1, 36526},    {29, 1, 1, 47119},
        {30, 1, 1, 10959},     {99, 13, 1, 36526},      {99, 0, 1, 36130},   {100, 1, 1, -657434},
        {2024, 300, 1, 54393}, {9999, 12, 31, 2958465}, {1899, 12, 29, -1}};
    for (const auto& [year, month, day, days] : cases)
        EXPECT_EQ(DateSerial(year, month, day).days, days) << year << ' ' << month << ' ' << day;
    const std::tuple<Long, Long, Long> outside[] = {
        {100, 1, 0}, {100, 0, 1},           {9999, 12, 32},           {10000, 1, 1},
        {-1, 1, 1},  {kMost, kMost, kMost}, {-kMost, -kMost, -kMost}, {2024, 1, kMost}};
    for (const auto& date : outside)
        EXPECT_EQ(errorOf([&] { std::apply(DateSerial, date); }), 5) << std::get<0>(date);
}

TEST(DateAdd, MovesByEveryInterval) {
    using enum Interval;
    const struct {
        Interval interval;
        Double number, from, to;
    } cases[] = {{Month, 1, 45322, 45351},
                 {Month, -11, 45382.75, 45046.75},
                 {Month, 1, -1.25, 30.25},
                 {Quarter, 1, 36494, 36585},
                 {Year, 1, 36585, 36950},
                 {DayOfYear, 3, 1, 4},
                 {Day, 1, -1.25, 0.25},
                 {Day, -1, 0.5, -1.5},
                 {Weekday, 3, 1, 4},
                 {Week, 3, 1, 22},
                 {Hour, -24, 0.5, -1.5},
                 {Hour, 36, -1.5, 1},
                 {Minute, -720, -1.25, -2.75},
                 {Second, 43200, -1.5, 0},
                 {Day, 0.5, 1, 1},
                 {Day, 1.5, 1, 3},
                 {Day, -2.5, 1, -1}};
    for (const auto& [interval, number, from, to] : cases)
        EXPECT_EQ(DateAdd(interval, number, {from}).days, to) << from << ' ' << number;

    for (const Interval interval : {Year, Quarter, Month, Day, Week, Hour, Minute, Second})
        for (const Double number : {1e12 - 1, 1 - 1e12, 1e300, kInfinity, -kInfinity, kNoNumber})
            EXPECT_EQ(errorOf([&] { DateAdd(interval, number, {0}); }), 5);
    const std::tuple<Interval, Double, Double> outside[] = {
        {Second, 1, 2958465.9999999}, {Day, -1, -657434.5}, {Month, 1, 2958465}, {Day, 0, 2958466}};
    for (const auto& [i, n, from] : outside)
        EXPECT_EQ(errorOf([&, i = i, n = n, f = from] { DateAdd(i, n, {f}); }), 5);
}

}  // namespace
}  // namespace quorkit::runtime
