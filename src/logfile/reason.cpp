#include "logfile/reason.h"

#include <quorkit/ports/ports.h>

#include "base/unicode.h"

namespace quorkit {
namespace {

std::string textOf(ErrorCode code) {
    switch (code) {
        case kDiskFull:
            return "the disk is full";
        case kAccessDenied:
            return "access is denied";
        case kFileNotFound:
        case kPathNotFound:
            return "its folder is not there and cannot be made";
        case kInvalidName:
        case kBadPathName:
            return "it cannot have this name";
        case kFileReplaced:
            return "another program keeps replacing it";
        default:
            return "error " + std::to_string(code);
    }
}

void say(const String& name, const std::string& reason) {
    ports::giveReason("the log file " + base::toUtf8(name) + " is not written: " + reason);
}

}  // namespace

void sayWhyNot(const String& name, ErrorCode code) {
    say(name, textOf(code));
}

void sayThatFolderIsMissing(const String& name) {
    say(name, "the name has no folder; ./ in front stands for the current one");
}

}  // namespace quorkit
