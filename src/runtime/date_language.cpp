#include "runtime/date_language.h"

#include <algorithm>
#include <iterator>

namespace quorkit::runtime {
namespace {

constexpr DateLanguage kLanguages[] = {
    {eLanguage_German,
     {u"Januar", u"Februar", u"M\u00E4rz", u"April", u"Mai", u"Juni", u"Juli", u"August",
      u"September", u"Oktober", u"November", u"Dezember"},
     {u"Jan", u"Feb", u"M\u00E4r", u"Apr", u"Mai", u"Jun", u"Jul", u"Aug", u"Sep", u"Okt", u"Nov",
      u"Dez"},
     {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag"},
     {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"},
     u"dd/mm/yyyy",
     u"dddd, d. mmmm yyyy",
     u"hh:nn:ss",
     u'.'},
    {eLanguage_French,
     {u"janvier", u"f\u00E9vrier", u"mars", u"avril", u"mai", u"juin", u"juillet", u"ao\u00FBt",
      u"septembre", u"octobre", u"novembre", u"d\u00E9cembre"},
     {u"janv.", u"f\u00E9vr.", u"mars", u"avr.", u"mai", u"juin", u"juil.", u"ao\u00FBt", u"sept.",
      u"oct.", u"nov.", u"d\u00E9c."},
     {u"dimanche", u"lundi", u"mardi", u"mercredi", u"jeudi", u"vendredi", u"samedi"},
     {u"dim.", u"lun.", u"mar.", u"mer.", u"jeu.", u"ven.", u"sam."},
     u"dd/mm/yyyy",
     u"dddd d mmmm yyyy",
     u"hh:nn:ss",
     u'/'},
    {eLanguage_Italian,
     {u"gennaio", u"febbraio", u"marzo", u"aprile", u"maggio", u"giugno", u"luglio", u"agosto",
      u"settembre", u"ottobre", u"novembre", u"dicembre"},
     {u"gen", u"feb", u"mar", u"apr", u"mag", u"giu", u"lug", u"ago", u"set", u"ott", u"nov",
      u"dic"},
     {u"domenica", u"luned\u00EC", u"marted\u00EC", u"mercoled\u00EC", u"gioved\u00EC",
      u"venerd\u00EC", u"sabato"},
     {u"dom", u"lun", u"mar", u"mer", u"gio", u"ven", u"sab"},
     u"dd/mm/yyyy",
     u"dddd d mmmm yyyy",
     u"hh:nn:ss",
     u'/'},
    {eLanguage_English,
     {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August",
      u"September", u"October", u"November", u"December"},
     {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov",
      u"Dec"},
     {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"},
     {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"},
     u"m/d/yyyy",
     u"dddd, mmmm d, yyyy",
     u"h:nn:ss AM/PM",
     u'/'},
};

}  // namespace

std::span<const DateLanguage> dateLanguages() {
    return kLanguages;
}

const DateLanguage& dateLanguage(eLanguage language) {
    const auto found = std::ranges::find(kLanguages, language, &DateLanguage::language);
    return found == std::end(kLanguages) ? *std::prev(found) : *found;
}

}  // namespace quorkit::runtime
