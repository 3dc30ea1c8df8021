// What regsvr32 calls in the server.
#include <windows.h>
// <olectl.h> needs <windows.h> first.
#include <olectl.h>

#include "automation/registration.h"
#include "automation/server.h"

namespace {

using namespace quorkit::automation;

HRESULT install(Scope scope, bool installs) {
    return installs ? registerServer(scope, modulePath()) : unregisterServer(scope);
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
