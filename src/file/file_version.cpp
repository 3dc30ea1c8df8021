#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorStrings.h>

#include "file/version_resource.h"
#include "runtime/convert.h"

namespace quorkit {

String GQuorFile::getFileVersion(const String& sFileName) {
    const auto version = file::readFileVersion(ports_.files, sFileName);
    if (!version) return {};
    String text;
    for (const Long part : *version) text += runtime::CStr(part) + u".";
    text.pop_back();
    return GQuorStrings(ports_).formatAppVersionString(text);
}

Boolean GQuorFile::getFileVersionNumbers(const String& sFileName, Out<Long> Major, Out<Long> Minor,
                                         Out<Long> Revision, Out<Long> Build) {
    const auto version = file::readFileVersion(ports_.files, sFileName);
    if (!version) return false;
    Major = (*version)[0];
    Minor = (*version)[1];
    Revision = (*version)[2];
    Build = (*version)[3];
    return true;
}

}  // namespace quorkit
