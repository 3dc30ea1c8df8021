// The registry: reading and writing values, listing, deleting. No state.
//
// A path is a root and the names of keys with "\" between them. The roots are HKEY_CURRENT_USER,
// HKEY_LOCAL_MACHINE and HKEY_CLASSES_ROOT, or HKCU, HKLM and HKCR, in any letter case. The one
// character behind the root should be "\", but is skipped whatever it is: HKEY_CURRENT_USER_X\K is
// the key X\K of the user. A path with another root, HKEY_USERS included, or with a second "\"
// behind the first leads nowhere.
//
// The value with the empty name is the key's default value. Names match without regard to letter
// case. ports/registry.h tells which names are possible.
//
// Values become texts by these rules. A text loses the U+0000 at its end; a list of texts ends in
// two and keeps one of them. A DWORD becomes a decimal number from -2147483647 to 2147483648
// (0x80000000 is positive). Data without a type are characters of code page 1252. Anything else
// gives "".
//
// A missing key or value, an unknown root and a missing right are never errors.
#pragma once

#include <quorkit/array.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorRegistry {
   public:
    explicit GQuorRegistry(Ports& ports = ports::native()) : ports_(ports) {}

    // --- Single values ---
    //
    // Reading is limited to texts of 2047 characters and a U+0000, and to 2048 bytes of other data;
    // longer values count as missing. Writing makes the key and every missing key above it; the
    // result is True when the value has been written.

    /// The value as text, or `sDefaultValue` when there is none.
    String Reg_ReadStringValue(const String& sPath, const String& sKey,
                               const Optional<String>& sDefaultValue = {});
    /// Writes a text of any length, of the type REG_SZ.
    Boolean Reg_WriteStringValue(const String& sPath, const String& sKey, const String& sValue);

    /// The number that the value has as text, rounded to the nearest, halves to even;
    /// `iDefaultValue` when the text is no number. Error 6 when the number is out of range; the
    /// DWORD 0x80000000 is.
    Long Reg_ReadDWordValue(const String& sPath, const String& sKey,
                            Optional<Long> iDefaultValue = {});
    /// Writes a number, rounded down, as a DWORD: "12", "-1" (stored as 0xFFFFFFFF), or "0x1F".
    /// Digits behind "0x" are read by GQuorConvert.HexToDec: up to four are a 16-bit number with a
    /// sign ("0xFFFF" stores 0xFFFFFFFF, "0x0000FFFF" does not), and no digits are 0. False for any
    /// other text, and for a number outside -4294967296 to 4294967295.
    Boolean Reg_WriteDWordValue(const String& sPath, const String& sKey, const String& sValue);

    /// Whether Reg_ReadDWordValue gives a number other than 0. Error 6 as there.
    Boolean Reg_ReadBoolValue(const String& sPath, const String& sKey,
                              Optional<Boolean, false> bDefaultValue = {});
    /// Writes the DWORD 1 or 0.
    Boolean Reg_WriteBoolValue(const String& sPath, const String& sKey, Boolean bValue);

    // --- A whole key ---
    //
    // Lists are in the system's order. They leave out names of 2000 characters and more, texts of
    // more than 1999 characters and a U+0000, and other data of more than 2000 bytes.

    /// The values of a key as texts under their names. The default value has no key in the
    /// collection. Nor has the second of two names that Windows tells apart but a collection does
    /// not.
    CollectionRef Reg_EnumKeyValues(const String& sPath);
    /// The values of a key as texts under their names.
    DictionaryRef Reg_EnumKeyValuesEx(const String& sPath);
    /// The number of keys directly beneath a key. `saSubPaths` receives their names, counted from
    /// 1; it stays as it is when there are none.
    Long Reg_EnumSubPaths(const String& sPath, Out<Array<String>> saSubPaths);

    /// Writes every item of `cData` under its key as a text (True as "True", 5 as "5") of the type
    /// REG_SZ. All are written at once; a missing registry key is made. Names that no value can
    /// have are left out. Error 91 for Nothing; 13 or 94 for a name or an item without a text, and
    /// then no value is written. If the registry key cannot be opened, there is no error, whatever
    /// `cData` is.
    void Reg_WriteKeyValuesEx(const String& sPath, const DictionaryRef& cData);

    /// Deletes a value.
    void Reg_DeleteKey(const String& sPath, const String& sKey);
    /// Deletes a key with its values and all keys beneath it, the deepest first. A key that cannot
    /// be deleted stays, and so do the keys above it. "\" at the end of the path are ignored. A
    /// path that is only a root deletes nothing.
    void Reg_DeletePath(const String& sPath);

   private:
    Ports& ports_;
};

}  // namespace quorkit
