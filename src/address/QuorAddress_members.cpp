#include <quorkit/QuorAddress.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;
using frame::propertyLet;

// The identifiers follow the order of the class's procedures; 0 and 1 belong to private ones.
template <>
std::span<const MemberInfo> frame::memberRows<QuorAddress>() {
    using C = QuorAddress;
    static constexpr MemberInfo rows[] = {
        propertyGet<&C::HomeCountry>(0x68030000, "HomeCountry",
                                     "The country in which the address counts as domestic."),
        propertyLet<&C::setHomeCountry>(0x68030000, "HomeCountry",
                                        "Names the country in which the address is domestic."),
        method<&C::getAttribut>(0x60030002, "getAttribut", {"sAttributName"},
                                "The text stored under a name."),
        method<&C::setAttribut>(0x60030003, "setAttribut", {"sAttributName", "sValue"},
                                "Stores a text under a name; its position."),
        method<&C::getStandardAttribut>(0x60030004, "getStandardAttribut", {"attribut"},
                                        "The text of a known attribute."),
        method<&C::setStandardAttribut>(0x60030005, "setStandardAttribut", {"attribut", "sValue"},
                                        "Stores the text of a known attribute; its position, or -1 "
                                        "for an unknown number."),
        method<&C::getPostAddress>(0x60030006, "getPostAddress", {"bIncludeCountry"},
                                   "The address as the lines of a postal block."),
        method<&C::formatPhoneNumber>(
            0x60030007, "formatPhoneNumber",
            {"sPhoneNr", "bExpandToInternational", "sIntPrefix", "bUsePlusSymbol"},
            "A phone number in groups of digits, national or international."),
    };
    return rows;
}

}  // namespace quorkit
