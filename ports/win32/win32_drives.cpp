#include <windows.h>
#include <winnetwk.h>

#include "native/native_drives.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

/// While this object lives, a drive without a medium causes a failure and no message box.
class NoBoxes {
   public:
    NoBoxes() { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
    ~NoBoxes() { ::SetThreadErrorMode(before_, nullptr); }
    NoBoxes(const NoBoxes&) = delete;
    NoBoxes& operator=(const NoBoxes&) = delete;

   private:
    DWORD before_ = 0;
};

}  // namespace

int NativeDrives::GetDriveTypeA(const String& root) {
    const NoBoxes quiet;
    // The system reads "C:" alone as the current folder on that drive.
    const bool drive = root.size() == 2 && root[1] == u':';
    return static_cast<int>(::GetDriveTypeW(wide(drive ? root + u'\\' : root)));
}

std::vector<String> NativeDrives::GetLogicalDriveStringsA() {
    const String list = askForText(
        [](wchar_t* buffer, DWORD size) { return ::GetLogicalDriveStringsW(size, buffer); });
    std::vector<String> roots;
    for (std::size_t start = 0; start < list.size(); start += roots.back().size() + 1)
        roots.emplace_back(list.c_str() + start);
    return roots;
}

ErrorCode NativeDrives::VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) {
    const NoBoxes quiet;
    DWORD found = 0;
    if (!::GetVolumeInformationW(wide(root), nullptr, 0, &found, nullptr, nullptr, nullptr, 0))
        return lastError();
    serialNumber = found;
    return kSuccess;
}

/// One request with one buffer; if there are more connections, this fails.
ErrorCode NativeDrives::ListConnections(std::vector<NetworkConnection>& connections) {
    HANDLE list = nullptr;
    DWORD code = ::WNetOpenEnumW(RESOURCE_CONNECTED, RESOURCETYPE_ANY, 0, nullptr, &list);
    if (code != NO_ERROR) return static_cast<ErrorCode>(code);
    constexpr DWORD kBytes = 32768;
    std::vector<NETRESOURCEW> buffer(kBytes / sizeof(NETRESOURCEW));
    DWORD bytes = static_cast<DWORD>(buffer.size() * sizeof(NETRESOURCEW));
    DWORD count = 1024;
    code = ::WNetEnumResourceW(list, &count, buffer.data(), &bytes);
    ::WNetCloseEnum(list);
    if (code == ERROR_NO_MORE_ITEMS)
        count = 0;
    else if (code != NO_ERROR)
        return static_cast<ErrorCode>(code);
    connections.clear();
    for (DWORD i = 0; i < count; ++i)
        connections.push_back({textOf(buffer[i].lpLocalName), textOf(buffer[i].lpRemoteName)});
    return kSuccess;
}

}  // namespace quorkit::native
