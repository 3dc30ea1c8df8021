#include "automation/server.h"

#include <atomic>
#include <vector>

#include "automation/apartment.h"
#include "automation/class_factory.h"
#include "automation/failure.h"

namespace quorkit::automation {
namespace {

std::atomic<long> uses = 0;
HINSTANCE self = nullptr;

}  // namespace

void InUse::begin() {
    ++uses;
}

void InUse::end() {
    --uses;
}

bool InUse::any() {
    return uses != 0;
}

HINSTANCE module() {
    return self;
}

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

}  // namespace quorkit::automation

using namespace quorkit::automation;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) self = instance;
    if (reason == DLL_THREAD_DETACH) Apartment::leave();
    return TRUE;
}

STDAPI DllCanUnloadNow() {
    return guarded([] {
        Apartment::sweep(!InUse::any());
        return InUse::any() ? S_FALSE : S_OK;
    });
}

// The runtime of C++ keeps things for each thread, which it can free only as long as it is loaded:
// a thread that unloaded it while ending would wait for itself. So the code stays until the process
// ends. DllCanUnloadNow still frees what no client uses.
STDAPI DllGetClassObject(REFCLSID identity, REFIID wanted, LPVOID* found) {
    if (found == nullptr) return E_POINTER;
    *found = nullptr;
    return guarded([&]() -> HRESULT {
        const quorkit::ClassInfo* info = classOf(identity);
        if (info == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
        HMODULE pinned = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<LPCWSTR>(&DllCanUnloadNow), &pinned);
        const Ref<ClassFactory> factory(new ClassFactory(*info));
        return factory->QueryInterface(wanted, found);
    });
}

}  // extern "C"
