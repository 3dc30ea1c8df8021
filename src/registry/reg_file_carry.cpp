#include <quorkit/reg_file.h>

#include <utility>
#include <vector>

#include "file/whole_file.h"
#include "registry/key_name.h"
#include "registry/reg_file.h"

namespace quorkit {
namespace {

std::string reason(ErrorCode code) {
    switch (code) {
        case kFileNotFound:
            return "not found";
        case kPathNotFound:
            return "the folder is not found";
        case kAccessDenied:
            return "access denied";
        case kDiskFull:
            return "the disk is full";
        case kTooManyOpenFiles:
            return "too many open files";
        case kSharingViolation:
        case kLockViolation:
            return "in use by another program";
        case kInvalidName:
        case kBadPathName:
        case kInvalidParameter:
            return "not possible with this name";
        default:
            return "error " + std::to_string(code);
    }
}

}  // namespace

RegFileResult exportKey(Ports& ports, StringView key, std::string& content) {
    content.clear();
    const auto path = registry::readKeyName(key);
    if (!path) return RegFileFailure{String(key), "not the name of a key"};
    const registry::RegResult result = registry::printRegFile(ports.registry, *path, content);
    if (result.code == kSuccess) return {};
    // What was deleted meanwhile is not missing.
    if (result.code == kFileNotFound && !content.empty()) return {};
    const std::string why = result.code == kFileNotFound  ? "no such key"
                            : result.code == kInvalidName ? "no file can hold its name"
                                                          : reason(result.code);
    return RegFileFailure{registry::printKeyName(result.key),
                          why + (content.empty() ? "" : "; it is left out")};
}

RegFileResult exportKeyToFile(Ports& ports, StringView key, const String& file) {
    std::string content;
    RegFileResult result = exportKey(ports, key, content);
    if (content.empty()) return result;
    if (const ErrorCode code = file::writeWholeFile(ports.files, file, content))
        return RegFileFailure{file, reason(code)};
    return result;
}

RegFileResult importRegFile(Ports& ports, std::string_view content, const String& name) {
    std::vector<registry::RegChange> changes;
    if (const auto bad = registry::readRegFile(content, changes))
        return RegFileFailure{name, "line " + std::to_string(bad->number) + ": " + bad->what +
                                        "; nothing is imported"};
    const registry::RegResult result =
        registry::applyRegChanges(ports.registry, std::move(changes));
    if (result.code == kSuccess) return {};
    return RegFileFailure{registry::printKeyName(result.key),
                          reason(result.code) + "; what stands before it in the file is imported"};
}

RegFileResult importRegFileFrom(Ports& ports, const String& file) {
    std::string content;
    if (const ErrorCode code = file::readWholeFile(ports.files, file, content))
        return RegFileFailure{file, reason(code)};
    return importRegFile(ports, content, file);
}

}  // namespace quorkit
