#include "linux/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace quorkit::native {
namespace {

std::string_view variableOf(const char* name) {
    // Ignores the variable when this program has other rights than its caller.
    const char* value = secure_getenv(name);
    return value == nullptr ? std::string_view() : value;
}

/// Without separators at its end; "/" stays.
std::string plain(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    return std::string(path);
}

void skipBlanks(std::string_view& line) {
    line.remove_prefix(std::min(line.size(), line.find_first_not_of(" \t")));
}

bool take(std::string_view& line, std::string_view word) {
    skipBlanks(line);
    if (!line.starts_with(word)) return false;
    line.remove_prefix(word.size());
    return true;
}

/// Reads the text up to the closing quotation mark; "\" makes the next character stand for itself.
/// False when the line ends first.
bool unquote(std::string_view line, std::string& text) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') return true;
        if (line[i] == '\\' && ++i == line.size()) return false;
        text += line[i];
    }
    return false;
}

/// The folder that one line sets; "" when the line is about something else or wrong.
std::string folderFromLine(std::string_view line, std::string_view variable,
                           std::string_view home) {
    if (!take(line, variable) || !take(line, "=") || !take(line, "\"")) return {};
    std::string text;
    constexpr std::string_view homeWord = "$HOME";
    const bool inHome = line.starts_with(homeWord);
    if (inHome) line.remove_prefix(homeWord.size());
    if (!unquote(line, text)) return {};
    if (!inHome) return text.starts_with('/') ? plain(text) : std::string();
    if (!text.empty() && !text.starts_with('/')) return {};
    return plain(inFolder(home, text));
}

}  // namespace

std::string inFolder(std::string_view folder, std::string_view path) {
    if (folder.empty()) return {};
    while (path.starts_with('/')) path.remove_prefix(1);
    std::string result(folder);
    if (!result.ends_with('/')) result += '/';
    return result.append(path);
}

std::string homeFolder() {
    const std::string_view home = variableOf("HOME");
    if (home.starts_with('/')) return plain(home);
    std::vector<char> buffer(16384);
    passwd entry = {};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
    return found == nullptr || *found->pw_dir != '/' ? std::string() : plain(found->pw_dir);
}

std::string baseFolder(const char* variable, std::string_view standard) {
    const std::string_view value = variableOf(variable);
    if (value.starts_with('/')) return plain(value);
    const std::string home = homeFolder();
    return inFolder(home, standard);
}

std::string firstFolder(const char* variable, std::string_view standard) {
    std::string_view list = variableOf(variable);
    while (!list.empty()) {
        const std::string_view one = list.substr(0, list.find(':'));
        if (one.starts_with('/')) return plain(one);
        list.remove_prefix(std::min(list.size(), one.size() + 1));
    }
    return std::string(standard);
}

std::string folderFromUserDirs(std::string_view text, std::string_view variable,
                               std::string_view home) {
    std::string found;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::string folder = folderFromLine(line, variable, home);
        if (!folder.empty()) found = folder;
    }
    return found;
}

}  // namespace quorkit::native
