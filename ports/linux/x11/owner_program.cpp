#include "linux/x11/owner_program.h"

#include <quorkit/ports/clipboard_owner.h>
#include <quorkit/ports/ports.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "linux/descriptor.h"
#include "linux/linux_calls.h"
#include "linux/run_tool.h"
#include "linux/surroundings.h"

namespace quorkit::x11 {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = "quorkit-clipboard";

bool isProgram(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

/// Whether only this user and root can have put the file there. A link is rejected, because it may
/// be another user's.
bool isTrusted(const fs::path& file) {
    struct stat about = {};
    return lstat(file.c_str(), &about) == 0 && S_ISREG(about.st_mode) &&
           (about.st_uid == 0 || about.st_uid == geteuid());
}

fs::path program() {
    if (const char* const folder = secure_getenv("QUORKIT_LIBEXEC"))
        if (fs::path file = fs::path(folder) / kName; isProgram(file)) return file;
    std::error_code error;
    const fs::path here = fs::read_symlink("/proc/self/exe", error).parent_path();
    for (const fs::path& folder :
         {here, here / "../libexec/quorkit", here / "../libexec", fs::path(QUORKIT_INSTALLED_IN)})
        if (fs::path file = folder / kName;
            file.is_absolute() && isProgram(file) && isTrusted(file))
            return file;
    return kName;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            native::unlessInterrupted([&] { return write(file, bytes.data(), bytes.size()); });
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

bool startOwner(ClipboardFormat format, const std::string& content) {
    const native::Descriptor file(memfd_create(kName, MFD_CLOEXEC));
    if (!file || !writeAll(file.get(), content) || lseek(file.get(), 0, SEEK_SET) != 0)
        return false;
    const auto result =
        native::runTool({program().string(), std::to_string(static_cast<int>(format))}, file.get());
    const bool owns = result.output == std::string(1, ports::kOwnsClipboard);
    if (!owns)
        ports::giveReason(std::string("the program ") + kName +
                          " is not there, or could not put the content there");
    return owns;
}

}  // namespace quorkit::x11

std::string quorkit::native::clipboardProgram() {
    return x11::program().lexically_normal().string();
}
