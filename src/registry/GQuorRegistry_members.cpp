#include <quorkit/GQuorRegistry.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorRegistry>() {
    using C = GQuorRegistry;
    static constexpr MemberInfo rows[] = {
        method<&C::Reg_ReadStringValue>(0x60030000, "Reg_ReadStringValue",
                                        {"sPath", "sKey", "sDefaultValue"},
                                        "A value of the registry as text."),
        method<&C::Reg_WriteStringValue>(0x60030001, "Reg_WriteStringValue",
                                         {"sPath", "sKey", "sValue"},
                                         "Writes a text to the registry; True when it is written."),
        method<&C::Reg_ReadDWordValue>(0x60030002, "Reg_ReadDWordValue",
                                       {"sPath", "sKey", "iDefaultValue"},
                                       "A value of the registry as a number."),
        method<&C::Reg_WriteDWordValue>(
            0x60030003, "Reg_WriteDWordValue", {"sPath", "sKey", "sValue"},
            "Writes a number, given as text, as a DWORD; True when it is written."),
        method<&C::Reg_ReadBoolValue>(0x60030004, "Reg_ReadBoolValue",
                                      {"sPath", "sKey", "bDefaultValue"},
                                      "Whether a value of the registry is another number than 0."),
        method<&C::Reg_WriteBoolValue>(0x60030005, "Reg_WriteBoolValue",
                                       {"sPath", "sKey", "bValue"},
                                       "Writes the DWORD 1 or 0; True when it is written."),
        method<&C::Reg_EnumKeyValues>(0x60030006, "Reg_EnumKeyValues", {"sPath"},
                                      "The values of a key as a collection of texts by name."),
        method<&C::Reg_EnumKeyValuesEx>(0x60030007, "Reg_EnumKeyValuesEx", {"sPath"},
                                        "The values of a key as a dictionary from name to text."),
        method<&C::Reg_EnumSubPaths>(
            0x60030008, "Reg_EnumSubPaths", {"sPath", "saSubPaths"},
            "The names of the keys directly beneath a key, counted from 1; their number."),
        method<&C::Reg_WriteKeyValuesEx>(
            0x60030009, "Reg_WriteKeyValuesEx", {"sPath", "cData"},
            "Writes the items of a dictionary as texts under their keys."),
        method<&C::Reg_DeleteKey>(0x6003000A, "Reg_DeleteKey", {"sPath", "sKey"},
                                  "Deletes a value."),
        method<&C::Reg_DeletePath>(0x6003000B, "Reg_DeletePath", {"sPath"},
                                   "Deletes a key with all keys beneath it."),
    };
    return rows;
}

}  // namespace quorkit
