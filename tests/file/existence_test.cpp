#include <gtest/gtest.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

TEST(Existence, OfFilesAndFolders) {
    Scratch scratch;
    fs::create_directories(scratch.path("full/empty"));
    scratch.write("full/f.txt", "");
    const String full = scratch.name("full");
    Late file(u"GQuorFile");
    file.expect(
        {u"FileExists", u"PathExists", u"IsDirectoryEmpty"},
        {Row({full}, {true, true, false}), Row({full + u"\\"}, {true, true, false}),
         Row({full + u"\\empty"}, {true, true, true}),
         Row({full + u"\\empty\\"}, {true, true, true}),
         Row({full + u"\\f.txt"}, {true, false, false}),
         Row({full + u"\\none"}, {false, false, false}),
         Row({full + u"\\none\\none"}, {false, false, false}),
         Row({full + String(u"\0", 1)}, {false, false, false}), Row({u""}, {false, false, false})});
    file.expect(u"PathExists",
                {Row({full + u"\\*"}, true), Row({full + u"\\e*"}, true),
                 Row({full + u"\\*.txt"}, false), Row({full + u"\\x*"}, false),
                 Row({full + u"\\*\\empty"}, false), Row({u"\\"}, false), Row({u"C"}, false)});
}

TEST(Existence, OfAFolderThatCannotBeReadToItsEnd) {
    Scratch scratch;
    FaultyFiles files(ports::native().files);
    MemoryPorts memory;
    Ports ports{files, memory.drives, memory.system, memory.host};
    files.answer(1, kGeneralFailure, "FindNext");
    EXPECT_EQ(Late(u"GQuorFile", ports)(u"IsDirectoryEmpty", {scratch.name("")}), Variant(false));
}

TEST(Existence, MakesFoldersAndThoseAroundThem) {
    Scratch scratch;
    scratch.write("f", "");
    Late file(u"GQuorFile");
    const String top = scratch.name("") + u"a";
    file.expect(u"mkDirEx",
                {Row({top + u"\\b\\c"}, true), Row({top + u"\\b\\c"}, true),
                 Row({top + u"\\d\\e\\"}, true), Row({scratch.name("f")}, false),
                 Row({scratch.name("f") + u"\\x"}, false), Row({u""}, false),
                 Row({u"Q:\\a\\b"}, false), Row({top + u"\\" + String(300, u'x')}, false)});
    EXPECT_TRUE(fs::is_directory(scratch.path("a/b/c")) && fs::is_directory(scratch.path("a/d/e")));

    // A bare name stands in the current folder.
    const fs::path before = fs::current_path();
    fs::current_path(scratch.folder());
    file.expect(u"mkDirEx", {Row({u"bare"}, true), Row({u"x"}, true), Row({u"f"}, false)});
    file.expect(u"PathExists", {Row({u"bar*"}, true), Row({u"*re"}, true)});
    fs::current_path(before);
    EXPECT_TRUE(fs::is_directory(scratch.path("bare")));
}

}  // namespace
}  // namespace quorkit::test
