#include <quorkit/GQuorTools.h>

#include "runtime/calendar.h"

namespace quorkit {
namespace {

/// The constants M and N of a span of years.
struct Century {
    int from;
    int to;
    int m;
    int n;
};
constexpr Century kCenturies[] = {
    {1700, 1799, 23, 3}, {1800, 1899, 23, 4}, {1900, 2099, 24, 5}, {2100, 2199, 24, 6}};

Century centuryOf(int year) {
    for (const Century& one : kCenturies)
        if (year >= one.from && year <= one.to) return one;
    return {};
}

Date daysAfterEaster(int year, int days) {
    constexpr int march = 3;
    constexpr int april = 4;
    const Century century = centuryOf(year);
    const int a = year % 19;
    const int b = year % 4;
    const int c = year % 7;
    const int d = (19 * a + century.m) % 30;
    const int e = (2 * b + 4 * c + 6 * d + century.n) % 7;
    int day = 22 + d + e;
    int month = march;
    if (day > 31) {
        day -= 31;
        month = april;
    }
    // The rule is meant for 26 April, but the contract also moves 26 March.
    if (day == 26) {
        day = 19;
        month = april;
    }
    if (day == 25 && d == 28 && a > 10) {
        day = 18;
        month = april;
    }
    return {runtime::DateSerial(year, month, day).days + days};
}

}  // namespace

Date GQuorTools::OsterSonntag(Integer iYear) {
    return daysAfterEaster(iYear, 0);
}

Date GQuorTools::PfingstSonntag(Integer iYear) {
    return daysAfterEaster(iYear, 49);
}

Date GQuorTools::Auffahrt(Integer iYear) {
    return daysAfterEaster(iYear, 39);
}

Date GQuorTools::Fronleichnam(Integer iYear) {
    return daysAfterEaster(iYear, 60);
}

}  // namespace quorkit
