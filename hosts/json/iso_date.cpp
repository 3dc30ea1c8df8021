#include "json/iso_date.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace quorkit::json {
namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = 1899y / December / 30;
constexpr int kFirstDay = (sys_days(100y / January / 1) - kDayZero).count();
constexpr int kLastDay = (sys_days(9999y / December / 31) - kDayZero).count();
constexpr double kMillisecondsPerDay = 86'400'000;

/// Whether `text` has that layout, where 0 stands for any digit.
bool hasLayout(std::string_view text, std::string_view layout) {
    if (text.size() != layout.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (layout[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != layout[i]) return false;
    return true;
}

}  // namespace

std::optional<std::string> toIsoDate(Date date) {
    if (!(date.days > kFirstDay - 1 && date.days < kLastDay + 1)) return {};
    double day = std::trunc(date.days);
    double clock = std::round(std::abs(date.days - day) * kMillisecondsPerDay);
    if (clock == kMillisecondsPerDay) {
        clock = 0;
        day += 1;
    }
    if (day > kLastDay) return {};
    const year_month_day ymd(kDayZero + days(static_cast<int>(day)));
    const hh_mm_ss time(milliseconds(static_cast<int>(clock)));
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(ymd.year()),
                  static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    std::string result = text;
    if (time.subseconds() != milliseconds(0)) {
        std::snprintf(text, sizeof text, ".%03d", static_cast<int>(time.subseconds().count()));
        result += text;
    }
    return result;
}

std::optional<Date> fromIsoDate(std::string_view text) {
    if (!hasLayout(text, "0000-00-00") && !hasLayout(text, "0000-00-00T00:00:00") &&
        !hasLayout(text, "0000-00-00T00:00:00.000"))
        return {};
    const auto number = [&](std::size_t start, std::size_t count) {
        int value = 0;
        for (std::size_t i = start; i < start + count && i < text.size(); ++i)
            value = value * 10 + (text[i] - '0');
        return value;
    };
    const year_month_day ymd(year(number(0, 4)), month(static_cast<unsigned>(number(5, 2))),
                             day(static_cast<unsigned>(number(8, 2))));
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    if (!ymd.ok() || hour > 23 || minute > 59 || second > 59) return {};
    const auto serial = (sys_days(ymd) - kDayZero).count();
    if (serial < kFirstDay) return {};
    const double clock =
        (((hour * 60 + minute) * 60 + second) * 1000.0 + number(20, 3)) / kMillisecondsPerDay;
    return Date{static_cast<double>(serial) + (serial < 0 ? -clock : clock)};
}

}  // namespace quorkit::json
