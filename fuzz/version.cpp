// Bytes as a Windows program. Finds: versions that are not in the file; reading that does not end.
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/memory.h>

#include "file/version_resource.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

/// Whether a fixed version block with this version is anywhere in the file.
bool holds(std::string_view file, const file::FileVersion& version) {
    std::string numbers;
    for (const int part : {1, 0, 3, 2}) {
        const auto number = version[static_cast<std::size_t>(part)];
        numbers += static_cast<char>(number & 0xFF);
        numbers += static_cast<char>(number >> 8);
    }
    const std::string_view signature = "\xBD\x04\xEF\xFE";
    for (std::size_t at = 0; (at = file.find(signature, at)) != std::string_view::npos; ++at)
        if (file.substr(at).substr(0, 52).size() == 52 && file.substr(at + 8, 8) == numbers)
            return true;
    return false;
}

}  // namespace

void run(std::string_view input) {
    MemoryPorts ports;
    ports.files.put(u"a.dll", std::string(input));
    const auto version = file::readFileVersion(ports.files, u"a.dll");
    if (version) promise(holds(input, *version), "the version stands in the file");

    GQuorFile file(ports);
    Long numbers[4] = {-7, -7, -7, -7};
    const bool found =
        file.getFileVersionNumbers(u"a.dll", numbers[0], numbers[1], numbers[2], numbers[3]);
    promise(found == version.has_value(), "the member finds what the reader finds");
    for (std::size_t i = 0; i < 4; ++i)
        promiseEqual(numbers[i], version ? Long{(*version)[i]} : Long{-7}, "a part of the version");
    promise(file.getFileVersion(u"a.dll").empty() != found, "the text is there with the numbers");
}

}  // namespace quorkit::fuzz
