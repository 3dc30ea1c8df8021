#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorStrings.h>

#include "base/letter_case.h"

namespace quorkit {
namespace {

constexpr StringView kNetworkPrefix = u"\\\\";

bool isNetworkName(StringView name) {
    return name.starts_with(kNetworkPrefix);
}

/// The length of the path in front of the file name.
std::size_t pathLength(StringView name) {
    const std::size_t last = name.find_last_of(u":/\\");
    return last == StringView::npos ? 0 : last + 1;
}

}  // namespace

String GQuorFile::PathAddBackSlash(const String& vsPath) {
    return vsPath.empty() || vsPath.ends_with(u'\\') ? vsPath : vsPath + u'\\';
}

String GQuorFile::getParentDirectory(const String& sPath) {
    constexpr std::size_t shortestNetworkName = 7;
    constexpr std::size_t shortestName = 4;
    if (sPath.size() < (isNetworkName(sPath) ? shortestNetworkName : shortestName)) return {};
    const std::size_t ending = sPath.ends_with(u'\\') ? 1 : 0;
    const StringView name = StringView(sPath).substr(0, sPath.size() - ending);
    const std::size_t last = name.rfind(u'\\');
    if (last == StringView::npos || last == 0) return {};
    return String(name.substr(0, last)).append(ending, u'\\');
}

String GQuorFile::ExtractDrive(const String& vsFileName) {
    if (isNetworkName(vsFileName))
        return vsFileName.substr(0, vsFileName.find(u'\\', kNetworkPrefix.size()));
    if (vsFileName.size() < 2 || vsFileName[1] != u':') return {};
    const char16_t letter = base::toUpper(vsFileName[0]);
    return letter >= u'A' && letter <= u'Z' ? vsFileName.substr(0, 2) : String();
}

String GQuorFile::ExtractFileName(const String& vsString) {
    return vsString.substr(pathLength(vsString));
}

String GQuorFile::ExtractPath(const String& vsFileName) {
    return vsFileName.substr(0, pathLength(vsFileName));
}

String GQuorFile::ExtractFileExt(const String& vsFileName) {
    const String name = ExtractFileName(vsFileName);
    const std::size_t stop = name.rfind(u'.');
    return stop == String::npos ? String() : name.substr(stop);
}

String GQuorFile::ChangeFileExt(const String& vsFileName, const String& vsNewExtension) {
    return vsFileName.substr(0, vsFileName.rfind(u'.')) + vsNewExtension;
}

String GQuorFile::ExpandFileName(const String& vsFileName) {
    GQuorStrings strings(ports_);
    return strings.ExpandDateString(strings.ExpandEnvironmentString(vsFileName));
}

String GQuorFile::ExtractUNCName(const String& vsFileName) {
    const String drive = ExtractDrive(vsFileName);
    return isNetworkName(drive) ? drive.substr(kNetworkPrefix.size()) : String();
}

String GQuorFile::ExtractUNCServerAndShareName(const String& sFileName) {
    const String server = ExtractUNCName(sFileName);
    if (server.empty()) return {};
    // Starts the search at the first character of the share.
    return sFileName.substr(0, sFileName.find(u'\\', kNetworkPrefix.size() + server.size() + 1));
}

String GQuorFile::GetFileNameForLanguage(const String& sFileName, const String& sLanguageLetter,
                                         const Optional<String>& sFileExtension) {
    String extension = sFileExtension->empty() ? ExtractFileExt(sFileName) : *sFileExtension;
    if (!extension.starts_with(u'.')) extension = u"." + extension;
    extension = base::toLower(extension);

    String name = sFileName;
    if (base::toLower(name).ends_with(extension)) name.resize(name.size() - extension.size());
    if (name.size() < 2) raise(ErrorNumber::InvalidProcedureCall);
    if (name[name.size() - 2] == u'_') name.resize(name.size() - 2);
    return name.append(u"_").append(sLanguageLetter).append(extension);
}

}  // namespace quorkit
