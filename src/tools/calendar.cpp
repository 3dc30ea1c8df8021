#include "runtime/calendar.h"

#include <quorkit/GQuorTools.h>

namespace quorkit {
namespace {

constexpr int kLanguages = 4;  // German, French, Italian, English
constexpr int kMonday = 2;

constexpr const char16_t* kShortNames[kLanguages][7] = {
    {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"},
    {u"Di", u"Lu", u"Ma", u"Me", u"Je", u"Ve", u"Sa"},
    {u"Do", u"Lu", u"Ma", u"Me", u"Gi", u"Ve", u"Sa"},
    {u"Su", u"Mo", u"Tu", u"We", u"Th", u"Fr", u"Sa"},
};
// The table starts with weekday 0, but weekdays are counted from 1. So each name is a day late, and
// Saturday has none.
constexpr const char16_t* kFullNames[kLanguages][8] = {
    {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag", u""},
    {u"Dimanche", u"Lundi", u"Mardi", u"Mercredi", u"Jeudi", u"Vendredi", u"Samedi", u""},
    {u"Domenica", u"Luned\u00EC", u"Marted\u00EC", u"Mercoled\u00EC", u"Gioved\u00EC",
     u"Venerd\u00EC", u"Sabato", u""},
    {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday", u""},
};

}  // namespace

String GQuorTools::WochentagString(Unchanged<Date> D, Optional<Boolean, false> bFullName,
                                   Optional<eLanguage, eLanguage_German> iLanguage) {
    const int day = runtime::Weekday(D);
    if (*iLanguage < eLanguage_German || *iLanguage > eLanguage_English) return {};
    const int language = *iLanguage - eLanguage_German;
    return *bFullName ? kFullNames[language][day] : kShortNames[language][day - 1];
}

Integer GQuorTools::CountWeekDaysInYear(Integer iYear, Integer iWeekDay) {
    const Date first = runtime::DateSerial(iYear, 1, 1);
    const bool leap = runtime::DateSerial(iYear, 12, 31).days - first.days + 1 == 366;
    const int weekDay = runtime::Weekday(first, kMonday);
    return iWeekDay == weekDay || (leap && iWeekDay == (weekDay + 1) % 7) ? 53 : 52;
}

Integer GQuorTools::LastDayInMonth(Integer iMonth, Integer iYear) {
    const Date first = runtime::DateSerial(iYear, iMonth, 1);
    const Date next = runtime::DateAdd(runtime::Interval::Month, 1, first);
    return static_cast<Integer>(runtime::partsOf({next.days - 1}).day);
}

Integer GQuorTools::LastDayInMonth2(Date D) {
    const SystemTime parts = runtime::partsOf(D);
    return LastDayInMonth(static_cast<Integer>(parts.month), static_cast<Integer>(parts.year));
}

}  // namespace quorkit
