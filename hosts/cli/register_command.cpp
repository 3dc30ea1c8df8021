#include "cli/register_command.h"

#include <quorkit/utf8.h>

#include "cli/usage.h"

namespace quorkit::cli {

void registerCommand(std::span<const String> arguments, std::ostream& out) {
    RegisterLine line;
    bool user = false;
    for (const String& word : arguments) {
        if (word == u"--user")
            user = true;
        else if (word == u"--machine")
            line.machine = true;
        else if (word == u"--remove")
            line.remove = true;
        else if (word.starts_with(u"-"))
            throw UsageError("no such option: " + toUtf8(word));
        else if (line.dll)
            throw UsageError("more than one DLL");
        else
            line.dll = word;
    }
    if (user && line.machine) throw UsageError("either --user or --machine");
    if (line.remove && line.dll)
        throw UsageError("--remove takes no DLL: it removes what is registered");
    registerServer(line, out);
}

}  // namespace quorkit::cli
