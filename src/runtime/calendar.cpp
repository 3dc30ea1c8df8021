#include "runtime/calendar.h"

#include <quorkit/errors.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace quorkit::runtime {
namespace {

using Seconds = std::int64_t;

constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr int kFarYear = 20000;
constexpr int kFirstDay = -657434;
constexpr int kLastDay = 2958465;
constexpr Seconds kDay = 86400;
constexpr Seconds kStart = kFirstDay * kDay;
constexpr Seconds kEnd = (kLastDay + 1) * kDay;
/// More than any two dates are apart, whatever the interval.
constexpr Double kTooMany = 1e12;

int count(std::chrono::days days) {
    return static_cast<int>(days.count());
}

/// Months since the start of the year 0.
constexpr std::int64_t monthsOf(std::int64_t year, std::int64_t month) {
    return year * 12 + month - 1;
}

int timeOf(const SystemTime& parts) {
    return (parts.hour * 60 + parts.minute) * 60 + parts.second;
}

int dayOf(Seconds seconds) {
    return count(std::chrono::floor<std::chrono::days>(std::chrono::seconds(seconds)));
}

/// Seconds since midnight of day 0. They always count forward, unlike the fraction of a Date.
Seconds secondsOf(Date date) {
    if (!isDateInRange(date.days)) raise(ErrorNumber::InvalidProcedureCall);
    const Double day = std::trunc(date.days);
    const Seconds clock = std::llround(std::abs(date.days - day) * static_cast<Double>(kDay));
    return std::min(static_cast<Seconds>(day) * kDay + clock, kEnd - 1);
}

Date fromSeconds(Seconds seconds) {
    if (seconds < kStart || seconds >= kEnd) raise(ErrorNumber::InvalidProcedureCall);
    const int day = dayOf(seconds);
    const Double time = static_cast<Double>(seconds - day * kDay) / static_cast<Double>(kDay);
    return {day < 0 ? day - time : day + time};
}

/// Midnight of a day of a month, whether the day exists or not.
Seconds midnight(std::int64_t months, std::int64_t day) {
    const std::chrono::year_month month =
        std::chrono::year(0) / 1 + std::chrono::months(static_cast<int>(months));
    return (count(std::chrono::sys_days(month / 1) - kDayZero) + day - 1) * kDay;
}

Date addMonths(Date date, std::int64_t number) {
    const SystemTime parts = partsOf(date);
    const std::int64_t months = monthsOf(parts.year, parts.month) + number;
    if (months < monthsOf(kFirstYear, 1) || months > monthsOf(kLastYear, 12))
        raise(ErrorNumber::InvalidProcedureCall);
    const Seconds lastDay = midnight(months + 1, 0);
    return fromSeconds(std::min(midnight(months, parts.day), lastDay) + timeOf(parts));
}

}  // namespace

bool isDateInRange(Double days) {
    return days > kFirstDay - 1 && days < kLastDay + 1;
}

SystemTime partsOf(Date date) {
    const Seconds seconds = secondsOf(date);
    const int day = dayOf(seconds);
    const std::chrono::year_month_day calendar(kDayZero + std::chrono::days(day));
    const int time = static_cast<int>(seconds - day * kDay);
    return {static_cast<int>(calendar.year()),
            static_cast<int>(static_cast<unsigned>(calendar.month())),
            static_cast<int>(static_cast<unsigned>(calendar.day())),
            time / 3600,
            time / 60 % 60,
            time % 60,
            0};
}

Date dateOf(const SystemTime& parts) {
    return fromSeconds(midnight(monthsOf(parts.year, parts.month), parts.day) + timeOf(parts));
}

bool isDay(int year, int month, int day) {
    return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12 && day >= 1 &&
           (std::chrono::year(year) / month / day).ok();
}

int fullYear(int year) {
    if (year < 0 || year > 99) return year;
    return year + (year < 30 ? 2000 : 1900);
}

Date DateSerial(Long year, Long month, Long day) {
    const std::int64_t months = monthsOf(fullYear(year), month);
    // Far beyond every date, and well within the limits of the calendar below.
    if (months < 0 || months > monthsOf(kFarYear, 12)) raise(ErrorNumber::InvalidProcedureCall);
    return fromSeconds(midnight(months, day));
}

int Weekday(Date date, int firstDay) {
    const std::chrono::weekday day(kDayZero + std::chrono::days(dayOf(secondsOf(date))));
    return count(day - std::chrono::Sunday + std::chrono::days(8 - firstDay)) % 7 + 1;
}

int dayOfYear(Date date) {
    const Seconds newYear = midnight(monthsOf(partsOf(date).year, 1), 1);
    return dayOf(secondsOf(date) - newYear) + 1;
}

Date DateAdd(Interval interval, Double number, Date date) {
    const Seconds from = secondsOf(date);
    if (!(std::abs(number) < kTooMany)) raise(ErrorNumber::InvalidProcedureCall);
    const auto whole = static_cast<std::int64_t>(std::nearbyint(number));
    switch (interval) {
        case Interval::Year:
            return addMonths(date, whole * 12);
        case Interval::Quarter:
            return addMonths(date, whole * 3);
        case Interval::Month:
            return addMonths(date, whole);
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday:
            return fromSeconds(from + whole * kDay);
        case Interval::Week:
            return fromSeconds(from + whole * 7 * kDay);
        case Interval::Hour:
            return fromSeconds(from + whole * 3600);
        case Interval::Minute:
            return fromSeconds(from + whole * 60);
        case Interval::Second:
            return fromSeconds(from + whole);
    }
    raise(ErrorNumber::InvalidProcedureCall);
}

}  // namespace quorkit::runtime
