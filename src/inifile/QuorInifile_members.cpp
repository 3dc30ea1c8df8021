#include <quorkit/QuorInifile.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;
using frame::propertyLet;

// The identifiers follow the order of the class's procedures; 3 and C belong to private ones.
template <>
std::span<const MemberInfo> frame::memberRows<QuorInifile>() {
    using C = QuorInifile;
    static constexpr MemberInfo rows[] = {
        propertyGet<&C::IniFileName>(0x68030000, "IniFileName",
                                     "The name of the file that all members work on."),
        propertyLet<&C::setIniFileName>(0x68030000, "IniFileName",
                                        "Names the file that all members work on."),
        method<&C::ReadKeyValue>(0x60030000, "ReadKeyValue",
                                 {"sSection", "sKeyName", "vsDefaultValue"},
                                 "The value of a key, or the default when it is missing."),
        method<&C::WriteKeyValue>(0x60030001, "WriteKeyValue", {"sSection", "sKeyName", "sValue"},
                                  "Sets a key; 1, or 0 when it was not written."),
        method<&C::ReadSectionKeys>(0x60030002, "ReadSectionKeys", {"sSection", "countKeysRead"},
                                    "The names of a section's keys."),
        method<&C::ReadSectionNames>(0x60030004, "ReadSectionNames", {"countSectionsRead"},
                                     "The names of the file's sections."),
        method<&C::DeleteSection>(
            0x60030005, "DeleteSection", {"sSection"},
            "Removes a section with all its lines; 1, or 0 when nothing was removed."),
        method<&C::DeleteKey>(0x60030006, "DeleteKey", {"sSection", "sKeyName"},
                              "Removes a key; 1, or 0 when nothing was removed."),
        method<&C::AddSection>(0x60030007, "AddSection", {"sSection"},
                               "Makes an empty section; one that exists is emptied."),
        method<&C::DeleteKeys>(0x60030008, "DeleteKeys",
                               {"sSection", "sKeyNames", "lSectionSizeInByte"},
                               "Removes several keys and moves the section to the end of the file; "
                               "how many, -2 for a section with a key twice, -1 on failure."),
        method<&C::ReadSectionContent>(0x60030009, "ReadSectionContent",
                                       {"sSection", "countKeys", "lSectionSizeInByte"},
                                       "A section as a table of keys and values."),
        method<&C::WriteSectionContent>(0x6003000A, "WriteSectionContent",
                                        {"sSection", "sKeyArray", "lOldSectionSizeInByte"},
                                        "Merges a table of keys and values into a section; how "
                                        "many entries, -1 when the size is no number."),
        method<&C::WriteMultiLineValue>(0x6003000B, "WriteMultiLineValue",
                                        {"sSection", "sKey", "sValue"},
                                        "Stores a value of several lines; 1, or 0 when the key is "
                                        "refused."),
        method<&C::ReadMultiLineValue>(0x6003000D, "ReadMultiLineValue",
                                       {"sSection", "sKeyName", "vsDefaultValue"},
                                       "A value of several lines."),
        method<&C::WriteMultiLineSection>(
            0x6003000E, "WriteMultiLineSection",
            {"sSection", "sKeyValueArray", "lOldSectionSizeInByte", "vbSupportOldMultiLineFields"},
            "Stores a table of keys and values of several lines; how many were accepted."),
        method<&C::ReadMultiLineSection>(0x6003000F, "ReadMultiLineSection",
                                         {"sSection", "countKeys", "lSectionSizeInByte"},
                                         "A section as a table, values of several lines joined."),
        method<&C::DeleteMultiLineKeys>(0x60030010, "DeleteMultiLineKeys",
                                        {"sSection", "sKeyNames", "lSectionSizeInByte"},
                                        "Removes several keys with their numbered lines; how many, "
                                        "-2 for a section with a key twice, -1 on failure."),
        method<&C::DeleteMultiLineKey>(0x60030011, "DeleteMultiLineKey", {"sSection", "sKeyName"},
                                       "Removes a key with its numbered lines."),
        method<&C::isIniFileMultiLineFieldSave>(
            0x60030012, "isIniFileMultiLineFieldSave",
            "Whether every section of the file can be read with values of several lines."),
    };
    return rows;
}

}  // namespace quorkit
