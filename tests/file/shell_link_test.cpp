// Shortcuts as Windows reads them.
#ifdef _WIN32
#include "file/shell_link.h"

#include <gtest/gtest.h>
#include <shlobj.h>
#include <windows.h>

#include "support/scratch.h"

namespace quorkit::test {
namespace {

TEST(ShellLink, IsReadByTheSystem) {
    const file::ShellLink links[] = {
        {u"C:\\Windows\\notepad.exe", u"\u20AC \u0416", 32, 3, 1},
        {u"C:\\\u00E4", u"", 16, 3, 1},
        {u"\\\\srv\\share\\f", u"network", 0, 0, 0},
        {u"", u"nowhere", 0, 0, 0},
    };
    CoInitialize(nullptr);
    Scratch scratch;
    for (const file::ShellLink& one : links) {
        scratch.write("s.lnk", file::shellLinkFile(one));
        IShellLinkW* link = nullptr;
        ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&link)),
                  S_OK);
        IPersistFile* file = nullptr;
        link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file));
        EXPECT_EQ(file->Load(scratch.path("s.lnk").c_str(), STGM_READ), S_OK);
        wchar_t path[MAX_PATH] = {};
        wchar_t description[100] = {};
        link->GetPath(path, MAX_PATH, nullptr, 0);
        link->GetDescription(description, 100);
        const bool unknownToWine = one.target.starts_with(u"\\\\") && *path == L'\0';
        EXPECT_EQ(reinterpret_cast<char16_t*>(path), unknownToWine ? String() : one.target);
        EXPECT_EQ(reinterpret_cast<char16_t*>(description), one.description);
        file->Release();
        link->Release();
    }
    CoUninitialize();
}

}  // namespace
}  // namespace quorkit::test
#endif
