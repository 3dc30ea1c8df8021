// One postal address: named attributes, the block for an envelope, and phone numbers in groups.
//
// An attribute is a text under a name that matches without regard to letter case. 25 names are
// known by number too (eKnownAttributes), so eAdr_Plz and "plz" are the same attribute; any other
// name may be used besides. Nothing is checked or changed on the way in.
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
    /// Stores a text under a name and returns the position of the attribute: attributes keep the
    /// order in which they came first.
    Long setAttribut(const String& sAttributName, const String& sValue);

    /// The same for a known attribute. For a number that is none of them the result is the text
    /// "Error: attributindex out of range!". Never an error.
    Variant getStandardAttribut(eKnownAttributes attribut) const;
    /// The same; -1 for a number that is none of them, and nothing is stored. Never an error.
    Long setStandardAttribut(eKnownAttributes attribut, const String& sValue);

    // --- Postal block ---

    /// The address as the post of the home country wants it on a letter, its lines joined by
    /// "\r\n":
    ///
    ///     Muster AG                Herr und Frau                Familie
    ///     Herr Peter Muster        Peter und Anna Muster        Peter Muster
    ///     Bahnhofstrasse 1         Gartenweg 5                  Anna Meier
    ///     3007 Bern                79098 Freiburg               7000 Chur
    ///                              DEUTSCHLAND
    ///
    /// "Type" chooses the form: "G" for business, "P" for private, in any case. Without one of
    /// these it is private when "Firma" is empty, business otherwise.
    /// - Business: the company, then the person. The salutation stands in front of the name.
    /// - Private: the person, with the salutation on a line of its own, then the company, if there
    ///   is one: the letter is for the person's own eyes.
    /// - The partner is named too when "InklName2" is a yes to GQuorConvert.cBoolEx ("1", "True",
    ///   "Ja", "x" ...): together with the person when their last name is the same or not stored,
    ///   on a line of their own when it is another. The salutation, which is then that of both,
    ///   has a line of its own also in the business form.
    /// - A salutation without a name is left out.
    /// - Postcode and town are one line.
    /// - The country is the last line, in capitals, when `bIncludeCountry` asks for it or when it
    ///   is not the home country, letter case aside; "CH" is not "Schweiz". An address without a
    ///   country is domestic: asked for, it is the home country.
    /// White space around a text and around a line is taken off and empty lines are left out. A
    /// line break in a text, such as a street of two lines, begins a new line.
    String getPostAddress(const Optional<Boolean>& bIncludeCountry = {}) const;

    // --- Phone numbers ---

    /// A number of the Swiss plan, however it is typed, in groups of digits: "044/1234567" gives
    /// "044 123 45 67". What counts is the number of digits, "00" for a leading "+" included: 7
    /// (local), 9 (without the 0 of its area), 10 (national, or a service number), 13 and 14
    /// (international); with any other number of digits it comes back as it was typed. The
    /// attributes have no part in it. A "(0)" behind the country code is a digit like any other.
    ///
    /// With `bExpandToInternational` a national number gets `sIntPrefix`, as it is given, instead
    /// of its 0: "0041 44 123 45 67"; service numbers ("0800", "0848", "0900" ...) do not. With
    /// `bUsePlusSymbol` a result that begins with "00" begins with "+" instead, also one that
    /// came back as it was.
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
