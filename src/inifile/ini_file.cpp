#include "inifile/ini_file.h"

#include <quorkit/ports/ports.h>

#include "base/unicode.h"
#include "file/whole_file.h"

namespace quorkit::inifile {
namespace {

std::string tooLarge() {
    return "larger than " + std::to_string(kLargestIniFile >> 20) + " MB";
}

void giveReason(const String& file, const std::string& reason) {
    ports::giveReason("the INI file " + base::toUtf8(file) + ' ' + reason);
}

/// The document for the outcome of reading a file.
IniDocument documentOf(const String& name, ErrorCode code, std::string content) {
    if (code == kFileTooLarge) {
        giveReason(name, "is " + tooLarge());
        return IniDocument::refused();
    }
    IniDocument document(code == kSuccess ? std::move(content) : std::string());
    if (document.isRefused())
        giveReason(name, "is in UTF-32, or in UTF-16 without a byte-order mark");
    return document;
}

ErrorCode editOnce(Files& files, const String& name,
                   const std::function<bool(IniDocument&)>& edit) {
    file::LockedFile file(files, name);
    if (file.status() != kSuccess) {
        IniDocument document = readIni(files, name);
        if (!document.isRefused()) edit(document);
        return file.status();
    }
    std::string content;
    const ErrorCode code = file.read(content, kLargestIniFile);
    if (code != kSuccess && code != kFileTooLarge) return code;
    IniDocument document = documentOf(name, code, std::move(content));
    if (document.isRefused() || !edit(document)) return kInvalidParameter;
    if (!document.changed()) return kSuccess;

    const std::optional<std::string> changed = std::move(document).content();
    if (changed && changed->size() <= kLargestIniFile) return file.replace(*changed);
    giveReason(name, "would be " + (changed ? tooLarge() : "taken for one in another encoding"));
    return kInvalidParameter;
}

}  // namespace

IniDocument readIni(Files& files, const String& name) {
    std::string content;
    const ErrorCode code = file::readWholeFile(files, name, content, kLargestIniFile);
    return documentOf(name, code, std::move(content));
}

Long editIni(Files& files, const String& name, const std::function<bool(IniDocument&)>& edit) {
    const ErrorCode code = file::untilNotReplaced([&] { return editOnce(files, name, edit); });
    return code == kSuccess ? 1 : 0;
}

}  // namespace quorkit::inifile
