#include "linux/x11/owner_program.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string_view>

#include "linux/calls.h"
#include "linux/descriptor.h"
#include "linux/run_tool.h"
#include "native/reason.h"

namespace quorkit::x11 {
namespace {

constexpr const char* kName = "quorkit-clipboard";

/// A folder that others may have made by now in the place of the one that was there.
bool isTrusted(const std::string& file) {
    struct stat about = {};
    return stat(file.c_str(), &about) == 0 && (about.st_uid == 0 || about.st_uid == geteuid());
}

bool isProgram(const std::string& file) {
    return access(file.c_str(), X_OK) == 0;
}

std::string program() {
    std::error_code error;
    const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    for (const char* const folder : {".", "../libexec/quorkit", "../libexec"})
        if (const auto file = here / folder / kName; !error && isProgram(file)) return file;
    std::string built = std::string(QUORKIT_BUILT_IN "/") + kName;
    if (isProgram(built) && isTrusted(built)) return built;
    std::string installed = std::string(QUORKIT_INSTALLED_IN "/") + kName;
    return isProgram(installed) ? installed : kName;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            disk::unlessInterrupted([&] { return write(file, bytes.data(), bytes.size()); });
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

bool startOwner(ClipboardFormat format, const std::string& content) {
    const disk::Descriptor file(memfd_create(kName, MFD_CLOEXEC));
    if (!file || !writeAll(file.get(), content) || lseek(file.get(), 0, SEEK_SET) != 0)
        return false;
    const auto result =
        disk::runTool({program(), std::to_string(static_cast<int>(format))}, file.get());
    const bool owns = result.output == std::string(1, kOwns);
    if (!owns) giveReason(std::string("the program ") + kName + " is not there, or does not work");
    return owns;
}

}  // namespace quorkit::x11
