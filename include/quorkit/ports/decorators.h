// A decorator for every port. It passes each call on to the port beneath it, except for the calls
// that it is told to fail. A class that derives from one overrides only what it changes.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/drives.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/folders.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/keyboard.h>
#include <quorkit/ports/processes.h>
#include <quorkit/ports/registry.h>
#include <quorkit/ports/system.h>

namespace quorkit {

/// A failing WriteFile or WriteInPlace has written half of its bytes, but WriteInPlace with
/// kFileReplaced none. A failing Append has written nothing. A failing CloseHandle has closed the
/// file.
class FaultyFiles : public Decorator<Files> {
   public:
    using Decorator::Decorator;

    ErrorCode Open(const String& name, FileAccess access, Handle& handle) override {
        return pass(__func__, &Files::Open, name, access, handle);
    }
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override {
        return pass(__func__, &Files::GetFileSizeEx, handle, size);
    }
    ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) override {
        return pass(__func__, &Files::SetFilePointerEx, handle, position);
    }
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override {
        return pass(__func__, &Files::ReadFile, handle, buffer, capacity, count);
    }
    ErrorCode WriteFile(Handle handle, std::string_view bytes) override {
        if (!due(__func__)) return inner_.WriteFile(handle, bytes);
        if (!done()) inner_.WriteFile(handle, bytes.substr(0, bytes.size() / 2));
        return code();
    }
    ErrorCode FlushFileBuffers(Handle handle) override {
        return pass(__func__, &Files::FlushFileBuffers, handle);
    }
    ErrorCode CloseHandle(Handle handle) override {
        const ErrorCode closed = inner_.CloseHandle(handle);
        return due(__func__) ? code() : closed;
    }
    ErrorCode DeleteFileA(const String& name) override {
        return pass(__func__, &Files::DeleteFileA, name);
    }
    ErrorCode Append(Handle handle, std::string_view bytes,
                     std::string_view lineBreak = {}) override {
        return pass(__func__, &Files::Append, handle, bytes, lineBreak);
    }
    ErrorCode EmptyFile(Handle handle) override {
        return pass(__func__, &Files::EmptyFile, handle);
    }
    ErrorCode FinalName(const String& name, String& target) override {
        return pass(__func__, &Files::FinalName, name, target);
    }
    ErrorCode LockForChange(const String& name, Handle& lock, Wait wait) override {
        return pass(__func__, &Files::LockForChange, name, lock, wait);
    }
    ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) override {
        return pass(__func__, &Files::CreateReplacement, lock, beside, file);
    }
    ErrorCode Replace(Handle lock, Handle file, Wait wait) override {
        return pass(__func__, &Files::Replace, lock, file, wait);
    }
    ErrorCode WriteInPlace(Handle lock, std::string_view content) override {
        if (!due(__func__)) return inner_.WriteInPlace(lock, content);
        if (!done() && code() != kFileReplaced)
            inner_.WriteInPlace(lock, content.substr(0, content.size() / 2));
        return code();
    }
    ErrorCode FlushFolderOf(const String& name) override {
        return pass(__func__, &Files::FlushFolderOf, name);
    }
};

class FaultyFolders : public Decorator<Folders> {
   public:
    using Decorator::Decorator;

    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override {
        return pass(__func__, &Folders::GetFileAttributesA, name, attributes);
    }
    ErrorCode CreateDirectoryA(const String& name) override {
        return pass(__func__, &Folders::CreateDirectoryA, name);
    }
    ErrorCode FirstEntry(const String& folder, FindDetail detail, Handle& search,
                         FindData& entry) override {
        return pass(__func__, &Folders::FirstEntry, folder, detail, search, entry);
    }
    ErrorCode NextEntry(Handle search, FindData& entry) override {
        return pass(__func__, &Folders::NextEntry, search, entry);
    }
    void EndListing(Handle search) override { inner_.EndListing(search); }
};

class FaultyDrives : public Decorator<Drives> {
   public:
    using Decorator::Decorator;

    int GetDriveTypeA(const String& root) override {
        return pass(__func__, &Drives::GetDriveTypeA, root);
    }
    std::vector<String> GetLogicalDriveStringsA() override {
        return pass(__func__, &Drives::GetLogicalDriveStringsA);
    }
    ErrorCode VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) override {
        return pass(__func__, &Drives::VolumeSerialNumber, root, serialNumber);
    }
    ErrorCode ListConnections(std::vector<NetworkConnection>& connections) override {
        return pass(__func__, &Drives::ListConnections, connections);
    }
};

class FaultyRegistry : public Decorator<Registry> {
   public:
    using Decorator::Decorator;

    ErrorCode RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                            Handle& key) override {
        return pass(__func__, &Registry::RegOpenKeyExA, root, path, access, key);
    }
    ErrorCode RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) override {
        return pass(__func__, &Registry::RegCreateKeyA, root, path, key);
    }
    void RegCloseKey(Handle key) override { inner_.RegCloseKey(key); }
    ErrorCode RegQueryValueExA(Handle key, const String& name, RegistryValue& value) override {
        return pass(__func__, &Registry::RegQueryValueExA, key, name, value);
    }
    ErrorCode SetValues(Handle key, std::span<const NamedValue> values) override {
        return pass(__func__, &Registry::SetValues, key, values);
    }
    ErrorCode RegDeleteValueA(Handle key, const String& name) override {
        return pass(__func__, &Registry::RegDeleteValueA, key, name);
    }
    ErrorCode ListValues(Handle key, std::vector<NamedValue>& values) override {
        return pass(__func__, &Registry::ListValues, key, values);
    }
    ErrorCode ListKeys(Handle key, std::vector<String>& names) override {
        return pass(__func__, &Registry::ListKeys, key, names);
    }
    ErrorCode RegDeleteKeyA(Handle parent, const String& name) override {
        return pass(__func__, &Registry::RegDeleteKeyA, parent, name);
    }
    std::vector<RegistryDamage> FindDamage() override {
        return pass(__func__, &Registry::FindDamage);
    }
};

class FaultySystem : public Decorator<System> {
   public:
    using Decorator::Decorator;

    LanguageIdentifier GetUserDefaultUILanguage() override {
        return pass(__func__, &System::GetUserDefaultUILanguage);
    }
    LanguageIdentifier GetSystemDefaultLangID() override {
        return pass(__func__, &System::GetSystemDefaultLangID);
    }
    bool GetVersionExA(OsRecord size, OsVersion& version) override {
        return pass(__func__, &System::GetVersionExA, size, version);
    }
    bool DiallingCode(String& diallingCode) override {
        return pass(__func__, &System::DiallingCode, diallingCode);
    }
    SystemTime GetLocalTime() override { return inner_.GetLocalTime(); }
    bool LocalTimeOf(FileTime time, SystemTime& local) override {
        return pass(__func__, &System::LocalTimeOf, time, local);
    }
    std::uint64_t QueryPerformanceCounter() override { return inner_.QueryPerformanceCounter(); }
    bool GetEnvironmentVariableA(const String& name, String& value) override {
        return pass(__func__, &System::GetEnvironmentVariableA, name, value);
    }
    bool GetTempPathA(String& folder) override {
        return pass(__func__, &System::GetTempPathA, folder);
    }
    bool SHGetFolderPathA(int folder, String& path) override {
        return pass(__func__, &System::SHGetFolderPathA, folder, path);
    }
};

class FaultyHost : public Decorator<Host> {
   public:
    using Decorator::Decorator;

    void MessageBoxA(const String& text, const String& caption, std::uint32_t style) override {
        pass(__func__, &Host::MessageBoxA, text, caption, style);
    }
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override {
        return pass(__func__, &Host::GetOpenFileNameA, dialog, name);
    }
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override {
        return pass(__func__, &Host::GetSaveFileNameA, dialog, name);
    }
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override {
        return pass(__func__, &Host::SHBrowseForFolderA, dialog, name);
    }
    void DoEvents() override { pass(__func__, &Host::DoEvents); }
    bool WaitForEvents(std::chrono::steady_clock::time_point deadline) override {
        return pass(__func__, &Host::WaitForEvents, deadline);
    }
    void SetPointer(Pointer pointer) override { pass(__func__, &Host::SetPointer, pointer); }
    void ShowWaitWindow(const String& text, WindowHandle owner) override {
        pass(__func__, &Host::ShowWaitWindow, text, owner);
    }
    void HideWaitWindow() override { pass(__func__, &Host::HideWaitWindow); }
};

/// A failing wait answers Failed, or Ended when the code is kSuccess.
class FaultyProcesses : public Decorator<Processes> {
   public:
    using Decorator::Decorator;

    ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                             Handle& process) override {
        return pass(__func__, &Processes::CreateProcessA, commandLine, title, ending, process);
    }
    Waited WaitForSingleObject(Handle process,
                               std::optional<std::chrono::milliseconds> longest) override {
        if (!due(__func__)) return inner_.WaitForSingleObject(process, longest);
        return done() ? Waited::Ended : Waited::Failed;
    }
    ErrorCode GetExitCodeProcess(Handle process, Long& code) override {
        return pass(__func__, &Processes::GetExitCodeProcess, process, code);
    }
    ErrorCode EndProcess(Handle process) override {
        return pass(__func__, &Processes::EndProcess, process);
    }
    void CloseHandle(Handle process) override { inner_.CloseHandle(process); }
    ErrorCode HandToDesktop(const String& target) override {
        return pass(__func__, &Processes::HandToDesktop, target);
    }
};

class FaultyDesktop : public Decorator<Desktop> {
   public:
    using Decorator::Decorator;

    std::vector<WindowInfo> EnumWindows() override { return pass(__func__, &Desktop::EnumWindows); }
    WindowHandle FindWindowA(const std::optional<String>& className,
                             const std::optional<String>& title) override {
        return pass(__func__, &Desktop::FindWindowA, className, title);
    }
    bool IsWindow(WindowHandle window) override {
        return pass(__func__, &Desktop::IsWindow, window);
    }
    String GetWindowTextA(WindowHandle window) override {
        return pass(__func__, &Desktop::GetWindowTextA, window);
    }
    bool SetTopmost(WindowHandle window, bool topmost) override {
        return pass(__func__, &Desktop::SetTopmost, window, topmost);
    }
    bool PostMessageA(WindowHandle window, WindowMessage message) override {
        return pass(__func__, &Desktop::PostMessageA, window, message);
    }
    bool WorkArea(ScreenArea& area) override { return pass(__func__, &Desktop::WorkArea, area); }
};

class FaultyKeyboard : public Decorator<Keyboard> {
   public:
    using Decorator::Decorator;

    Byte GetKeyState(int key) override { return pass(__func__, &Keyboard::GetKeyState, key); }
    void GetKeyboardState(KeyStates& states) override {
        pass(__func__, &Keyboard::GetKeyboardState, states);
    }
    void SetKeyboardState(const KeyStates& states) override {
        pass(__func__, &Keyboard::SetKeyboardState, states);
    }
};

class FaultyClipboard : public Decorator<Clipboard> {
   public:
    using Decorator::Decorator;

    bool EmptyClipboard() override { return pass(__func__, &Clipboard::EmptyClipboard); }
    bool PutOnClipboard(ClipboardFormat format, const std::string& data) override {
        return pass(__func__, &Clipboard::PutOnClipboard, format, data);
    }
    bool GetClipboardData(ClipboardFormat format, std::string& data) override {
        return pass(__func__, &Clipboard::GetClipboardData, format, data);
    }
};

}  // namespace quorkit
