// Messages and dialogs through the desktop's own tools, zenity or else kdialog. Without a display
// or a tool, dialogs are cancelled and messages go to the standard error stream.
#include <quorkit/ports/ports.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "base/name_parts.h"
#include "base/unicode.h"
#include "linux/linux_names.h"
#include "linux/linux_wait_window.h"
#include "linux/run_tool.h"
#include "native/native_host.h"

namespace quorkit::native {
namespace {

using Words = std::vector<std::string>;

enum class Choice { Open, Save, Folder };

bool hasDisplay() {
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    });
}

/// The text as an argument for a tool, which cannot hold U+0000.
std::string wordOf(const String& text) {
    std::string word = base::toUtf8(text);
    std::erase(word, '\0');
    return word;
}

/// The patterns as "*.txt *.csv". "*.*", as Windows writes it, means all files.
std::string patternsOf(const FileFilter& filter) {
    std::string patterns;
    for (const String& pattern : filter.patterns) {
        if (!patterns.empty()) patterns += ' ';
        patterns += pattern == u"*.*" ? "*" : wordOf(pattern);
    }
    return patterns;
}

/// The name of a filter; neither tool allows a "|" in it.
std::string nameOfFilter(const FileFilter& filter) {
    std::string name = wordOf(filter.name);
    std::ranges::replace(name, '|', '/');
    return name;
}

/// The start of a dialog: a folder with a separator at its end, a file, or "".
std::string startOf(const FileDialog& dialog) {
    String name = dialog.fileName;
    const auto start = base::partsOf(name).start;
    if (!dialog.folder.empty() && start == base::NameParts::Here)
        name = dialog.folder + u'\\' + dialog.fileName;
    std::string path;
    return pathOf(name, path) == kSuccess ? path : std::string();
}

ToolResult askZenity(const FileDialog& dialog, Choice choice) {
    Words words = {"zenity", "--file-selection"};
    if (choice == Choice::Save) words.insert(words.end(), {"--save", "--confirm-overwrite"});
    if (choice == Choice::Folder) words.emplace_back("--directory");
    words.push_back("--title=" + wordOf(dialog.title));
    const std::string start = startOf(dialog);
    if (!start.empty()) words.push_back("--filename=" + start);
    for (const FileFilter& filter : dialog.filters)
        words.push_back("--file-filter=" + nameOfFilter(filter) + " | " + patternsOf(filter));
    return runTool(words);
}

ToolResult askKdialog(const FileDialog& dialog, Choice choice) {
    const char* kind = choice == Choice::Open   ? "--getopenfilename"
                       : choice == Choice::Save ? "--getsavefilename"
                                                : "--getexistingdirectory";
    // A text that begins with "-" would be an option.
    std::string start = startOf(dialog);
    if (!start.starts_with('/')) start.insert(0, "./");
    std::string filters;
    for (const FileFilter& filter : dialog.filters)
        filters += (filters.empty() ? "" : "\n") + patternsOf(filter) + "|" + nameOfFilter(filter);
    if (filters.starts_with('-')) filters.insert(0, " ");
    Words words = {"kdialog", "--title=" + wordOf(dialog.title), kind, start};
    if (!filters.empty()) words.push_back(filters);
    return runTool(words);
}

/// The user's choice, which the tool has written, without its line end.
bool choose(const FileDialog& dialog, Choice choice, String& name) {
    ToolResult result;
    if (hasDisplay()) result = askZenity(dialog, choice);
    if (hasDisplay() && !result.started) result = askKdialog(dialog, choice);
    if (!result.started)
        ports::giveReason("a dialog needs a display, and one of zenity and kdialog");
    if (result.output.ends_with('\n')) result.output.pop_back();
    if (result.status != 0 || result.output.empty()) return false;
    name = nameOf(result.output);
    return true;
}

/// The icon of a message's style, by the names that the tools use.
struct Icons {
    const char* zenity;
    const char* kdialog;
};
Icons iconsOf(std::uint32_t style) {
    constexpr std::uint32_t icons = 0xF0;
    switch (style & icons) {
        case kStopIcon:
            return {"--error", "--error"};
        case kExclamationIcon:
            return {"--warning", "--sorry"};
        default:
            return {"--info", "--msgbox"};
    }
}

/// Whether the message was shown. zenity is told which status to return when the user closes the
/// window without its button, so that this differs from a failure.
bool showByZenity(const std::string& text, const std::string& caption, std::uint32_t style) {
    return runTool({"env", "ZENITY_ESC=0", "ZENITY_CANCEL=0", "zenity", iconsOf(style).zenity,
                    "--no-markup", "--title=" + caption, "--text=" + text})
               .status == 0;
}

bool showByKdialog(const std::string& text, const std::string& caption, std::uint32_t style) {
    std::string escaped;  // kdialog reads "\n" as a line break
    for (const char one : text) escaped.append(one == '\\' ? 2 : 1, one);
    return runTool({"kdialog", "--title=" + caption, iconsOf(style).kdialog + ("=" + escaped)})
               .status == 0;
}

}  // namespace

void NativeHost::MessageBoxA(const String& text, const String& caption, std::uint32_t style) {
    const std::string words = wordOf(text);
    const std::string title = wordOf(caption);
    if (hasDisplay() && (showByZenity(words, title, style) || showByKdialog(words, title, style)))
        return;
    const String line = caption + (caption.empty() ? u"" : u": ") + text + u'\n';
    const std::string bytes = base::toUtf8(line);
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}

bool NativeHost::GetOpenFileNameA(const FileDialog& dialog, String& name) {
    return choose(dialog, Choice::Open, name);
}

bool NativeHost::GetSaveFileNameA(const FileDialog& dialog, String& name) {
    return choose(dialog, Choice::Save, name);
}

bool NativeHost::SHBrowseForFolderA(const FileDialog& dialog, String& name) {
    return choose(dialog, Choice::Folder, name);
}

void NativeHost::DoEvents() {}

bool NativeHost::WaitForEvents(std::chrono::steady_clock::time_point deadline) {
    std::this_thread::sleep_until(deadline);
    return false;
}

void NativeHost::SetPointer(Pointer pointer) {
    setWaitPointer(pointer);
}

void NativeHost::ShowWaitWindow(const String& text, WindowHandle owner) {
    showWaitWindow(text, owner);
}

void NativeHost::HideWaitWindow() {
    hideWaitWindow();
}

}  // namespace quorkit::native
