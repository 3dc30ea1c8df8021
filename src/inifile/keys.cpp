// Single keys, lists of names, and sections as a whole.
#include <quorkit/QuorInifile.h>

#include "inifile/deletion.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"

namespace quorkit {

void QuorInifile::setIniFileName(const String& name) {
    sIniFileName = name;
    lLastResult = 0;
}

String QuorInifile::ReadKeyValue(const String& sSection, const String& sKeyName,
                                 const String& vsDefaultValue) {
    lLastResult = 0;
    const inifile::IniDocument document = inifile::readIni(ports_.files, sIniFileName);
    return inifile::cutValue(document.value(sSection, sKeyName).value_or(vsDefaultValue));
}

Long QuorInifile::WriteKeyValue(const String& sSection, const String& sKeyName,
                                const String& sValue) {
    return lLastResult =
               inifile::editIni(ports_.files, sIniFileName, [&](inifile::IniDocument& document) {
                   return document.setValue(sSection, sKeyName, sValue);
               });
}

Variant QuorInifile::ReadSectionKeys(const String& sSection, Out<Long> countKeysRead) {
    lLastResult = 0;
    std::vector<String> names;
    inifile::readIni(ports_.files, sIniFileName)
        .forEachKey(sSection, [&](String name, const auto&) { names.push_back(std::move(name)); });
    names = inifile::fittingNames(std::move(names));
    countKeysRead = static_cast<Long>(names.size());
    return inifile::nameArray(std::move(names));
}

Variant QuorInifile::ReadSectionNames(Out<Long> countSectionsRead) {
    lLastResult = 0;
    auto names = inifile::fittingNames(
        inifile::readIni(ports_.files, sIniFileName).sectionNames(inifile::kListBuffer));
    countSectionsRead = static_cast<Long>(names.size());
    return inifile::nameArray(std::move(names));
}

Long QuorInifile::DeleteSection(const String& sSection) {
    return lLastResult = inifile::editIni(
               ports_.files, sIniFileName,
               [&](inifile::IniDocument& document) { return document.removeSection(sSection); });
}

Long QuorInifile::DeleteKey(Unchanged<String> sSection, Unchanged<String> sKeyName) {
    return lLastResult =
               inifile::editIni(ports_.files, sIniFileName, [&](inifile::IniDocument& document) {
                   return document.removeKey(*sSection, *sKeyName);
               });
}

Long QuorInifile::AddSection(Unchanged<String> sSection) {
    return lLastResult = inifile::editIni(
               ports_.files, sIniFileName,
               [&](inifile::IniDocument& document) { return document.setEntries(*sSection, {}); });
}

Long QuorInifile::DeleteKeys(Unchanged<String> sSection, Unchanged<Array<String>> sKeyNames,
                             const Optional<Variant>& lSectionSizeInByte) {
    return inifile::deleteFromFile(ports_.files, sIniFileName,
                                   inifile::Deletion(*sSection, *sKeyNames, inifile::wholeKey),
                                   *lSectionSizeInByte, lLastResult);
}

}  // namespace quorkit
