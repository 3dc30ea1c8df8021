#include "linux/surroundings.h"

#include <quorkit/ports/surroundings.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "linux/name_text.h"

namespace quorkit::ports {
namespace {

namespace fs = std::filesystem;

/// The program that a name means when it is started; see native::Start.
std::string startedBy(const std::string& name) {
    const auto isProgram = [](const std::string& file) {
        std::error_code error;
        return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
    };
    if (name.find('/') != std::string::npos) return isProgram(name) ? name : std::string();
    const char* const variable = secure_getenv("PATH");
    std::string_view folders = variable == nullptr ? "/usr/local/bin:/usr/bin:/bin" : variable;
    for (;;) {
        const std::size_t end = folders.find(':');
        std::string file = (fs::path(folders.substr(0, end)) / name).string();
        if (isProgram(file)) return file;
        if (end == std::string_view::npos) return {};
        folders.remove_prefix(end + 1);
    }
}

}  // namespace

std::vector<Tool> tools() {
    std::vector<Tool> all = {{"zenity", "messages and dialogs", startedBy("zenity")},
                             {"kdialog", "messages and dialogs", startedBy("kdialog")},
                             {"xdg-open", "addresses and documents", startedBy("xdg-open")}};
    if (const std::string program = native::clipboardProgram(); !program.empty())
        all.push_back({"quorkit-clipboard", "the clipboard", startedBy(program)});
    return all;
}

std::vector<String> registryFolders() {
    return {native::textOf(native::userRegistryFolder()),
            native::textOf(native::machineRegistryFolder())};
}

}  // namespace quorkit::ports
