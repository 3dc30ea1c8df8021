#include <quorkit/GQuorStrings.h>
#include <quorkit/GQuorTools.h>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "runtime/calendar.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

using runtime::Interval;

struct Unit {
    const char16_t* key;
    Interval interval;
};
constexpr Unit kUnits[] = {
    {u"y", Interval::Year}, {u"m", Interval::Month},  {u"d", Interval::Day},
    {u"h", Interval::Hour}, {u"n", Interval::Minute}, {u"s", Interval::Second},
};

}  // namespace

Date GQuorTools::DateAddEx(Unchanged<Date> RefDate, Unchanged<String> sOptionString,
                           Optional<Boolean, false> bInvertOptionString) {
    const int sign = *bInvertOptionString ? -1 : 1;
    Date date = *RefDate;
    resumeNext([&] {
        String options = base::toLower(*sOptionString);
        const CollectionRef amounts = GQuorStrings(ports_).ParseString(options);
        for (const Unit& unit : kUnits)
            resumeNext([&] {
                const Double amount = runtime::CDbl(amounts->item(unit.key));
                date = runtime::DateAdd(unit.interval, sign * amount, date);
            });
    });
    return date;
}

}  // namespace quorkit
