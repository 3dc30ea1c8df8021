#include "cli/run.h"

#include <quorkit/ports/ports.h>
#include <quorkit/utf8.h>

#include <exception>
#include <span>

#include "cli/call.h"
#include "cli/describe_command.h"
#include "cli/doctor.h"
#include "cli/failure.h"
#include "cli/list.h"
#include "cli/register_command.h"
#include "cli/registry.h"
#include "cli/usage.h"
#include "rpc/rpc.h"

namespace quorkit::cli {
namespace {

constexpr const char* kUsage =
    R"(usage: quorkit list
       quorkit describe [CLASS[.MEMBER] | ENUMERATION | RECORD] [--json | --markdown]
       quorkit describe --idl | --manifest | --c-header
       quorkit call CLASS.MEMBER [ARG...] [--arg name=value]... [--set Property=value]...
                    [-e] [--json] [--]
       quorkit rpc
       quorkit registry export KEY [FILE]
       quorkit registry import FILE
       quorkit registry check
       quorkit register [--user | --machine] [--remove] [DLL]
       quorkit doctor [--json]
       quorkit --help | --version
)";

constexpr const char* kHelp = R"(
list      prints all classes and members
describe  prints signature, identifier, defaults and purpose; as JSON or as a reference page; or the
          interface definition of the library; the manifest with which a Windows program finds
          the automation server without registration; or the header for its clients in C
call      calls a member and prints its result, then each by-reference argument that it changed
    --arg name=value      an argument by name
    --set Property=value  sets a property before the call
    -e                    reads \r \n \t \0 \\ \uXXXX in arguments
    --json                prints {"args":[...],"result":...}
    Arrays, collections, dictionaries and pictures are given as JSON: ["a","b"],
    {"collection":[...]}, {"picture":"<base64>"}.
    Arguments that give something back may be left out; a constant may stand as its name.
rpc       answers JSON-RPC 2.0 messages, one a line, on standard input and output
registry  works on the registry; a FILE of - is standard input or output
    export KEY [FILE]     writes a key, such as HKCU\Software\X, and all beneath it as a .reg file
    import FILE           makes the changes that a .reg file asks for
    check                 lists what is damaged in the store, if it is the library's own
register  makes quorkit.dll known to the programs of Windows that have as many bits as this one: the
          DLL beside this program, or another; for this user, or with --machine for everybody;
          --remove takes that back
doctor    tells what may keep the library from working here, and what to do; exits with 1 when there
          is a problem
)";

/// Calls a member, and tells the person the reason when the system refused something.
void callMember(std::span<const String> words, std::ostream& out, std::ostream& err, Ports& ports) {
    if (const std::string reason = call(words, out, ports); !reason.empty())
        err << "quorkit: " << reason << '\n';
}

void runCommand(std::span<const String> words, std::istream& in, std::ostream& out,
                std::ostream& err, Ports& ports) {
    if (words.empty()) throw UsageError("a command is needed");
    const String& command = words.front();
    const auto rest = words.subspan(1);
    if (command == u"call") return callMember(rest, out, err, ports);
    if (command == u"describe") return describeCommand(rest, out);
    if (command == u"registry") return registry(rest, in, out, ports);
    if (command == u"register") return registerCommand(rest, out);
    if (command == u"doctor") return doctor(rest, out, ports);
    if (!rest.empty()) throw UsageError(toUtf8(command) + " takes no arguments");
    if (command == u"list") return list(out);
    if (command == u"rpc") return rpc::serve(in, out, ports);
    if (command == u"--help") {
        out << kUsage << kHelp;
    } else if (command == u"--version") {
        out << "quorkit " QUORKIT_VERSION "\n";
    } else {
        throw UsageError("no such command: " + toUtf8(command));
    }
}

}  // namespace

int run(const std::vector<String>& arguments, std::istream& in, std::ostream& out,
        std::ostream& err, Ports& ports) {
    try {
        runCommand(arguments, in, out, err, ports);
        return 0;
    } catch (const UsageError& error) {
        err << "quorkit: " << error.what() << '\n' << kUsage;
        return 2;
    } catch (const Failure& failure) {
        err << "quorkit: " << failure.what() << '\n';
    } catch (...) {
        err << "quorkit: " << Failure(errorOf(std::current_exception())).what() << '\n';
    }
    return 1;
}

}  // namespace quorkit::cli
