#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// The filters of a dialog as "name:pattern;pattern;|".
String filtersFor(const String& text) {
    MemoryPorts world;
    Late(u"GQuorFile", world).call(u"ShowOpenDialog", {u"", text});
    String flat;
    for (const FileFilter& filter : world.host.dialogs.at(0).filters) {
        flat += filter.name + u":";
        for (const String& pattern : filter.patterns) flat += pattern + u";";
        flat += u"|";
    }
    return flat;
}

TEST(Dialogs, OfferKindsOfFiles) {
    const std::pair<String, String> cases[] = {
        {u"", u""},
        {u"Texts (*.txt)|*.txt|Tables|*.csv; *.tsv", u"Texts (*.txt):*.txt;|Tables:*.csv;*.tsv;|"},
        {u"Texts|*.txt|All", u"Texts:*.txt;|All:*;|"},
        {u"All|;|", u"All:*;|"},
        {u"|*.a||", u"*.a:*.a;|"},
    };
    for (const auto& [text, filters] : cases) EXPECT_EQ(filtersFor(text), filters);
}

TEST(Dialogs, GiveWhatIsChosen) {
    MemoryPorts world;
    Late file(u"GQuorFile", world);
    const std::vector<const char16_t*> dialogs = {u"BrowseForFolder", u"ShowOpenDialog",
                                                  u"ShowSaveDialog"};
    file.expect(dialogs, {Row({}, u"")});
    world.host.chosen = u"C:\\a b\\c";
    file.expect(dialogs, {Row({}, u"C:\\a b\\c")});
    EXPECT_EQ(world.host.dialogs[0].browseFlags, 1u);

    file.expect(u"BrowseForFolder", {Row({u"T", u"C:\\x", Long{0x41}}, u"C:\\a b\\c")});
    EXPECT_EQ(world.host.dialogs.back().browseFlags, 0x41u);
    file.expect(u"ShowSaveDialog", {Row({u"T", u"", u"C:\\x", u"f"}, u"C:\\a b\\c")});
    const FileDialog& last = world.host.dialogs.back();
    EXPECT_EQ(last.title + u"|" + last.folder + u"|" + last.fileName, u"T|C:\\x|f");
}

TEST(Dialogs, AddTheDefaultExtension) {
    Scratch scratch;
    scratch.write("old.txt", "");
    MemoryPorts world;
    Ports ports{ports::native().files, world.drives, world.system, world.host};
    Late file(u"GQuorFile", ports);
    const auto save = [&](const String& chosen, const String& extension) {
        world.host.dialogs.clear();
        world.host.chosen = chosen;
        return file(u"ShowSaveDialog", {u"", u"", u"", u"", extension}).get<String>();
    };
    const String folder = scratch.name("");
    EXPECT_EQ(save(folder + u"new", u"txt"), folder + u"new.txt");
    EXPECT_EQ(save(folder + u"new", u".txt"), folder + u"new.txt");
    EXPECT_EQ(save(folder + u"new.csv", u"txt"), folder + u"new.csv");
    EXPECT_EQ(save(folder + u"new.", u"txt"), folder + u"new.");
    EXPECT_EQ(save(folder + u"old.txt", u"txt"), folder + u"old.txt");
    EXPECT_EQ(world.host.dialogs.size(), 1u);

    EXPECT_EQ(save(folder + u"old", u"txt"), u"");  // twice, without seeing what would be lost
    ASSERT_EQ(world.host.dialogs.size(), 2u);
    EXPECT_EQ(world.host.dialogs[1].folder, folder);
    EXPECT_EQ(world.host.dialogs[1].fileName, u"old.txt");
}

}  // namespace
}  // namespace quorkit::test
