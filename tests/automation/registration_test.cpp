#include "automation/registration.h"

#include <gtest/gtest.h>
#include <quorkit/catalogue.h>
#include <quorkit/values.h>

#include <fstream>

#include "automation/guid.h"
#include "describe/describe.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

using namespace automation;

using Lines = std::vector<std::wstring>;

HKEY open(Scope scope, const std::wstring& path, REGSAM view) {
    HKEY key = nullptr;
    RegOpenKeyExW(scope == Scope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE,
                  (L"Software\\Classes\\" + path).c_str(), 0, KEY_READ | view, &key);
    return key;
}

Lines keysIn(HKEY key) {
    Lines names;
    wchar_t name[256];
    for (DWORD length = 256; RegEnumKeyExW(key, static_cast<DWORD>(names.size()), name, &length,
                                           nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         length = 256)
        names.emplace_back(name);
    return names;
}

void addAll(Lines& lines, Scope scope, const std::wstring& path, REGSAM view) {
    HKEY const key = open(scope, path, view);
    lines.push_back(path);
    wchar_t name[64];
    wchar_t text[512];
    for (DWORD i = 0, length = 64, size = sizeof text;
         RegEnumValueW(key, i, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(text),
                       &size) == ERROR_SUCCESS;
         ++i, length = 64, size = sizeof text)
        lines.push_back(std::wstring(name) + L'=' + std::wstring(text, size / sizeof *text));
    for (const std::wstring& beneath : keysIn(key))
        addAll(lines, scope, path + L'\\' + beneath, view);
    RegCloseKey(key);
}

/// All that is ours as both kinds of programs see it, and the keys around it.
Lines entries(Scope scope) {
    Lines lines;
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        for (const wchar_t* parent : {L"", L"CLSID\\", L"Interface\\", L"TypeLib\\"}) {
            HKEY const key = open(scope, parent, view);
            lines.push_back(key == nullptr ? L"" : parent);
            for (const std::wstring& name : keysIn(key))
                if (name.starts_with(L"quorkit.") || name.find(L"-04B8-44F9-AADF-") == 9)
                    addAll(lines, scope, parent + name, view);
            RegCloseKey(key);
        }
    }
    return lines;
}

String textAt(Scope scope, const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[512] = {};
    DWORD size = sizeof text;
    HKEY const opened = open(scope, key, KEY_WOW64_64KEY);
    RegGetValueW(opened, nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size);
    RegCloseKey(opened);
    const std::wstring found = text;
    return {found.begin(), found.end()};
}

class Registration : public testing::Test {
   protected:
    const std::wstring identity_ = L"{673D863F-04B8-44F9-AADF-94B1A8221C8D}";
    const std::wstring class_ = L"CLSID\\" + identity_;
    const std::wstring library_ = L"TypeLib\\{673D863D-04B8-44F9-AADF-94B1A8221C8D}\\1.0";

    Registration() {
        for (const Scope scope : {Scope::User, Scope::Machine}) {
            // A system may have no classes of this user yet.
            HKEY key = nullptr;
            RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes", &key);
            RegCloseKey(key);
            for (const Bits bits : {Bits::B32, Bits::B64}) unregisterServer(scope, bits);
        }
    }
};

TEST_F(Registration, WritesWhatClientsLookFor) {
    const std::wstring name = L"quorkit.GQuorStrings";
    const std::wstring face = L"Interface\\{673D863E-04B8-44F9-AADF-94B1A8221C8D}";
    const struct {
        std::wstring key;
        StringView text;
    } rows[] = {
        {class_ + L"\\InprocServer32", u"C:\\a\\quorkit.dll"},
        {class_ + L"\\ProgID", u"quorkit.GQuorStrings.1"},
        {class_ + L"\\VersionIndependentProgID", u"quorkit.GQuorStrings"},
        {class_ + L"\\TypeLib", u"{673D863D-04B8-44F9-AADF-94B1A8221C8D}"},
        {class_ + L"\\Version", u"1.0"},
        {name + L"\\CurVer", u"quorkit.GQuorStrings.1"},
        {name + L"\\CLSID", u"{673D863F-04B8-44F9-AADF-94B1A8221C8D}"},
        {name + L".1\\CLSID", u"{673D863F-04B8-44F9-AADF-94B1A8221C8D}"},
        {face, u"_GQuorStrings"},
        {face + L"\\ProxyStubClsid32", u"{00020420-0000-0000-C000-000000000046}"},
        {face + L"\\TypeLib", u"{673D863D-04B8-44F9-AADF-94B1A8221C8D}"},
        {library_, u"quorkit"},
        {library_ + L"\\0\\win64", u"C:\\a\\quorkit.dll"},
        {library_ + L"\\FLAGS", u"0"},
        {library_ + L"\\HELPDIR", u"C:\\a"},
    };
    for (const Scope scope : {Scope::User, Scope::Machine}) {
        const Lines before = entries(scope);
        ASSERT_EQ(registerServer(scope, L"C:\\a\\b\\..\\quorkit.dll", Bits::B64), S_OK);
        for (const auto& row : rows) EXPECT_EQ(textAt(scope, row.key), row.text);
        EXPECT_EQ(textAt(scope, class_ + L"\\InprocServer32", L"ThreadingModel"), u"Apartment");
        EXPECT_EQ(registered(scope, Bits::B64).classes, classes().size());
        const Lines once = entries(scope);
        ASSERT_EQ(registerServer(scope, L"D:\\other.dll", Bits::B64), S_OK);
        EXPECT_EQ(registered(scope, Bits::B64).dllPath, L"D:\\other.dll");
        ASSERT_EQ(registerServer(scope, L"C:\\a\\quorkit.dll", Bits::B64), S_OK);
        EXPECT_TRUE(entries(scope) == once);
        ASSERT_EQ(unregisterServer(scope, Bits::B64), S_OK);
        EXPECT_TRUE(entries(scope) == before);
    }
}

TEST_F(Registration, KeepsTheBitnessesApart) {
    constexpr Scope scope = Scope::Machine;
    const auto path = [](Bits bits) {
        return bits == Bits::B32 ? L"C:\\b\\q.dll" : L"C:\\a\\q.dll";
    };
    const Lines before = entries(scope);
    for (const Bits first : {Bits::B32, Bits::B64}) {
        const Bits second = first == Bits::B32 ? Bits::B64 : Bits::B32;
        ASSERT_EQ(registerServer(scope, path(first), first), S_OK);
        const Lines one = entries(scope);
        ASSERT_EQ(registerServer(scope, path(second), second), S_OK);
        EXPECT_EQ(registered(scope, first).dllPath, path(first));
        EXPECT_EQ(registered(scope, second).dllPath, path(second));
        ASSERT_EQ(unregisterServer(scope, second), S_OK);
        EXPECT_TRUE(entries(scope) == one);
        ASSERT_EQ(unregisterServer(scope, first), S_OK);
        EXPECT_TRUE(entries(scope) == before);
    }
}

TEST_F(Registration, RemovesWhatIsLeftOfOne) {
    const Lines before = entries(Scope::User);
    for (const std::wstring& lost : {class_, library_, std::wstring(L"quorkit.QuorInifile.1")}) {
        ASSERT_EQ(registerServer(Scope::User, L"C:\\q.dll"), S_OK);
        ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + lost).c_str()), 0);
        EXPECT_EQ(unregisterServer(Scope::User), S_OK);
        EXPECT_TRUE(entries(Scope::User) == before);
    }
    EXPECT_EQ(unregisterServer(Scope::User), S_OK);
}

TEST_F(Registration, CanBeReplacedByTheManifest) {
    const Scratch scratch;
    const auto manifest = scratch.folder() / "quorkit.automation.manifest";
    std::ofstream(manifest) << describe::asManifest();
    ACTCTXW context = {};
    context.cbSize = sizeof context;
    const std::wstring path = manifest.wstring();
    context.lpSource = path.c_str();
    const HANDLE made = CreateActCtxW(&context);
    ASSERT_NE(made, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    CLSID found = {};
    EXPECT_EQ(CLSIDFromProgID(L"quorkit.GQuorStrings", &found), CO_E_CLASSSTRING);
    ASSERT_TRUE(ActivateActCtx(made, &cookie));
    for (const ClassInfo& info : classes()) {
        for (const char* version : {"", ".1"}) {
            const std::string ascii = std::string("quorkit.") + info.name + version;
            const std::wstring name(ascii.begin(), ascii.end());
            EXPECT_EQ(CLSIDFromProgID(name.c_str(), &found), S_OK) << ascii;
        }
        const GUID identity = guidOf(info.identity);
        ACTCTX_SECTION_KEYED_DATA data = {};
        data.cbSize = sizeof data;
        EXPECT_TRUE(FindActCtxSectionGuid(
            0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, &identity, &data));
    }
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(made);
}

}  // namespace
}  // namespace quorkit::test
