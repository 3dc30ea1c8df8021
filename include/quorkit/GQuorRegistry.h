// The registry: reading and writing values, listing, deleting. No state.
//
// A path is HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE or HKEY_CLASSES_ROOT, or HKCU, HKLM or HKCR, in
// any letter case, a "\", and the names of keys with "\" between them. What stands where the first
// "\" should is skipped unseen; so HKEY_CURRENT_USER_X\K is the key X\K of the user. A path that
// begins otherwise, HKEY_USERS included, or has another "\" behind the first leads nowhere.
//
// The value with the empty name is the key's default value. Names are matched without regard to
// letter case. ports/registry.h tells what names may be.
//
// A value becomes a text so: a text without the U+0000 at its end, of which a list of texts has two
// and keeps one; a DWORD as a decimal number from -2147483647 to 2147483648 (0x80000000 is
// positive); data without a type as characters of code page 1252; anything else as "".
//
// No key, no value, no such root and no right are never an error.
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
    // Reading takes texts of up to 2047 characters and a U+0000, and other data of up to 2048
    // bytes; what is longer is as good as missing. Writing makes the key, and what is missing above
    // it. It is True when the value is written.

    /// The value as text, or `sDefaultValue` when there is none.
    String Reg_ReadStringValue(const String& sPath, const String& sKey,
                               const Optional<String>& sDefaultValue = {});
    /// Writes a text of any length, of the type REG_SZ.
    Boolean Reg_WriteStringValue(const String& sPath, const String& sKey, const String& sValue);

    /// The number that the value as text is, rounded to the nearest, halves to even; or
    /// `iDefaultValue` when it is none. Error 6 when it is out of range, as the DWORD 0x80000000
    /// is.
    Long Reg_ReadDWordValue(const String& sPath, const String& sKey,
                            Optional<Long> iDefaultValue = {});
    /// Writes a number, rounded down, as a DWORD: "12", "-1" (which is 0xFFFFFFFF), or "0x1F" with
    /// the digits as GQuorConvert.HexToDec takes them; so up to four are a 16-bit number with a
    /// sign ("0xFFFF" writes 0xFFFFFFFF, "0x0000FFFF" does not), and no digits are 0. False
    /// for any other text, and for what is not from -4294967296 to 4294967295.
    Boolean Reg_WriteDWordValue(const String& sPath, const String& sKey, const String& sValue);

    /// Whether Reg_ReadDWordValue gives another number than 0, with its error 6.
    Boolean Reg_ReadBoolValue(const String& sPath, const String& sKey,
                              Optional<Boolean, false> bDefaultValue = {});
    /// Writes the DWORD 1 or 0.
    Boolean Reg_WriteBoolValue(const String& sPath, const String& sKey, Boolean bValue);

    // --- A whole key ---
    //
    // Listing is in the system's order. It leaves out names of 2000 characters and more, texts of
    // more than 1999 characters and a U+0000, and other data of more than 2000 bytes.

    /// The values of a key as texts under their names; the default value has no key in the
    /// collection. Where Windows tells two names apart that are one key to a collection, the second
    /// has none either.
    CollectionRef Reg_EnumKeyValues(const String& sPath);
    /// The values of a key as texts under their names.
    DictionaryRef Reg_EnumKeyValuesEx(const String& sPath);
    /// How many keys stand directly beneath a key; `saSubPaths` becomes their names, counted from
    /// 1, or stays as it is when there are none.
    Long Reg_EnumSubPaths(const String& sPath, Out<Array<String>> saSubPaths);

    /// Writes every item of `cData` as a text (True as "True", 5 as "5") of the type REG_SZ under
    /// its key, all at once, and makes the key when it is missing. Names that no value can have are
    /// left out. Error 91 for Nothing; 13 or 94 for a key or item that is no text, then no value is
    /// written. A key that cannot be opened is no error, whatever `cData` is.
    void Reg_WriteKeyValuesEx(const String& sPath, const DictionaryRef& cData);

    /// Deletes a value.
    void Reg_DeleteKey(const String& sPath, const String& sKey);
    /// Deletes a key with its values and all keys beneath it, the deepest first. What cannot be
    /// deleted stays, with the keys above it. "\" at the end do not count. A path that names no key
    /// behind its root deletes nothing.
    void Reg_DeletePath(const String& sPath);

   private:
    Ports& ports_;
};

}  // namespace quorkit
