#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorRegistry.h>

#include <cmath>
#include <optional>

#include "base/dword.h"
#include "base/letter_case.h"
#include "base/registry_names.h"
#include "frame/error_patterns.h"
#include "registry/open_key.h"
#include "registry/value_conversion.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

constexpr std::size_t kValueRoom = 2048;

std::optional<String> read(Registry& registry, const String& path, const String& name) {
    const registry::OpenKey key(registry, registry::splitRegPath(path), RegistryAccess::Read);
    RegistryValue value;
    if (key.value(name, value) != kSuccess || registry::roomOf(value) > kValueRoom) return {};
    return registry::convertRegValue(value);
}

bool write(Registry& registry, const String& path, const NamedValue& value) {
    const registry::OpenKey key(registry, registry::splitRegPath(path), RegistryAccess::Write,
                                registry::Unopened::IsMade);
    return key.setValues({&value, 1}) == kSuccess;
}

/// The 32 bits of a number in a text; nothing when it is no number or does not fit.
std::optional<std::uint32_t> dwordOf(Ports& ports, const String& text) {
    constexpr Double beyond = 4294967296;
    const String capitals = base::toUpper(text);
    std::optional<Double> number;
    if (capitals.starts_with(u"0X"))
        frame::resumeNext([&] { number = GQuorConvert(ports).HexToDec(capitals); });
    else
        number = runtime::numberIn(text);
    if (!number) return {};
    Double whole = std::floor(*number);
    if (whole < 0) whole += beyond;
    if (whole < 0 || whole >= beyond) return {};
    return static_cast<std::uint32_t>(whole);
}

}  // namespace

String GQuorRegistry::Reg_ReadStringValue(const String& sPath, const String& sKey,
                                          const Optional<String>& sDefaultValue) {
    return read(ports_.registry, sPath, sKey).value_or(*sDefaultValue);
}

Boolean GQuorRegistry::Reg_WriteStringValue(const String& sPath, const String& sKey,
                                            const String& sValue) {
    return write(ports_.registry, sPath, {sKey, registry::stringValue(sValue)});
}

Long GQuorRegistry::Reg_ReadDWordValue(const String& sPath, const String& sKey,
                                       Optional<Long> iDefaultValue) {
    const auto text = read(ports_.registry, sPath, sKey);
    return text && runtime::IsNumeric(*text) ? runtime::CLng(*text) : *iDefaultValue;
}

Boolean GQuorRegistry::Reg_WriteDWordValue(const String& sPath, const String& sKey,
                                           const String& sValue) {
    const auto number = dwordOf(ports_, sValue);
    return number && write(ports_.registry, sPath, {sKey, {kRegDWord, base::dwordData(*number)}});
}

Boolean GQuorRegistry::Reg_ReadBoolValue(const String& sPath, const String& sKey,
                                         Optional<Boolean, false> bDefaultValue) {
    return Reg_ReadDWordValue(sPath, sKey, *bDefaultValue ? 1 : 0) != 0;
}

Boolean GQuorRegistry::Reg_WriteBoolValue(const String& sPath, const String& sKey, Boolean bValue) {
    return Reg_WriteDWordValue(sPath, sKey, bValue ? u"1" : u"0");
}

void GQuorRegistry::Reg_WriteKeyValuesEx(const String& sPath, const DictionaryRef& cData) {
    const registry::OpenKey key(ports_.registry, registry::splitRegPath(sPath),
                                RegistryAccess::Write, registry::Unopened::IsMade);
    if (key.status() != kSuccess) return;
    if (cData == nullptr) raise(ErrorNumber::ObjectNotSet);
    std::vector<NamedValue> values;
    for (const auto& [name, item] : cData->entries()) {
        NamedValue one{runtime::CStr(name), registry::stringValue(runtime::CStr(item))};
        if (base::canNameValue(one.name)) values.push_back(std::move(one));
    }
    key.setValues(values);
}

}  // namespace quorkit
