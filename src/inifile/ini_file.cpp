#include "inifile/ini_file.h"

#include "file/whole_file.h"

namespace quorkit {
namespace {

ErrorCode editOnce(Files& files, const String& name,
                   const std::function<bool(IniDocument&)>& edit) {
    LockedFile file(files, name);
    if (file.status() != kSuccess) {
        IniDocument document = readIni(files, name);
        edit(document);
        return file.status();
    }
    // Two characters of code page 1252 may look like one in UTF-8. Where they would be the first
    // in a plain file, UTF-8 keeps them what they are.
    for (const Encoding asciiAs : {Encoding::Ansi, Encoding::Utf8}) {
        std::string content;
        if (const ErrorCode code = file.read(content)) return code;
        IniDocument document(std::move(content), asciiAs);
        if (!edit(document)) return kInvalidParameter;
        if (!document.changed()) return kSuccess;
        if (document.keepsItsEncoding()) return file.replace(std::move(document).content());
    }
    return kInvalidParameter;
}

}  // namespace

IniDocument readIni(Files& files, const String& name) {
    std::string content;
    if (readWholeFile(files, name, content) != kSuccess) content.clear();
    return IniDocument(std::move(content));
}

Long editIni(Files& files, const String& name, const std::function<bool(IniDocument&)>& edit) {
    ErrorCode code = kFileReplaced;
    for (int tries = 0; code == kFileReplaced && tries < kMostAttempts; ++tries)
        code = editOnce(files, name, edit);
    return code == kSuccess ? 1 : 0;
}

}  // namespace quorkit
