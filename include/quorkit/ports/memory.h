// An imitation of the system in memory, for tests of programs that use the library. Files have
// rights, links and free space that the test sets. The registry, the clipboard and the keys are its
// own. Windows, programs, events and the user's answers are those that the test puts there, and
// language, clock and environment those that it sets.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/drives.h>
#include <quorkit/ports/hives.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/keyboard.h>
#include <quorkit/ports/memory_files.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/processes.h>
#include <quorkit/ports/system.h>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorkit {

/// A system whose answers are set here.
class MemorySystem : public System {
   public:
    LanguageIdentifier userLanguage = 1033;
    LanguageIdentifier systemLanguage = 1033;
    SystemTime localTime;
    std::uint64_t performanceCounter = 0;
    std::map<String, String> environment;
    /// Added to UTC to give local time.
    std::int64_t minutesEastOfUtc = 0;
    /// Has a separator at its end; empty when there is none.
    String temporaryFolder = u"C:\\Temp\\";
    /// By their CSIDLS numbers.
    std::map<int, String> specialFolders;
    /// Nothing when the system does not tell its version.
    std::optional<OsVersion> version = OsVersion{};
    /// Whether it gives only the short record.
    bool shortRecordOnly = false;
    std::optional<String> diallingCode = u"1";

    LanguageIdentifier GetUserDefaultUILanguage() override { return userLanguage; }
    LanguageIdentifier GetSystemDefaultLangID() override { return systemLanguage; }
    SystemTime GetLocalTime() override { return localTime; }
    bool GetVersionExA(OsRecord size, OsVersion& answer) override;
    bool DiallingCode(String& code) override;
    std::uint64_t QueryPerformanceCounter() override { return performanceCounter; }

    bool LocalTimeOf(FileTime time, SystemTime& local) override;
    bool GetEnvironmentVariableA(const String& name, String& value) override;
    bool GetTempPathA(String& folder) override;
    bool SHGetFolderPathA(int folder, String& path) override;
};

struct MemoryDrive {
    int type = 3;  ///< see Drives::GetDriveTypeA
    std::uint32_t serialNumber = 0;
    String remoteName;  ///< "\\server\share" of a network connection
};

/// Drives and connections that are set here. The files are in MemoryFiles.
class MemoryDrives final : public Drives {
   public:
    /// The key is a capital letter and a colon.
    std::map<String, MemoryDrive> drives = {{u"C:", {}}};
    /// The result of asking for the network connections.
    ErrorCode networkAnswer = kSuccess;

    int GetDriveTypeA(const String& root) override;
    std::vector<String> GetLogicalDriveStringsA() override;
    ErrorCode VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) override;
    ErrorCode ListConnections(std::vector<NetworkConnection>& connections) override;
};

/// A registry that is empty at the start and is lost at the end.
class MemoryRegistry final : public HiveRegistry {
   public:
    MemoryRegistry();
    ~MemoryRegistry() override;
    MemoryRegistry(const MemoryRegistry&) = delete;
    MemoryRegistry& operator=(const MemoryRegistry&) = delete;

    /// Protects everything beneath the machine's root, as it is for ordinary users.
    void setMachineReadOnly(bool readOnly = true);

   private:
    struct Hives;
    explicit MemoryRegistry(std::unique_ptr<Hives> hives);
    std::unique_ptr<Hives> hives_;
};

/// A user whose answers to dialogs are set here, and a record of what was shown.
class MemoryHost final : public Host {
   public:
    struct Message {
        String text;
        String caption;
        std::uint32_t style = kPlainMessage;
    };
    std::vector<Message> messages;
    std::vector<FileDialog> dialogs;
    /// The answer to the next dialogs; nothing cancels them.
    std::optional<String> chosen;
    /// The pending events; each call of DoEvents removes and runs the first.
    std::vector<std::function<void()>> events;
    /// The sum of all waits; in fact nothing waits.
    std::chrono::nanoseconds waited{0};
    int eventRounds = 0;  ///< number of calls of DoEvents
    Pointer pointer = Pointer::Default;
    std::optional<String> waitText;  ///< the text in the wait window, while it is shown
    WindowHandle waitOwner = 0;

    void MessageBoxA(const String& text, const String& caption, std::uint32_t style) override;
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override;
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override;
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override;
    void DoEvents() override;
    bool WaitForEvents(std::chrono::steady_clock::time_point deadline) override;
    void SetPointer(Pointer other) override { pointer = other; }
    void ShowWaitWindow(const String& text, WindowHandle owner) override;
    void HideWaitWindow() override { waitText.reset(); }

   private:
    bool answer(const FileDialog& dialog, String& name);
};

/// Programs that only run for a set time and end with a set exit code.
class MemoryProcesses final : public Processes {
   public:
    struct Program {
        Long exitCode = 0;
        std::chrono::milliseconds runs{0};  ///< how long the program runs; only waits count
    };
    /// The key is the command line; any other cannot be started.
    std::map<String, Program> programs;
    struct Started {
        String commandLine;
        String title;
        Ending ending = Ending::WithItself;
        bool terminated = false;
        bool closed = false;
        Program program;
    };
    std::vector<Started> started;
    /// The arguments of HandToDesktop so far, and its answer.
    std::vector<String> opened;
    ErrorCode openAnswer = kSuccess;

    ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                             Handle& process) override;
    Waited WaitForSingleObject(Handle process,
                               std::optional<std::chrono::milliseconds> longest) override;
    ErrorCode GetExitCodeProcess(Handle process, Long& code) override;
    ErrorCode EndProcess(Handle process) override;
    void CloseHandle(Handle process) override;
    ErrorCode HandToDesktop(const String& target) override;
};

/// A screen whose windows are set here.
class MemoryDesktop final : public Desktop {
   public:
    struct Window {
        WindowInfo info;
        String className;
        bool topmost = false;
        bool takesMessages = true;
        std::vector<WindowMessage> posted = {};
    };
    std::vector<Window> windows;  ///< the topmost first
    std::optional<ScreenArea> workArea = ScreenArea{0, 0, 1920, 1040};

    std::vector<WindowInfo> EnumWindows() override;
    WindowHandle FindWindowA(const std::optional<String>& className,
                             const std::optional<String>& title) override;
    bool IsWindow(WindowHandle window) override { return find(window) != nullptr; }
    String GetWindowTextA(WindowHandle window) override;
    bool SetTopmost(WindowHandle window, bool topmost) override;
    bool PostMessageA(WindowHandle window, WindowMessage message) override;
    bool WorkArea(ScreenArea& area) override;

   private:
    Window* find(WindowHandle window);
};

/// One table, shared by all threads.
class MemoryKeyboard final : public Keyboard {
   public:
    KeyStates states{};

    Byte GetKeyState(int key) override { return states.at(static_cast<std::size_t>(key)); }
    void GetKeyboardState(KeyStates& all) override { all = states; }
    void SetKeyboardState(const KeyStates& all) override { states = all; }
};

class MemoryClipboard final : public Clipboard {
   public:
    /// Nothing when the clipboard is empty.
    std::optional<std::pair<ClipboardFormat, std::string>> content;
    /// Whether another program holds the clipboard; then everything fails.
    bool locked = false;

    bool EmptyClipboard() override;
    bool PutOnClipboard(ClipboardFormat format, const std::string& data) override;
    bool GetClipboardData(ClipboardFormat format, std::string& data) override;
};

/// A complete set of ports in memory.
struct MemoryPorts {
    MemoryFiles files;
    MemoryFolders folders{files};
    MemoryDrives drives;
    MemoryRegistry registry;
    MemorySystem system;
    MemoryHost host;
    MemoryProcesses processes;
    MemoryDesktop desktop;
    MemoryKeyboard keyboard;
    MemoryClipboard clipboard;
    Ports ports{files, folders,   drives,  registry, system,
                host,  processes, desktop, keyboard, clipboard};
    operator Ports&() { return ports; }  // NOLINT(google-explicit-constructor): as the ports
};

}  // namespace quorkit
