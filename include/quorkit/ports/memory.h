// An imitation of the system in memory, for tests of programs that use the library: files whose
// rights, links and free space are set by hand, and a system whose language, clock and environment
// are what it is told.
#pragma once

#include <quorkit/ports/drives.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace quorkit {

/// Names are told apart as they are spelled. The folder "" is there from the start.
class MemoryFiles final : public Files {
   public:
    void addFolder(const String& name);
    void put(const String& name, std::string content);
    /// The content of a file; nothing when there is none of that name.
    std::optional<std::string> content(const String& name) const;
    void setReadOnly(const String& name, bool readOnly = true);
    void addLink(const String& name, const String& target);
    /// How many bytes can still be written before the disk is full.
    void setFreeSpace(std::size_t bytes);

    ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) override;
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override;
    ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) override;
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override;
    ErrorCode WriteFile(Handle handle, std::string_view bytes) override;
    ErrorCode SetEndOfFile(Handle handle) override;
    ErrorCode FlushFileBuffers(Handle handle) override;
    ErrorCode CloseHandle(Handle handle) override;
    ErrorCode GetFinalPathNameA(const String& name, String& target) override;
    ErrorCode LockFileA(const String& name, Handle& handle, Wait wait) override;
    ErrorCode ReplaceFileA(const String& name, const String& replacement) override;
    ErrorCode FlushFolderOf(const String& name) override;
    ErrorCode DeleteFileA(const String& name) override;
    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override;
    ErrorCode CreateDirectoryA(const String& name) override;
    ErrorCode FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                             FindData& entry) override;
    ErrorCode FindNextFileA(Handle search, FindData& entry) override;
    void FindClose(Handle search) override;

   private:
    struct File {
        std::string content;
        bool readOnly = false;
    };
    struct Opened {
        std::shared_ptr<File> file;  // null for a lock
        std::size_t position = 0;
        String lockedName;
    };

    std::string* contentOf(Handle handle, std::size_t*& position);
    bool folderExists(const String& name) const;

    mutable std::mutex mutex_;
    std::condition_variable unlocked_;
    std::map<String, std::shared_ptr<File>> files_;
    std::map<String, String> links_;
    std::set<String> folders_ = {String()};
    std::set<String> locked_;
    std::map<std::intptr_t, Opened> opened_;
    std::intptr_t nextHandle_ = 1;
    std::size_t freeSpace_ = static_cast<std::size_t>(-1);
};

class MemorySystem : public System {
   public:
    LanguageIdentifier userLanguage = 1033;
    LanguageIdentifier systemLanguage = 1033;
    SystemTime localTime;
    std::uint64_t performanceCounter = 0;
    std::map<String, String> environment;

    LanguageIdentifier GetUserDefaultUILanguage() override { return userLanguage; }
    LanguageIdentifier GetSystemDefaultLangID() override { return systemLanguage; }
    SystemTime GetLocalTime() override { return localTime; }
    std::uint64_t QueryPerformanceCounter() override { return performanceCounter; }
    /// Added to a UTC time to give the local one.
    std::int64_t minutesEastOfUtc = 0;
    String temporaryFolder = u"C:\\Temp\\";
    std::map<int, String> specialFolders;

    bool FileTimeToSystemTime(FileTime time, SystemTime& local) override;
    bool GetEnvironmentVariableA(const String& name, String& value) override;
    bool GetTempPathA(String& folder) override;
    bool SHGetFolderPathA(int folder, String& path) override;
};

/// A drive in memory, under its letter and colon.
struct MemoryDrive {
    int type = 3;
    std::uint32_t serialNumber = 0;
    String remoteName;
};

class MemoryDrives final : public Drives {
   public:
    std::map<String, MemoryDrive> drives = {{u"C:", {}}};
    /// What asking for the network connections answers.
    ErrorCode networkAnswer = kSuccess;

    int GetDriveTypeA(const String& root) override;
    std::vector<String> GetLogicalDriveStringsA() override;
    ErrorCode GetVolumeInformationA(const String& root, std::uint32_t& serialNumber) override;
    ErrorCode WNetEnumResourceA(std::vector<NetworkConnection>& connections) override;
};

/// A user who answers dialogs as told, and a record of what was shown.
class MemoryHost final : public Host {
   public:
    struct Message {
        String text;
        String caption;
    };
    std::vector<Message> messages;
    std::vector<FileDialog> dialogs;
    /// The answer to the next dialogs; none cancels them.
    std::optional<String> chosen;

    void MessageBoxA(const String& text, const String& caption) override;
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override;
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override;
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override;

   private:
    bool answer(const FileDialog& dialog, String& name);
};

/// A whole world in memory.
struct MemoryPorts {
    MemoryFiles files;
    MemoryDrives drives;
    MemorySystem system;
    MemoryHost host;
    Ports ports{files, drives, system, host};
    operator Ports&() { return ports; }  // NOLINT(google-explicit-constructor): it is one
};

}  // namespace quorkit
