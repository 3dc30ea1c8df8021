#include "runtime/date_text.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>

namespace quorkit::runtime {
namespace {

constexpr int kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kEpoch = std::chrono::year{1899} / 12 / 30;

/// Takes digits of exactly this number off the front of `text`; -1 when they are not there.
int takeNumber(StringView& text, std::size_t digits) {
    if (text.size() < digits) return -1;
    int value = 0;
    for (const char16_t unit : text.substr(0, digits)) {
        if (unit < u'0' || unit > u'9') return -1;
        value = value * 10 + (unit - u'0');
    }
    text.remove_prefix(digits);
    return value;
}

bool take(StringView& text, StringView oneOf) {
    if (text.empty() || oneOf.find(text[0]) == StringView::npos) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

bool isDateInRange(Double days) {
    return days > -657435 && days < 2958466;
}

String dateText(Date date) {
    Double day = std::trunc(date.days);
    auto second = static_cast<int>(std::lround(std::abs(date.days - day) * kSecondsPerDay));
    if (second == kSecondsPerDay) {
        second = 0;
        ++day;
    }
    const std::chrono::year_month_day calendar(kEpoch + std::chrono::days(static_cast<int>(day)));
    char buffer[48];
    int length = std::snprintf(
        buffer, sizeof buffer, "%04d-%02u-%02u", static_cast<int>(calendar.year()),
        static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()));
    if (second != 0)
        length += std::snprintf(buffer + length, sizeof buffer - static_cast<std::size_t>(length),
                                " %02d:%02d:%02d", second / 3600, second / 60 % 60, second % 60);
    return String(buffer, buffer + length);
}

std::optional<Date> dateIn(StringView text) {
    const int year = takeNumber(text, 4);
    if (!take(text, u"-")) return {};
    const int month = takeNumber(text, 2);
    if (!take(text, u"-")) return {};
    const int day = takeNumber(text, 2);
    if (year < 100 || month < 0 || day < 0) return {};
    const auto calendar = std::chrono::year(year) / month / day;
    if (!calendar.ok()) return {};

    int hour = 0;
    int minute = 0;
    int second = 0;
    if (take(text, u" T")) {
        hour = takeNumber(text, 2);
        if (!take(text, u":")) return {};
        minute = takeNumber(text, 2);
        if (take(text, u":")) second = takeNumber(text, 2);
    }
    const auto within = [](int value, int limit) { return value >= 0 && value < limit; };
    if (!text.empty() || !within(hour, 24) || !within(minute, 60) || !within(second, 60)) return {};

    const auto days = static_cast<Double>((std::chrono::sys_days(calendar) - kEpoch).count());
    const Double time = (hour * 3600 + minute * 60 + second) / Double{kSecondsPerDay};
    return Date{days < 0 ? days - time : days + time};
}

}  // namespace quorkit::runtime
