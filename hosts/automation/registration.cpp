#include "automation/registration.h"

#include <quorkit/catalogue.h>

#include <optional>
#include <vector>

#include "automation/guid.h"

// Beneath Software\Classes the keys CLSID and Interface have one content for each bitness; TypeLib
// and the names of classes have one for both. Wine differs: for the machine it also keeps the names
// apart, and for the user nothing.

namespace quorkit::automation {
namespace {

constexpr const wchar_t* kVersion = L"1.0";
/// The system's marshaler for interfaces whose calls all go through IDispatch.
constexpr const wchar_t* kDispatchMarshaler = L"{00020420-0000-0000-C000-000000000046}";

/// One value; only the key when there is no text.
struct Entry {
    std::wstring key;
    const wchar_t* name = nullptr;
    std::optional<std::wstring> text = {};
};
using Entries = std::vector<Entry>;

std::wstring wide(const char* ascii) {
    std::wstring text;
    for (; *ascii != 0; ++ascii) text += static_cast<wchar_t>(*ascii);
    return text;
}

std::wstring classKey(const ClassInfo& info) {
    return L"CLSID\\" + textOf(guidOf(info.identity));
}
std::wstring interfaceKey(const ClassInfo& info) {
    return L"Interface\\" + textOf(guidOf(info.interfaceIdentity));
}
std::wstring nameKey(const ClassInfo& info) {
    return L"quorkit." + wide(info.name);
}
std::wstring versionedNameKey(const ClassInfo& info) {
    return nameKey(info) + L".1";
}
std::wstring libraryIdentity() {
    return textOf(guidOf(kLibraryIdentity));
}
std::wstring libraryKey() {
    return L"TypeLib\\" + libraryIdentity();
}

/// What each bitness has for itself.
void addOwn(Entries& entries, const ClassInfo& info, const std::wstring& dllPath) {
    const std::wstring key = classKey(info);
    const Entry all[] = {
        {key, nullptr, wide(info.role)},
        {key + L"\\InprocServer32", nullptr, dllPath},
        {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {key + L"\\ProgID", nullptr, versionedNameKey(info)},
        {key + L"\\VersionIndependentProgID", nullptr, nameKey(info)},
        {key + L"\\TypeLib", nullptr, libraryIdentity()},
        {key + L"\\Version", nullptr, kVersion},
        {key + L"\\Programmable"},
        {interfaceKey(info), nullptr, L'_' + wide(info.name)},
        {interfaceKey(info) + L"\\ProxyStubClsid32", nullptr, kDispatchMarshaler},
        {interfaceKey(info) + L"\\TypeLib", nullptr, libraryIdentity()},
        {interfaceKey(info) + L"\\TypeLib", L"Version", kVersion},
    };
    entries.insert(entries.end(), std::begin(all), std::end(all));
}

void addNames(Entries& entries, const ClassInfo& info) {
    const std::wstring identity = textOf(guidOf(info.identity));
    const std::wstring role = wide(info.role);
    const Entry all[] = {
        {versionedNameKey(info), nullptr, role},
        {versionedNameKey(info) + L"\\CLSID", nullptr, identity},
        {nameKey(info), nullptr, role},
        {nameKey(info) + L"\\CLSID", nullptr, identity},
        {nameKey(info) + L"\\CurVer", nullptr, versionedNameKey(info)},
    };
    entries.insert(entries.end(), std::begin(all), std::end(all));
}

Entries ownEntries(const std::wstring& dllPath) {
    Entries entries;
    for (const ClassInfo& info : classes()) addOwn(entries, info, dllPath);
    return entries;
}

/// What both need.
Entries sharedEntries(const std::wstring& dllPath, Bits bits) {
    const std::wstring key = libraryKey() + L'\\' + kVersion;
    Entries entries = {
        {key, nullptr, L"quorkit"},
        {key + (bits == Bits::B64 ? L"\\0\\win64" : L"\\0\\win32"), nullptr, dllPath},
        {key + L"\\FLAGS", nullptr, L"0"},
        {key + L"\\HELPDIR", nullptr, dllPath.substr(0, dllPath.rfind(L'\\'))},
    };
    for (const ClassInfo& info : classes()) addNames(entries, info);
    return entries;
}

/// The classes in the registry as programs of one bitness see them.
class Branch {
   public:
    Branch(Scope scope, Bits bits)
        : root_(scope == Scope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE),
          view_(bits == Bits::B64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY) {}

    /// Up to the first failure.
    void write(const Entries& entries) {
        for (const Entry& entry : entries)
            if (failure_ == ERROR_SUCCESS) write(entry);
    }

    /// Deletes a key with all beneath it.
    void remove(const std::wstring& name) {
        HKEY key = nullptr;
        LSTATUS status = RegOpenKeyExW(root_, full(name).c_str(), 0,
                                       KEY_READ | KEY_WRITE | DELETE | view_, &key);
        if (status == ERROR_SUCCESS) {
            status = RegDeleteTreeW(key, nullptr);
            RegCloseKey(key);
        }
        if (status == ERROR_SUCCESS) status = RegDeleteKeyExW(root_, full(name).c_str(), view_, 0);
        note(status);
    }

    /// Deletes a key in which nothing is left.
    void removeEmpty(const std::wstring& name) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root_, full(name).c_str(), 0, KEY_READ | view_, &key) != ERROR_SUCCESS)
            return;
        DWORD keys = 1;
        DWORD values = 1;
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                         nullptr, nullptr, nullptr);
        RegCloseKey(key);
        if (keys == 0 && values == 0) note(RegDeleteKeyExW(root_, full(name).c_str(), view_, 0));
    }

    std::optional<std::wstring> textIn(const std::wstring& name) const {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root_, full(name).c_str(), 0, KEY_READ | view_, &key) != ERROR_SUCCESS)
            return {};
        std::wstring text(32768, L'\0');
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(key, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
        RegCloseKey(key);
        if (status != ERROR_SUCCESS) return {};
        return std::wstring(text.c_str());
    }

    /// The first failure so far.
    HRESULT result() const { return HRESULT_FROM_WIN32(static_cast<DWORD>(failure_)); }

   private:
    void write(const Entry& entry) {
        HKEY key = nullptr;
        LSTATUS status = RegCreateKeyExW(root_, full(entry.key).c_str(), 0, nullptr, 0,
                                         KEY_WRITE | view_, nullptr, &key, nullptr);
        if (status == ERROR_SUCCESS && entry.text)
            status = RegSetValueExW(key, entry.name, 0, REG_SZ,
                                    reinterpret_cast<const BYTE*>(entry.text->c_str()),
                                    static_cast<DWORD>((entry.text->size() + 1) * sizeof(wchar_t)));
        if (key != nullptr) RegCloseKey(key);
        note(status);
    }

    static std::wstring full(const std::wstring& name) { return L"Software\\Classes\\" + name; }

    void note(LSTATUS status) {
        if (failure_ == ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) failure_ = status;
    }

    HKEY root_;
    REGSAM view_;
    LSTATUS failure_ = ERROR_SUCCESS;
};

void removeOwn(Branch& branch) {
    for (const ClassInfo& info : classes()) {
        branch.remove(classKey(info));
        branch.remove(interfaceKey(info));
    }
}

void removeShared(Branch& branch) {
    for (const ClassInfo& info : classes()) {
        branch.remove(nameKey(info));
        branch.remove(versionedNameKey(info));
    }
    branch.remove(libraryKey());
}

}  // namespace

std::wstring fullPath(const std::wstring& path) {
    std::wstring full(32768, L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

HRESULT registerServer(Scope scope, const std::wstring& dllPath, Bits bits) {
    const std::wstring path = fullPath(dllPath);
    if (path.empty()) return HRESULT_FROM_WIN32(ERROR_INVALID_NAME);
    Branch branch(scope, bits);
    removeOwn(branch);
    branch.write(ownEntries(path));
    branch.write(sharedEntries(path, bits));
    return branch.result();
}

HRESULT unregisterServer(Scope scope, Bits bits) {
    Branch branch(scope, bits);
    removeOwn(branch);
    removeShared(branch);
    HRESULT kept = S_OK;
    const Bits other = bits == Bits::B64 ? Bits::B32 : Bits::B64;
    if (const Registered remaining = registered(scope, other); remaining.classes != 0) {
        Branch rest(scope, other);
        rest.write(sharedEntries(remaining.dllPath, other));
        kept = rest.result();
    }
    // A new user has none of these.
    for (const wchar_t* shared : {L"CLSID", L"Interface", L"TypeLib"}) branch.removeEmpty(shared);
    return FAILED(branch.result()) ? branch.result() : kept;
}

Registered registered(Scope scope, Bits bits) {
    const Branch branch(scope, bits);
    Registered found;
    for (const ClassInfo& info : classes()) {
        const auto path = branch.textIn(classKey(info) + L"\\InprocServer32");
        if (path && found.classes++ == 0) found.dllPath = *path;
    }
    return found;
}

}  // namespace quorkit::automation
