// Lets chosen operations fail, on top of any ports: how a program finds out that it loses nothing.
//
// A decorator hands every call on to the port beneath it, but for those that it is told to answer
// itself. A class of a test's own may override some of its operations.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/drives.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/keyboard.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/processes.h>
#include <quorkit/ports/registry.h>
#include <quorkit/ports/system.h>

#include <cstddef>
#include <memory>
#include <set>
#include <string_view>

namespace quorkit {

/// Which calls fail, and how. Copies share the order and the counter, and so do the decorators that
/// are given one. For one thread at a time.
///
/// A call that fails is not run. It answers the code, or where its result is none, false, 0, "" or
/// an empty list; its outputs stay as they are. Each decorator below says what it does otherwise.
/// FindClose, RegCloseKey and CloseHandle of a process only give something back, GetLocalTime and
/// QueryPerformanceCounter always have an answer: these are handed on and not counted.
class Faults {
   public:
    /// Call number `call` from now on, counted from 1 over the operations whose names begin with
    /// `operation` (all when empty), is not run and answers `code`; call 0 stands for every one.
    /// kSuccess makes an operation do nothing and report that it is done: answer(0, kSuccess,
    /// "Flush") spares the disk. Replaces the last order; call -1 is no order. `operation` must
    /// live as long as the order.
    void answer(std::size_t call, ErrorCode code, std::string_view operation = {});
    /// How many calls have been counted since the last order.
    std::size_t calls() const { return order_->calls; }

   protected:
    /// Counts a call, and tells whether it fails.
    bool due(std::string_view operation);
    /// What a call that fails answers.
    ErrorCode code() const { return order_->code; }
    /// The same where the answer is whether it is done.
    bool done() const { return code() == kSuccess; }

   private:
    struct Order {
        std::size_t call = static_cast<std::size_t>(-1);
        ErrorCode code = kGeneralFailure;
        std::string_view operation;
        std::size_t calls = 0;
    };
    std::shared_ptr<Order> order_ = std::make_shared<Order>();
};

/// A write that fails has written half of its bytes, in place too, but to a file opened for adding
/// none, and none in place with kFileReplaced; a close that fails has closed.
class FaultyFiles : public Files, public Faults {
   public:
    explicit FaultyFiles(Files& inner, const Faults& faults = {}) : Faults(faults), inner_(inner) {}

    ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) override;
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override;
    ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) override;
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override;
    ErrorCode WriteFile(Handle handle, std::string_view bytes,
                        std::string_view lineBreak = {}) override;
    ErrorCode SetEndOfFile(Handle handle) override;
    ErrorCode FlushFileBuffers(Handle handle) override;
    ErrorCode CloseHandle(Handle handle) override;
    ErrorCode GetFinalPathNameA(const String& name, String& target) override;
    ErrorCode LockFileA(const String& name, Handle& handle, Wait wait) override;
    ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) override;
    ErrorCode ReplaceFileA(Handle lock, Handle file, Wait wait) override;
    ErrorCode WriteInPlace(Handle lock, std::string_view content) override;
    ErrorCode FlushFolderOf(const String& name) override;
    ErrorCode DeleteFileA(const String& name) override;
    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override;
    ErrorCode CreateDirectoryA(const String& name) override;
    ErrorCode FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                             FindData& entry) override;
    ErrorCode FindNextFileA(Handle search, FindData& entry) override;
    void FindClose(Handle search) override;

   private:
    Files& inner_;
    std::set<Handle> adding_;
};

class FaultyDrives : public Drives, public Faults {
   public:
    explicit FaultyDrives(Drives& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    int GetDriveTypeA(const String& root) override;
    std::vector<String> GetLogicalDriveStringsA() override;
    ErrorCode GetVolumeInformationA(const String& root, std::uint32_t& serialNumber) override;
    ErrorCode WNetEnumResourceA(std::vector<NetworkConnection>& connections) override;

   private:
    Drives& inner_;
};

class FaultyRegistry : public Registry, public Faults {
   public:
    explicit FaultyRegistry(Registry& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    ErrorCode RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                            Handle& key) override;
    ErrorCode RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) override;
    void RegCloseKey(Handle key) override;
    ErrorCode RegQueryValueExA(Handle key, const String& name, RegistryValue& value) override;
    ErrorCode RegSetValueExA(Handle key, std::span<const NamedValue> values) override;
    ErrorCode RegDeleteValueA(Handle key, const String& name) override;
    ErrorCode RegEnumValueA(Handle key, std::vector<NamedValue>& values) override;
    ErrorCode RegEnumKeyExA(Handle key, std::vector<String>& names) override;
    ErrorCode RegDeleteKeyA(Handle parent, const String& name) override;
    std::vector<RegistryDamage> check() override;

   private:
    Registry& inner_;
};

class FaultySystem : public System, public Faults {
   public:
    explicit FaultySystem(System& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    LanguageIdentifier GetUserDefaultUILanguage() override;
    LanguageIdentifier GetSystemDefaultLangID() override;
    bool GetVersionExA(OsRecord size, OsVersion& version) override;
    bool GetLocaleInfoA(String& dialingCode) override;
    SystemTime GetLocalTime() override;
    bool FileTimeToSystemTime(FileTime time, SystemTime& local) override;
    std::uint64_t QueryPerformanceCounter() override;
    bool GetEnvironmentVariableA(const String& name, String& value) override;
    bool GetTempPathA(String& folder) override;
    bool SHGetFolderPathA(int folder, String& path) override;

   private:
    System& inner_;
};

class FaultyHost : public Host, public Faults {
   public:
    explicit FaultyHost(Host& inner, const Faults& faults = {}) : Faults(faults), inner_(inner) {}

    void MessageBoxA(const String& text, const String& caption, std::uint32_t style) override;
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override;
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override;
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override;
    void DoEvents() override;
    bool MsgWaitForMultipleObjects(std::chrono::steady_clock::time_point deadline) override;
    void SetPointer(Pointer pointer) override;
    void ShowWaitWindow(const String& text, WindowHandle owner) override;
    void HideWaitWindow() override;

   private:
    Host& inner_;
};

/// A wait that fails answers Failed, with kSuccess Ended.
class FaultyProcesses : public Processes, public Faults {
   public:
    explicit FaultyProcesses(Processes& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                             Handle& process) override;
    Waited WaitForSingleObject(Handle process, std::chrono::milliseconds longest) override;
    Waited WaitForSingleObject(Handle process) override;
    ErrorCode GetExitCodeProcess(Handle process, Long& exitCode) override;
    ErrorCode TerminateProcess(Handle process) override;
    void CloseHandle(Handle process) override;
    ErrorCode ShellExecuteA(const String& target) override;

   private:
    Waited answered() const { return done() ? Waited::Ended : Waited::Failed; }

    Processes& inner_;
};

class FaultyDesktop : public Desktop, public Faults {
   public:
    explicit FaultyDesktop(Desktop& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    std::vector<WindowInfo> EnumWindows() override;
    WindowHandle FindWindowA(const std::optional<String>& className,
                             const std::optional<String>& title) override;
    bool IsWindow(WindowHandle window) override;
    String GetWindowTextA(WindowHandle window) override;
    bool SetWindowPos(WindowHandle window, bool topmost) override;
    bool PostMessageA(WindowHandle window, WindowMessage message) override;
    bool SystemParametersInfoA(ScreenArea& workArea) override;

   private:
    Desktop& inner_;
};

class FaultyKeyboard : public Keyboard, public Faults {
   public:
    explicit FaultyKeyboard(Keyboard& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    Byte GetKeyState(int key) override;
    void GetKeyboardState(KeyStates& states) override;
    void SetKeyboardState(const KeyStates& states) override;

   private:
    Keyboard& inner_;
};

class FaultyClipboard : public Clipboard, public Faults {
   public:
    explicit FaultyClipboard(Clipboard& inner, const Faults& faults = {})
        : Faults(faults), inner_(inner) {}

    bool EmptyClipboard() override;
    bool SetClipboardData(ClipboardFormat format, const std::string& data) override;
    bool GetClipboardData(ClipboardFormat format, std::string& data) override;

   private:
    Clipboard& inner_;
};

/// A whole world under one order, which counts the calls of all its ports:
///
///     FaultyPorts faulty(world);
///     faulty.answer(3, kDiskFull);  // the third call of any port
///     QuorInifile ini(faulty);
class FaultyPorts : public Faults {
   public:
    /// `inner` must live as long as what it refers to is used.
    explicit FaultyPorts(Ports& inner);
    FaultyPorts(const FaultyPorts&) = delete;
    FaultyPorts& operator=(const FaultyPorts&) = delete;

    operator Ports&() { return ports_; }  // NOLINT(google-explicit-constructor): it is one

   private:
    FaultyFiles files_;
    FaultyDrives drives_;
    FaultyRegistry registry_;
    FaultySystem system_;
    FaultyHost host_;
    FaultyProcesses processes_;
    FaultyDesktop desktop_;
    FaultyKeyboard keyboard_;
    FaultyClipboard clipboard_;
    Ports ports_;
};

}  // namespace quorkit
