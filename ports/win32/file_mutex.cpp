#include "win32/file_mutex.h"

#include <quorkit/ports/ports.h>

#include "base/hash.h"
#include "base/unicode.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

/// The same name for one file, however the file's name is spelled.
std::wstring objectName(String name) {
    ::CharLowerBuffW(wide(name), static_cast<DWORD>(name.size()));
    return L"Global\\quorkit-" + std::to_wstring(base::hashOf(StringView(name)));
}

/// Users who share the file also share its kernel objects, so everyone may open them.
template <class Make>
HANDLE makeForEveryone(Make make) {
    SECURITY_DESCRIPTOR everyone = {};
    ::InitializeSecurityDescriptor(&everyone, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&everyone, TRUE, nullptr, FALSE);
    SECURITY_ATTRIBUTES security = {sizeof security, &everyone, FALSE};
    return make(&security);
}

}  // namespace

FileMutex::FileMutex(const String& name) : file_(name), name_(objectName(name)) {
    mutex_ = makeForEveryone([&](SECURITY_ATTRIBUTES* security) {
        return ::CreateMutexW(security, FALSE, name_.c_str());
    });
    if (mutex_ == nullptr) status_ = lastError();
}

FileMutex::~FileMutex() {
    unmark();
    if (mutex_ != nullptr) ::CloseHandle(mutex_);
}

ErrorCode FileMutex::enter(std::chrono::milliseconds most) {
    switch (::WaitForSingleObject(mutex_, static_cast<DWORD>(most.count()))) {
        case WAIT_OBJECT_0:
        case WAIT_ABANDONED:
            return kSuccess;
        case WAIT_TIMEOUT:
            ports::giveReason(base::toUtf8(file_) + " is locked by another program");
            return kLockViolation;
        default:
            return lastError();
    }
}

void FileMutex::leave() {
    ::ReleaseMutex(mutex_);
}

bool FileMutex::marked() const {
    const HANDLE other = ::OpenEventW(SYNCHRONIZE, FALSE, (name_ + L"-mark").c_str());
    if (other == nullptr) return ::GetLastError() != ERROR_FILE_NOT_FOUND;
    ::CloseHandle(other);
    return true;
}

ErrorCode FileMutex::mark() {
    mark_ = makeForEveryone([&](SECURITY_ATTRIBUTES* security) {
        return ::CreateEventW(security, TRUE, FALSE, (name_ + L"-mark").c_str());
    });
    return mark_ == nullptr ? lastError() : kSuccess;
}

void FileMutex::unmark() {
    if (mark_ != nullptr) ::CloseHandle(mark_);
    mark_ = nullptr;
}

}  // namespace quorkit::native
