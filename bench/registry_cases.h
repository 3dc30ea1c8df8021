// The operations on a registry that are measured, on any system.
#pragma once

#include <quorkit/GQuorRegistry.h>

#include <string>

namespace quorkit::bench {

class RegistryCases {
   public:
    static constexpr Long kMany = 10'000;
    static constexpr Long kBulk = 1'000;

    RegistryCases() {
        registry_.Reg_DeletePath(kTop);
        registry_.Reg_WriteDWordValue(kDeep, u"Left", u"12");
        registry_.Reg_WriteStringValue(kDeep, u"Name", u"a text beside it");
        registry_.Reg_WriteKeyValuesEx(kValues, values(kMany));
        writeBulk();
        for (Long i = 0; i < kMany; ++i)
            registry_.Reg_WriteDWordValue(kKeys + (u"\\Key " + number(i)), u"x", u"1");
    }
    ~RegistryCases() { registry_.Reg_DeletePath(kTop); }
    RegistryCases(const RegistryCases&) = delete;
    RegistryCases& operator=(const RegistryCases&) = delete;

    bool readDWord() { return registry_.Reg_ReadDWordValue(kDeep, u"Left") >= 0; }
    bool writeDWord() { return registry_.Reg_WriteDWordValue(kDeep, u"Left", number(++count_)); }
    bool writeBulk() {
        // Equal values would not be written again.
        static const DictionaryRef both[] = {values(kBulk, 0), values(kBulk, 1)};
        registry_.Reg_WriteKeyValuesEx(kBulkKey, both[++count_ % 2]);
        return true;
    }
    bool listValues() { return registry_.Reg_EnumKeyValuesEx(kValues)->count() == kMany; }
    bool listBulk() { return registry_.Reg_EnumKeyValuesEx(kBulkKey)->count() == kBulk; }
    bool listKeys() {
        Array<String> names;
        return registry_.Reg_EnumSubPaths(kKeys, names) == kMany;
    }

    static String number(Long value) {
        const std::string digits = std::to_string(value);
        return {digits.begin(), digits.end()};
    }

   private:
    static DictionaryRef values(Long count, Long first = 0) {
        auto all = Dictionary::make();
        for (Long i = 0; i < count; ++i) all->add(u"Value number " + number(i), first + i);
        return all;
    }

    static inline const String kTop = u"HKCU\\Software\\Quorkit bench";
    static inline const String kDeep = kTop + u"\\Tool\\Forms\\Main";
    static inline const String kValues = kTop + u"\\Values";
    static inline const String kBulkKey = kTop + u"\\Bulk";
    static inline const String kKeys = kTop + u"\\Keys";

    GQuorRegistry registry_;
    Long count_ = 0;
};

}  // namespace quorkit::bench
