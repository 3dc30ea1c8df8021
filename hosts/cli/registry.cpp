#include "cli/registry.h"

#include <quorkit/ports/registry.h>
#include <quorkit/reg_file.h>
#include <quorkit/utf8.h>

#include <iterator>

#include "cli/failure.h"
#include "cli/usage.h"

namespace quorkit::cli {
namespace {

constexpr StringView kStandardStream = u"-";

void expectSuccess(const RegFileResult& result) {
    if (result) throw Failure(toUtf8(result->place) + ": " + result->why);
}

void exportKey(const String& name, const String& file, std::ostream& out, Ports& ports) {
    if (file != kStandardStream) return expectSuccess(exportKeyToFile(ports, name, file));
    std::string content;
    const RegFileResult result = quorkit::exportKey(ports, name, content);
    out << content;
    if (!out.flush()) throw Failure("standard output: cannot be written");
    expectSuccess(result);
}

void importFile(const String& file, std::istream& in, Ports& ports) {
    if (file != kStandardStream) return expectSuccess(importRegFileFrom(ports, file));
    const std::string content(std::istreambuf_iterator<char>(in), {});
    if (in.bad()) throw Failure("standard input: cannot be read");
    expectSuccess(importRegFile(ports, content, u"standard input"));
}

void check(std::ostream& out, Ports& ports) {
    const std::vector<RegistryDamage> damage = ports.registry.FindDamage();
    for (const RegistryDamage& one : damage)
        out << toUtf8(one.place) << ": " << toUtf8(one.what) << '\n';
    if (!damage.empty()) throw Failure("the registry is damaged");
    out << "no damage found\n";
}

}  // namespace

void registry(std::span<const String> arguments, std::istream& in, std::ostream& out,
              Ports& ports) {
    const String action = arguments.empty() ? String() : arguments[0];
    const std::size_t count = arguments.size();
    if (action == u"export" && (count == 2 || count == 3))
        exportKey(arguments[1], count == 3 ? arguments[2] : String(kStandardStream), out, ports);
    else if (action == u"import" && count == 2)
        importFile(arguments[1], in, ports);
    else if (action == u"check" && count == 1)
        check(out, ports);
    else
        throw UsageError("export KEY [FILE], import FILE or check expected behind registry");
}

}  // namespace quorkit::cli
