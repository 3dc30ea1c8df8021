// The registry of Windows; a Handle is the system's own.
#include <algorithm>
#include <limits>

#include "base/registry_names.h"
#include "native/native_registry.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

constexpr DWORD kReadAndWrite = KEY_READ | KEY_WRITE;

HKEY keyOf(Handle handle) {
    return reinterpret_cast<HKEY>(handle);
}
HKEY keyOf(RegistryRoot root) {
    // The numbers of the roots are signed 32-bit numbers.
    return reinterpret_cast<HKEY>(
        static_cast<std::intptr_t>(static_cast<std::int32_t>(static_cast<std::uint32_t>(root))));
}

ErrorCode codeOf(LSTATUS status) {
    return status == ERROR_KEY_DELETED ? kFileNotFound : static_cast<ErrorCode>(status);
}

/// `path` with a single separator between names.
ErrorCode tidy(RegistryRoot root, const String& path, String& tidied) {
    std::vector<String> names;
    if (const ErrorCode code = base::splitKeyPath(path, names)) return code;
    if (root == RegistryRoot::None) return kInvalidHandle;
    for (const String& name : names) tidied.append(tidied.empty() ? u"" : u"\\").append(name);
    return kSuccess;
}

/// Runs `ask` with a growing buffer until the data fit. `ask` gets the size of the buffer, and sets
/// the size that it needs or has used.
template <class Ask>
LSTATUS askForData(std::string& data, Ask ask) {
    data.resize(256);
    for (;;) {
        auto size = static_cast<DWORD>(data.size());
        const LSTATUS status = ask(reinterpret_cast<BYTE*>(data.data()), &size);
        if (status == ERROR_SUCCESS) data.resize(size);
        if (status != ERROR_MORE_DATA) return status;
        data.resize(std::max<std::size_t>(size, 2 * data.size()));
    }
}

LSTATUS set(HKEY key, const NamedValue& one) {
    // Behind a text, the system looks for a U+0000 that the caller may have left out of the size,
    // and adds it. For half a character it starts looking in front of it.
    const std::string framed = std::string(2, '\0') + one.value.data + "\xFF\xFF\xFF";
    return ::RegSetValueExW(key, wide(one.name), 0, one.value.type,
                            reinterpret_cast<const BYTE*>(framed.data() + 2),
                            static_cast<DWORD>(one.value.data.size()));
}

class NativeRegistry final : public Registry {
   public:
    ErrorCode RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                            Handle& key) override {
        String tidied;
        if (const ErrorCode code = tidy(root, path, tidied)) return code;
        HKEY opened = nullptr;
        const LSTATUS status =
            ::RegOpenKeyExW(keyOf(root), wide(tidied), 0, static_cast<REGSAM>(access), &opened);
        if (status == ERROR_SUCCESS) key = Handle(reinterpret_cast<std::intptr_t>(opened));
        return codeOf(status);
    }

    ErrorCode RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) override {
        constexpr int mostLevels = 32;  // levels that one call can make
        String tidied;
        if (const ErrorCode code = tidy(root, path, tidied)) return code;
        HKEY made = nullptr;
        int level = 0;
        for (auto end = tidied.find(u'\\'); end != String::npos; end = tidied.find(u'\\', end + 1))
            // If this fails, the key exists already, or the last call reports it.
            if (++level % mostLevels == 0 &&
                create(root, tidied.substr(0, end), KEY_CREATE_SUB_KEY, made) == ERROR_SUCCESS)
                ::RegCloseKey(made);
        const LSTATUS status = create(root, tidied, kReadAndWrite, made);
        if (status == ERROR_SUCCESS) key = Handle(reinterpret_cast<std::intptr_t>(made));
        return codeOf(status);
    }

    void RegCloseKey(Handle key) override { ::RegCloseKey(keyOf(key)); }

    ErrorCode RegQueryValueExA(Handle key, const String& name, RegistryValue& value) override {
        if (!base::canNameValue(name)) return kInvalidParameter;
        RegistryValue found;
        DWORD type = 0;
        const LSTATUS status = askForData(found.data, [&](BYTE* data, DWORD* size) {
            return ::RegQueryValueExW(keyOf(key), wide(name), nullptr, &type, data, size);
        });
        found.type = type;
        if (status == ERROR_SUCCESS) value = std::move(found);
        return codeOf(status);
    }

    ErrorCode SetValues(Handle key, std::span<const NamedValue> values) override {
        constexpr std::size_t mostBytes = std::numeric_limits<DWORD>::max();
        for (const NamedValue& one : values)
            if (!base::canNameValue(one.name) || one.value.data.size() > mostBytes)
                return kInvalidParameter;
        LSTATUS status = ERROR_SUCCESS;
        for (std::size_t i = 0; i < values.size() && status == ERROR_SUCCESS; ++i)
            status = set(keyOf(key), values[i]);
        return codeOf(status);
    }

    ErrorCode RegDeleteValueA(Handle key, const String& name) override {
        if (!base::canNameValue(name)) return kInvalidParameter;
        return codeOf(::RegDeleteValueW(keyOf(key), wide(name)));
    }

    ErrorCode ListValues(Handle key, std::vector<NamedValue>& values) override {
        std::vector<NamedValue> found;
        String name(16'384, u'\0');
        for (;;) {
            NamedValue one;
            DWORD length = 0;
            DWORD type = 0;
            const LSTATUS status = askForData(one.value.data, [&](BYTE* data, DWORD* size) {
                length = static_cast<DWORD>(name.size());
                return ::RegEnumValueW(keyOf(key), static_cast<DWORD>(found.size()), wide(name),
                                       &length, nullptr, &type, data, size);
            });
            if (status != ERROR_SUCCESS) return endOfList(status, found, values);
            one.name = name.substr(0, length);
            one.value.type = type;
            found.push_back(std::move(one));
        }
    }

    ErrorCode ListKeys(Handle key, std::vector<String>& names) override {
        std::vector<String> found;
        String name(512, u'\0');
        for (;;) {
            auto length = static_cast<DWORD>(name.size());
            const LSTATUS status =
                ::RegEnumKeyExW(keyOf(key), static_cast<DWORD>(found.size()), wide(name), &length,
                                nullptr, nullptr, nullptr, nullptr);
            if (status != ERROR_SUCCESS) return endOfList(status, found, names);
            found.push_back(name.substr(0, length));
        }
    }

    ErrorCode RegDeleteKeyA(Handle parent, const String& name) override {
        if (!base::canNameKey(name)) return kInvalidParameter;
        return codeOf(::RegDeleteKeyW(keyOf(parent), wide(name)));
    }

    std::vector<RegistryDamage> FindDamage() override { return {}; }

   private:
    static LSTATUS create(RegistryRoot root, const String& path, REGSAM access, HKEY& key) {
        return ::RegCreateKeyExW(keyOf(root), wide(path), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                 access, nullptr, &key, nullptr);
    }

    template <class Entry>
    static ErrorCode endOfList(LSTATUS status, std::vector<Entry>& found,
                               std::vector<Entry>& result) {
        if (status != ERROR_NO_MORE_ITEMS) return codeOf(status);
        result = std::move(found);
        return kSuccess;
    }
};

}  // namespace

Registry& nativeRegistry() {
    static NativeRegistry registry;
    return registry;
}

}  // namespace quorkit::native
