// Folders, their entries and attributes, and the look-up of names, in every implementation.
#include <map>

#include "ports/implementations.h"

namespace quorkit::test {
namespace {

class FoldersTest : public EachImplementation {
   protected:
    void SetUp() override {
        ASSERT_EQ(folders.CreateDirectoryA(name("d")), kSuccess);
        write("f", "x");
    }
    /// The entries of a folder by name.
    std::map<String, FindData> list(const String& folder, FindDetail detail) {
        std::map<String, FindData> entries;
        FindData entry;
        ErrorCode code = folders.FirstEntry(folder, detail, opened, entry);
        EXPECT_EQ(code, kSuccess);
        for (; code == kSuccess; code = folders.NextEntry(opened, entry))
            entries[entry.name] = entry;
        EXPECT_EQ(code, kNoMoreFiles);
        EXPECT_EQ(folders.NextEntry(opened, entry), kNoMoreFiles);
        folders.EndListing(opened);
        return entries;
    }
    std::uint32_t attributes(const std::string& file) {
        std::uint32_t result = 0xFFFFFFFF;
        EXPECT_EQ(folders.GetFileAttributesA(name(file), result), kSuccess) << file;
        return result;
    }
    ErrorCode lookUp(const String& name) {
        std::uint32_t ignored = 0;
        return folders.GetFileAttributesA(name, ignored);
    }
};

TEST_P(FoldersTest, AreMadeOneAtATime) {
    EXPECT_EQ(folders.CreateDirectoryA(name("d")), kFileExists);
    EXPECT_EQ(folders.CreateDirectoryA(name("f")), kFileExists);
    EXPECT_EQ(folders.CreateDirectoryA(name("no/d")), kPathNotFound);
    EXPECT_EQ(folders.CreateDirectoryA(name("f/d")), kPathNotFound);
    EXPECT_EQ(folders.CreateDirectoryA(name("d/d/")), kSuccess);
    EXPECT_EQ(attributes("d/d"), attributes("d"));
    EXPECT_EQ(files.DeleteFileA(name("d")), kAccessDenied);
    EXPECT_EQ(attributes("d") & (kReadOnly | kDirectory | kReparsePoint), kDirectory);
}

TEST_P(FoldersTest, AreListed) {
    EXPECT_EQ(list(name("d"), FindDetail::Names).size(), 2u);
    write("d/one", "1");
    write("d/two", "2");
    makeReadOnly("d/two");
    ASSERT_EQ(folders.CreateDirectoryA(name("d/sub")), kSuccess);
    for (const char16_t* end : {u"", u"\\", u"/"}) {
        auto entries = list(name("d") + end, FindDetail::Names);
        EXPECT_EQ(entries.size(), 5u);
        for (const char16_t* folder : {u".", u"..", u"sub"})
            EXPECT_EQ(entries[folder].attributes, kDirectory);
        for (const char16_t* file : {u"one", u"two"}) EXPECT_EQ(entries[file].attributes, 0u);
    }
    EXPECT_GT(list(name("d"), FindDetail::Times)[u"one"].lastWrite, 0u);
    const auto entries = list(name("d"), FindDetail::Attributes);
    for (const std::string one : {"one", "two", "sub"})
        EXPECT_EQ(entries.at(String(one.begin(), one.end())).attributes, attributes("d/" + one));

    FindData entry;
    for (const char* no : {"no", "no/d", "f"})
        EXPECT_EQ(folders.FirstEntry(name(no), FindDetail::Names, opened, entry), kPathNotFound);
}

TEST_P(FoldersTest, AndFilesAreLookedUpEitherWaySeparatedWhateverTheLetterCase) {
    EXPECT_EQ(attributes("f") & (kReadOnly | kDirectory | kReparsePoint), 0u);
    makeReadOnly("f");
    EXPECT_EQ(attributes("f") & (kReadOnly | kDirectory), kReadOnly);
    EXPECT_EQ(lookUp(name("no")), kFileNotFound);
    EXPECT_EQ(lookUp(name("no/f")), kPathNotFound);
    for (const String& no : {name("no") + u'\0', String()}) EXPECT_EQ(lookUp(no), kInvalidName);

    write("d/One", "1");
    for (const char16_t* end : {u"\\One", u"/One", u"\\..\\d\\.\\One", u"\\one", u"\\ONE"})
        EXPECT_EQ(lookUp(name("d") + end), kSuccess);
    EXPECT_EQ(lookUp(name("D") + u"\\oNE"), kSuccess);
    EXPECT_EQ(folders.CreateDirectoryA(name("D")), kFileExists);
    EXPECT_EQ(files.Open(name("D/oNE"), FileAccess::CreateNew, opened), kFileExists);
}

TEST_P(FoldersTest, LinksCountAsWhatTheyLeadTo) {
    if (!makeLink("toF", "f")) GTEST_SKIP() << "no links can be made here";
    write("d/in", "y");
    for (const auto& [link, target] : std::map<std::string, std::string>{
             {"toD", "d"}, {"d/toNothing", "nothing"}, {"d/loop", "loop"}, {"d/toIn", "in"}})
        makeLink(link, target);

    EXPECT_EQ(attributes("toF"), attributes("f") | kReparsePoint);
    EXPECT_EQ(attributes("toD"), attributes("d") | kReparsePoint);
    EXPECT_EQ(read("toD/toIn"), "y");
    EXPECT_EQ(lookUp(name("d/toNothing")), kFileNotFound);
    EXPECT_NE(lookUp(name("d/loop")), kSuccess);
    const auto entries = list(name("toD"), FindDetail::Attributes);
    EXPECT_EQ(entries.size(), 6u);
    EXPECT_EQ(entries.at(u"toIn").attributes, attributes("d/in") | kReparsePoint);
    for (const char16_t* name : {u"toNothing", u"loop"})
        EXPECT_EQ(entries.at(name).attributes & (kDirectory | kReparsePoint), kReparsePoint);
    EXPECT_EQ(files.DeleteFileA(name("toF")), kSuccess);
    EXPECT_EQ(read("f"), "x");
}

INSTANTIATE_TEST_SUITE_P(Implementations, FoldersTest, testing::Bool(), nameOfImplementation);

TEST(MemoryFiles, HaveDrivesSharesAndAttributesAsToldTo) {
    MemoryFiles files;
    MemoryFolders folders(files);
    files.put(u"\\\\srv\\share\\d\\b", "");
    files.put(u"//SRV/x", "");  // no share, but a folder of C:
    files.put(u"d:a", "");
    files.setAttributes(u"D:\\A", kHidden | kDirectory);
    files.setLastWrite(u"D:/a", 7);
    std::uint32_t attributes = 0;
    EXPECT_EQ(folders.GetFileAttributesA(u"D:\\a", attributes), kSuccess);
    EXPECT_EQ(attributes, kHidden);
    EXPECT_EQ(folders.GetFileAttributesA(u"\\\\SRV\\Share", attributes), kSuccess);
    EXPECT_EQ(attributes, kDirectory);
    EXPECT_EQ(folders.GetFileAttributesA(u"c:\\srv\\x", attributes), kSuccess);
    EXPECT_EQ(folders.GetFileAttributesA(u"\\\\srv", attributes), kInvalidName);
    EXPECT_EQ(folders.GetFileAttributesA(u"E:\\", attributes), kPathNotFound);
    String final;
    EXPECT_EQ(files.FinalName(u"/SRV/./Y", final), kSuccess);
    EXPECT_EQ(final, u"C:\\SRV\\Y");

    Handle search = Handle::Invalid;
    FindData entry;
    EXPECT_EQ(folders.FirstEntry(u"D:\\", FindDetail::Times, search, entry), kSuccess);
    EXPECT_EQ(entry.name, u"a");  // a root has no "."
    EXPECT_EQ(entry.lastWrite, 7u);
    folders.EndListing(search);
    files.addFolder(u"E:");
    EXPECT_EQ(folders.FirstEntry(u"E:\\", FindDetail::Names, search, entry), kFileNotFound);
    EXPECT_THROW(files.put(u"D:\\a\\b", ""), std::invalid_argument);
}

}  // namespace
}  // namespace quorkit::test
