#include <quorkit/GQuorProgram.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorProgram>() {
    using C = GQuorProgram;
    static constexpr MemberInfo rows[] = {
        method<&C::ExecuteAndWait>(0x60030000, "ExecuteAndWait", {"cmdline"},
                                   "Runs a program and waits until it has ended."),
        method<&C::ExecuteAndWaitEx>(
            0x60030001, "ExecuteAndWaitEx", {"cmdline", "WindowTitle", "bAllowEvents", "iTimeOut"},
            "Runs a program, ends it when it takes too long, and gives its "
            "exit code."),
        method<&C::OpenURL>(
            0x60030002, "OpenURL", {"vsURL", "vbOpenNewBrowser"},
            "Opens an address or a document with the program that the user has for it."),
        method<&C::OpenMail>(0x60030003, "OpenMail", {"MailTo", "Subject", "CC", "BCC", "Body"},
                             "Opens a new mail in the user's mail program."),
        method<&C::URLPathEncode>(0x60030004, "URLPathEncode", {"Text"},
                                  "A text encoded for the path or the query of an address."),
        method<&C::URLPathDecode>(0x60030005, "URLPathDecode", {"Text"},
                                  "The text that was encoded for an address."),
    };
    return rows;
}

}  // namespace quorkit
