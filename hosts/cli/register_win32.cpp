#include <quorkit/utf8.h>

#include "automation/registration.h"
#include "cli/failure.h"
#include "cli/register_command.h"
#include "cli/system_text.h"

namespace quorkit::cli {
namespace {

using automation::Scope;

std::string bitsText() {
    return std::to_string(static_cast<int>(automation::kOwnBits)) + " bits";
}

void orThrow(HRESULT result, const std::string& what) {
    if (SUCCEEDED(result)) return;
    const bool denied = result == HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED);
    throw Failure(what + ": " + messageOf(result) +
                  (denied ? "; --machine needs an administrator, --user does not" : ""));
}

/// The server's own answer to being registered, so that it is that version's classes.
HRESULT installedBy(HMODULE server, Scope scope, const std::string& name) {
    const auto find = [&](const char* function) {
        const FARPROC found = GetProcAddress(server, function);
        if (found == nullptr) throw Failure(name + " is no automation server of quorkit");
        return reinterpret_cast<void*>(found);
    };
    if (scope == Scope::Machine)
        return reinterpret_cast<HRESULT(WINAPI*)()>(find("DllRegisterServer"))();
    return reinterpret_cast<HRESULT(WINAPI*)(BOOL, LPCWSTR)>(find("DllInstall"))(TRUE, L"user");
}

std::wstring besideThisProgram() {
    const std::wstring program = programPath();
    return program.substr(0, program.rfind(L'\\') + 1) + L"quorkit.dll";
}

void install(Scope scope, const std::wstring& path) {
    const std::string name = toUtf8(textOf(path));
    const HMODULE server = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    const DWORD error = GetLastError();
    if (server == nullptr && error == ERROR_BAD_EXE_FORMAT)
        throw Failure(name + " is no DLL of " + bitsText() +
                      ", which this program registers; use the quorkit of its bitness");
    if (server == nullptr) orThrow(HRESULT_FROM_WIN32(error), name);
    const HRESULT result = installedBy(server, scope, name);
    FreeLibrary(server);
    orThrow(result, name);
}

}  // namespace

void registerServer(const RegisterLine& line, std::ostream& out) {
    const Scope scope = line.machine ? Scope::Machine : Scope::User;
    const std::string whom = std::string(" for ") + (line.machine ? "everybody" : "this user") +
                             ", " + bitsText() + '\n';
    if (!line.remove) {
        const std::wstring path =
            automation::fullPath(line.dll ? wideOf(*line.dll) : besideThisProgram());
        install(scope, path);
        out << "registered " << toUtf8(textOf(path)) << whom;
        return;
    }
    const bool there = automation::registered(scope).classes != 0;
    orThrow(automation::unregisterServer(scope), "removing the entries");
    out << (there ? "removed what was registered" : "nothing was registered") << whom;
}

}  // namespace quorkit::cli
