#include <quorkit/QuorAddress.h>

#include <cstdint>
#include <iterator>

#include "address/known_attributes.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

/// In the order of their numbers, counted from 1.
constexpr StringView kStoredNames[] = {
    u"KundenNr",  u"Firma",    u"Nachname",  u"Vorname", u"Anrede", u"Strasse",    u"Plz",
    u"Ort",       u"Land",     u"TelG",      u"FaxG",    u"NatelG", u"TelP",       u"FaxP",
    u"NatelP",    u"MailG",    u"MailP",     u"wwwG",    u"wwwP",   u"Geburtstag", u"Geburtstag2",
    u"Nachname2", u"Vorname2", u"InklName2", u"Type"};
static_assert(std::size(kStoredNames) == eAdr_Type);

}  // namespace

StringView address::storedName(eKnownAttributes attribut) {
    const std::uint32_t index = static_cast<std::uint32_t>(attribut) - 1;
    return index < std::size(kStoredNames) ? kStoredNames[index] : StringView();
}

Variant QuorAddress::getAttribut(const String& sAttributName) const {
    return attributes_.getValueByKey(sAttributName);
}

Long QuorAddress::setAttribut(const String& sAttributName, const String& sValue) {
    return attributes_.setValueByKey(sValue, sAttributName);
}

Variant QuorAddress::getStandardAttribut(eKnownAttributes attribut) const {
    Variant result = u"Error: attributindex out of range!";
    const StringView name = address::storedName(attribut);
    if (!name.empty()) frame::resumeNext([&] { result = getAttribut(String(name)); });
    return result;
}

Long QuorAddress::setStandardAttribut(eKnownAttributes attribut, const String& sValue) {
    const StringView name = address::storedName(attribut);
    if (name.empty()) return -1;
    return frame::onErrorReturn(Long{-1}, [&] { return setAttribut(String(name), sValue); });
}

}  // namespace quorkit
