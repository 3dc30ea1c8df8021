#include <quorkit/GQuorFile.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/system.h>

#include <atomic>
#include <cstdint>

#include "file/hexadecimal.h"

namespace quorkit {
namespace {

/// A number that hardly anyone else has now. The last steps are the mixer of SplitMix64 (Steele,
/// Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014).
std::uint64_t anyNumber(System& system) {
    static std::atomic<std::uint64_t> calls{0};
    std::uint64_t bits = system.QueryPerformanceCounter() + ++calls * 0x9E37'79B9'7F4A'7C15;
    bits = (bits ^ bits >> 30) * 0xBF58'476D'1CE4'E5B9;
    bits = (bits ^ bits >> 27) * 0x94D0'49BB'1331'11EB;
    return bits ^ bits >> 31;
}

}  // namespace

String GQuorFile::CreateTempFileName(Unchanged<String> sPrefix) {
    constexpr std::size_t folderRoom = 512;
    constexpr std::size_t prefixLength = 3;
    String folder;
    if (!ports_.system.GetTempPathA(folder) || folder.size() >= folderRoom) return {};
    const String prefix = sPrefix->substr(0, prefixLength);
    if (prefix.find_first_of(u"\\/:") != String::npos) return {};  // it would be in another folder

    // An odd step visits every number of 16 bits, and leaves a run of used ones at once.
    const std::uint64_t bits = anyNumber(ports_.system);
    auto number = static_cast<std::uint16_t>(bits);
    const auto step = static_cast<std::uint16_t>(bits >> 16 | 1);
    for (int tries = 0; tries <= UINT16_MAX; ++tries) {
        number = static_cast<std::uint16_t>(number + step);
        String name = folder + prefix + file::hexadecimal(number) + u".TMP";
        Handle file = Handle::Invalid;
        const ErrorCode code = ports_.files.Open(name, FileAccess::CreateNew, file);
        if (code == kSuccess) {
            ports_.files.CloseHandle(file);
            return name;
        }
        if (code != kFileExists) return {};
    }
    return {};
}

}  // namespace quorkit
