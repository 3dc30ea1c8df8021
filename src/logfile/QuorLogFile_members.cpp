#include <quorkit/QuorLogFile.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;
using frame::propertyGet;
using frame::propertyLet;

template <>
std::span<const MemberInfo> frame::memberRows<QuorLogFile>() {
    using C = QuorLogFile;
    static constexpr MemberInfo rows[] = {
        propertyGet<&C::LogFileName>(0x68030000, "LogFileName", "The file to write."),
        propertyLet<&C::setLogFileName>(
            0x68030000, "LogFileName",
            "Names the file to write; %NAME% is replaced. A bare name, with "
            "no folder in front, writes nothing."),
        propertyGet<&C::Append>(0x68030001, "Append",
                                "Whether the first opening keeps what is in the file."),
        propertyLet<&C::setAppend>(0x68030001, "Append",
                                   "Chooses whether the first opening keeps what is in the file."),
        propertyGet<&C::MaxFileSize>(0x68030002, "MaxFileSize",
                                     "The size in bytes beyond which the file is shortened."),
        propertyLet<&C::setMaxFileSize>(0x68030002, "MaxFileSize",
                                        "Limits the size of the file; 0 for no limit."),
        propertyGet<&C::AutoOpenClose>(0x68030003, "AutoOpenClose",
                                       "Whether the file is opened and closed for each entry."),
        propertyLet<&C::setAutoOpenClose>(0x68030003, "AutoOpenClose",
                                          "Chooses whether the file is opened for each entry."),
        propertyGet<&C::LogLevel>(0x68030004, "LogLevel", "The highest level that is written."),
        propertyLet<&C::setLogLevel>(0x68030004, "LogLevel", "Sets the highest level written."),
        propertyGet<&C::LogFormat>(0x68030005, "LogFormat", "The prefixes of a line."),
        propertyLet<&C::setLogFormat>(0x68030005, "LogFormat", "Chooses the prefixes of a line."),
        propertyGet<&C::LogFieldSeparator>(0x68030006, "LogFieldSeparator",
                                           "What stands behind each prefix."),
        propertyLet<&C::setLogFieldSeparator>(0x68030006, "LogFieldSeparator",
                                              "Sets what stands behind each prefix."),
        method<&C::isFileOpen>(0x60030000, "isFileOpen", "Whether the file is open."),
        method<&C::OpenLogfile>(
            0x60030001, "OpenLogfile",
            "Opens the file; makes it and its folder as needed. False for a bare "
            "name."),
        method<&C::CloseLogfile>(0x60030002, "CloseLogfile", "Closes the file."),
        method<&C::writeLogfileEntry>(
            0x60030003, "writeLogfileEntry", {"s", "level"},
            "Writes one entry; the text becomes the whole line. Always True, also when "
            "nothing is written."),
        method<&C::levelNrToLevelText>(0x60030004, "levelNrToLevelText", {"level"},
                                       "The text of a level, such as \"Warning  \"."),
        method<&C::limitFileSize>(0x60030005, "limitFileSize", {"sFileName", "MaxFileSize"},
                                  "Cuts off the older part of a file that is too large."),
    };
    return rows;
}

}  // namespace quorkit
