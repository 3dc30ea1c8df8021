#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/QuorAddress.h>

#include <initializer_list>
#include <vector>

#include "address/known_attributes.h"
#include "base/letter_case.h"
#include "strings/whitespace.h"

namespace quorkit {
namespace {

/// The non-empty parts, with `separator` between them.
String joined(std::initializer_list<StringView> parts, StringView separator) {
    String text;
    for (const StringView part : parts) {
        if (part.empty()) continue;
        if (!text.empty()) text += separator;
        text += part;
    }
    return text;
}

String inOneLine(StringView first, StringView second) {
    return joined({first, second}, u" ");
}

class Block {
   public:
    /// Adds every line of `text` that is not empty.
    void add(StringView text) {
        for (;;) {
            const std::size_t end = text.find_first_of(u"\r\n");
            const StringView line = strings::trimmed(text.substr(0, end));
            if (!line.empty()) text_.append(text_.empty() ? u"" : u"\r\n").append(line);
            if (end == StringView::npos) return;
            text.remove_prefix(end + 1);
        }
    }
    const String& text() const { return text_; }

   private:
    String text_;
};

/// The persons of an address as lines.
struct Names {
    String person;   ///< with the partner when the two share a line
    String partner;  ///< a line of its own, otherwise
    bool two = false;

    bool none() const { return person.empty() && partner.empty(); }
};

bool isBusiness(StringView type, StringView company) {
    if (base::sameText(type, u"G")) return true;
    return !base::sameText(type, u"P") && !company.empty();
}

}  // namespace

String QuorAddress::getPostAddress(const Optional<Boolean>& bIncludeCountry) const {
    const auto part = [&](eKnownAttributes attribut) {
        return String(
            strings::trimmed(getAttribut(String(address::storedName(attribut))).get<String>()));
    };
    const auto namesOf = [&]() -> Names {
        const String first = part(eAdr_Vorname);
        const String last = part(eAdr_Nachname);
        const String first2 = part(eAdr_Vorname2);
        const String last2 = part(eAdr_Nachname2);
        const bool included = GQuorConvert(ports_).cBoolEx(part(eadr_InklName2));
        if (!included || (first2.empty() && last2.empty())) return {inOneLine(first, last), {}};
        const bool sameName = last2.empty() || base::sameText(last, last2);
        if (sameName && (!first.empty() || first2.empty()))
            return {inOneLine(joined({first, first2}, u" und "), last), {}, true};
        return {inOneLine(first, last), inOneLine(first2, last2.empty() ? last : last2), true};
    };

    const String company = part(eAdr_Firma);
    const Names names = namesOf();
    Block block;
    const bool business = isBusiness(part(eAdr_Type), company);
    if (business) block.add(company);
    const String salutation = names.none() ? String() : part(eAdr_Anrede);
    if (business && !names.two) {
        block.add(inOneLine(salutation, names.person));
    } else {
        block.add(salutation);
        block.add(names.person);
        block.add(names.partner);
    }
    if (!business) block.add(company);
    block.add(part(eAdr_Strasse));
    block.add(inOneLine(part(eAdr_Plz), part(eAdr_Ort)));

    const String home(strings::trimmed(HomeCountry()));
    const String stored = part(eAdr_Land);
    const String country = stored.empty() ? home : stored;
    if (*bIncludeCountry || !base::sameText(country, home))
        block.add(base::toUpper(GQuorStrings(ports_).StringReplace(country, u"\u00DF", u"SS")));
    return block.text();
}

}  // namespace quorkit
