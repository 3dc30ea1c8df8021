// One postal address: named attributes, the block for an envelope, and phone numbers in groups.
//
// An attribute is a text under a name; names match without regard to letter case. 25 names also
// have a number (eKnownAttributes): eAdr_Plz and "plz" are the same attribute. Any other name may
// be used too. Texts are stored as they are, without any check.
#pragma once

#include <quorkit/QuorCollection.h>
#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class QuorAddress {
   public:
    explicit QuorAddress(Ports& ports = ports::native()) : ports_(ports), attributes_(ports) {}

    /// The country in which the address counts as domestic; "Schweiz" at first.
    const String& HomeCountry() const { return homeCountry_; }
    void setHomeCountry(const String& name) { homeCountry_ = name; }

    // --- Attributes ---

    /// The text stored under a name, "" when there is none.
    Variant getAttribut(const String& sAttributName) const;
    /// Stores a text under a name and returns the attribute's position. Attributes keep the order
    /// in which they were first stored.
    Long setAttribut(const String& sAttributName, const String& sValue);

    /// The text of a known attribute. For any other number the result is the text "Error:
    /// attributindex out of range!". Never an error.
    Variant getStandardAttribut(eKnownAttributes attribut) const;
    /// Stores the text of a known attribute. For any other number the result is -1 and nothing is
    /// stored. Never an error.
    Long setStandardAttribut(eKnownAttributes attribut, const String& sValue);

    // --- Postal block ---

    /// The address as the post of the home country wants it on a letter; "\r\n" separates the
    /// lines:
    ///
    ///     Muster AG                Herr und Frau                Familie
    ///     Herr Peter Muster        Peter und Anna Muster        Peter Muster
    ///     Bahnhofstrasse 1         Gartenweg 5                  Anna Meier
    ///     3007 Bern                79098 Freiburg               7000 Chur
    ///                              DEUTSCHLAND
    ///
    /// "Type" chooses the form, in any letter case: "G" business, "P" private. Otherwise the form
    /// is private when "Firma" is empty, and business when it is not.
    /// - Business: the company, then the person. The salutation stands in front of the name.
    /// - Private: the salutation on a line of its own, the person, then the company, if there is
    ///   one. This order says that the letter is for the person alone.
    /// - The partner is named too when GQuorConvert.cBoolEx finds "InklName2" to be True ("1",
    ///   "True", "Ja", "x" ...). If the partner's last name is the same or not stored, both persons
    ///   share a line; otherwise the partner has one. The salutation then is that of both, and has
    ///   a line of its own in the business form too.
    /// - A salutation without a name is left out.
    /// - Postcode and town are one line.
    /// - The country is the last line, in capitals, when `bIncludeCountry` is True or when it is
    ///   not the home country. Letter case does not count, but "CH" is not "Schweiz". An address
    ///   without a country is domestic; with `bIncludeCountry` it shows the home country.
    /// White space is removed at both ends of a text and of a line, and empty lines are left out. A
    /// line break in a text, such as a street of two lines, begins a new line.
    String getPostAddress(const Optional<Boolean>& bIncludeCountry = {}) const;

    // --- Phone numbers ---

    /// Groups the digits of a Swiss phone number, however it is typed: "044/1234567" gives "044 123
    /// 45 67". The number of digits decides, with a leading "+" counted as "00": 7 (local), 9
    /// (without the 0 of its area), 10 (national, or a service number), 13 and 14 (international).
    /// With any other number of digits the text comes back as it was typed. The attributes of the
    /// address do not matter. A "(0)" behind the country code counts as a digit.
    ///
    /// With `bExpandToInternational` a national number gets `sIntPrefix`, exactly as given, in
    /// place of its 0: "0041 44 123 45 67". Service numbers ("0800", "0848", "0900" ...) do not.
    /// With `bUsePlusSymbol` a leading "00" of the result becomes "+", even when the text came back
    /// as it was.
    String formatPhoneNumber(const String& sPhoneNr,
                             const Optional<Boolean>& bExpandToInternational = {},
                             const Optional<String, Text(u"0041")>& sIntPrefix = {},
                             const Optional<Unchanged<Boolean>>& bUsePlusSymbol = {}) const;

   private:
    Ports& ports_;
    QuorCollection attributes_;
    String homeCountry_ = u"Schweiz";
};

}  // namespace quorkit
