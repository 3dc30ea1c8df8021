// Windows names on a Linux disk.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/ports.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "file/whole_file.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class LinuxNames : public testing::Test {
   protected:
    void put(const std::string& path) {
        fs::create_directories(scratch.path(path).parent_path());
        scratch.write(path, path);
    }
    /// The content of the file, which is its path in the folder, or the number of the error.
    std::string read(const String& name) {
        std::string content;
        const ErrorCode code = file::readWholeFile(files, name, content);
        return code == kSuccess ? content : std::to_string(code);
    }
    std::vector<String> list(const String& folder) {
        std::vector<String> names;
        Handle search = Handle::Invalid;
        FindData entry;
        if (folders.FirstEntry(folder, FindDetail::Names, search, entry) != kSuccess) return {};
        do {
            if (entry.name != u"." && entry.name != u"..") names.push_back(entry.name);
        } while (folders.NextEntry(search, entry) == kSuccess);
        folders.EndListing(search);
        return names;
    }
    String in(const String& name) { return windowsFolder + u'\\' + name; }

    Scratch scratch;
    Files& files = ports::native().files;
    Folders& folders = ports::native().folders;
    const String windowsFolder = u"C:" + scratch.folder().u16string();
};

TEST_F(LinuxNames, AreFoundAsSpelledElseWithoutRegardToCase) {
    for (const char* path : {"Both.txt", "both.txt", "Dir/Sub/One.TXT", "b/x", "a/y",
                             "\xC3\x84rger/\xC3\xBC", "two/Q", "TWO/q"})
        put(path);
    const std::pair<String, std::string> cases[] = {
        {u"both.txt", "both.txt"},
        {u"Both.txt", "Both.txt"},
        {u"BOTH.TXT", "Both.txt"},  // the first by code units
        {u"bOTH.txt", "Both.txt"},
        {u"dir\\SUB/one.txt", "Dir/Sub/One.TXT"},
        {u"dir\\\\Sub\\.\\..\\sub\\ONE.txt", "Dir/Sub/One.TXT"},
        {u"\u00E4RGER\\\u00DC", "\xC3\x84rger/\xC3\xBC"},
        {u"two\\q", "two/Q"},  // the folder as spelled, the file in it
        {u"Two\\Q", "TWO/q"},
        {u"A\\x", "2"},
        {u"A\\y\\z", "3"},
        {u"none\\y", "3"},
        {u"a\\none", "2"},
    };
    for (const auto& [name, content] : cases) EXPECT_EQ(read(in(name)), content) << content;
}

TEST_F(LinuxNames, KeepTheirSpellingFromWhatIsMissingOn) {
    put("Dir/one");
    EXPECT_EQ(folders.CreateDirectoryA(in(u"dir\\No\\")), kSuccess);
    for (const char16_t* name : {u"DIR\\New.Txt", u"dir\\NO\\X"}) {
        Handle handle = Handle::Invalid;
        EXPECT_EQ(files.Open(in(name), FileAccess::CreateNew, handle), kSuccess);
        EXPECT_EQ(files.CloseHandle(handle), kSuccess);
    }
    for (const char* path : {"Dir/New.Txt", "Dir/No/X"})
        EXPECT_TRUE(fs::exists(scratch.path(path))) << path;
}

TEST_F(LinuxNames, BeginAtDrivesAndFolders) {
    put("d/f");
    const fs::path before = fs::current_path();
    fs::current_path(scratch.path("d"));
    for (const String& name :
         {String(u"f"), String(u"C:F"), String(u".\\f"), String(u"C:..\\D\\f"),
          u"\\" + windowsFolder.substr(3) + u"\\d\\f", u"//" + windowsFolder.substr(3) + u"/d/f"})
        EXPECT_EQ(read(name), "d/f");
    EXPECT_FALSE(std::ranges::count(list(u"C:"), u"f"));
    for (const char16_t* root : {u"C:", u"c:\\"})
        EXPECT_TRUE(std::ranges::count(list(root), u"etc"));
    fs::current_path(before);
    for (const char16_t* name : {u"A:\\f", u"B:f", u"\\\\quorkit-nowhere\\share\\f"})
        EXPECT_EQ(read(name), "3");
    EXPECT_TRUE(list(u"\\\\").empty());
}

TEST_F(LinuxNames, OfAnyBytesOpenAgain) {
    std::vector<std::string> names;
    for (const char* name :
         {"\\", "a\\b", "\xC3", "\xC3\xC3\xA4\xA4", "\xED\xA0\x80", "\xF0\x9F\x98\x80\x9F",
          "\xF4\x90\x80\x80", "\xC0\xAF", "\xE2\x82", "line\nend", " ", "..."})
        names.push_back("d/" + std::string(name));
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '.') names.push_back("d/x" + std::string(1, char(byte)));
    for (const std::string& name : names) put(name);

    const std::vector<String> listed = list(in(u"D"));
    std::vector<std::string> contents;
    for (const String& name : listed) contents.push_back(read(in(u"d\\") + name));
    std::ranges::sort(names);
    std::ranges::sort(contents);
    EXPECT_EQ(contents, names);

    EXPECT_TRUE(std::ranges::count(listed, String(u"a\xDC5C") + u"b"));
    for (const String& name : {String(u"\xD800"), String(u"x\xDC2F") + u"y", String(u"\xDC00"),
                               String(u"\xDC7F"), String(u"\xDD00"), String(u"a\0b", 3)})
        EXPECT_EQ(read(in(u"d\\") + name), std::to_string(kInvalidName));
}

}  // namespace
}  // namespace quorkit::test
#endif
