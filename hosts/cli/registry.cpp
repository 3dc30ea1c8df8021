#include "cli/registry.h"

#include <quorkit/ports/registry.h>

#include <iterator>

#include "cli/failure.h"
#include "cli/usage.h"
#include "file/whole_file.h"
#include "json/utf8.h"
#include "registry/key_name.h"
#include "registry/reg_file.h"

namespace quorkit::cli {
namespace {

constexpr StringView kStandardStream = u"-";

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

[[noreturn]] void fail(const String& place, const std::string& what) {
    throw Failure(json::toUtf8(place) + ": " + what);
}

void expectSuccess(ErrorCode code, const String& place) {
    if (code != kSuccess) fail(place, reason(code));
}

void exportKey(const String& name, const String& file, std::ostream& out, Ports& ports) {
    const auto key = registry::readKeyName(name);
    if (!key) fail(name, "not the name of a key");
    std::string content;
    const registry::RegResult result = registry::printRegFile(ports.registry, *key, content);
    const std::string why = result.code == kFileNotFound  ? "no such key"
                            : result.code == kInvalidName ? "no file can hold its name"
                                                          : reason(result.code);
    if (content.empty()) fail(registry::printKeyName(result.key), why);
    if (file == kStandardStream) {
        out << content;
        if (!out.flush()) throw Failure("standard output: cannot be written");
    } else {
        expectSuccess(file::writeWholeFile(ports.files, file, content), file);
    }
    // What was deleted meanwhile is not missing.
    if (result.code != kSuccess && result.code != kFileNotFound)
        fail(registry::printKeyName(result.key), why + "; it is left out");
}

std::string contentOf(const String& file, std::istream& in, Ports& ports) {
    std::string content;
    if (file != kStandardStream) {
        expectSuccess(file::readWholeFile(ports.files, file, content), file);
        return content;
    }
    content.assign(std::istreambuf_iterator<char>(in), {});
    if (in.bad()) throw Failure("standard input: cannot be read");
    return content;
}

void importFile(const String& file, std::istream& in, Ports& ports) {
    const std::string content = contentOf(file, in, ports);
    std::vector<registry::RegChange> changes;
    if (const auto bad = registry::readRegFile(content, changes))
        fail(file == kStandardStream ? u"standard input" : file,
             "line " + std::to_string(bad->number) + ": " + bad->what + "; nothing is imported");
    const registry::RegResult result =
        registry::applyRegChanges(ports.registry, std::move(changes));
    if (result.code != kSuccess)
        fail(registry::printKeyName(result.key),
             reason(result.code) + "; what stands before it in the file is imported");
}

void check(std::ostream& out, Ports& ports) {
    const std::vector<RegistryDamage> damage = ports.registry.FindDamage();
    for (const RegistryDamage& one : damage)
        out << json::toUtf8(one.place) << ": " << json::toUtf8(one.what) << '\n';
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
