// What regsvr32 calls in the server.
#include <windows.h>
// <olectl.h> needs <windows.h> first.
#include <olectl.h>

#include "automation/registration.h"

namespace {

using namespace quorkit::automation;

std::wstring ownPath() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&ownPath), &module);
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

HRESULT install(Scope scope, bool installs) {
    return installs ? registerServer(scope, ownPath()) : unregisterServer(scope);
}

}  // namespace

STDAPI DllRegisterServer() {
    return install(Scope::Machine, true);
}

STDAPI DllUnregisterServer() {
    return install(Scope::Machine, false);
}

/// regsvr32 /n /i:user: for this user; /n /i: for the machine.
STDAPI DllInstall(BOOL installs, LPCWSTR scope) {
    const std::wstring name = scope == nullptr ? L"" : scope;
    if (lstrcmpiW(name.c_str(), L"user") == 0) return install(Scope::User, installs != FALSE);
    return name.empty() ? install(Scope::Machine, installs != FALSE) : E_INVALIDARG;
}
