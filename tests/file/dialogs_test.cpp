#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Dialogs, OfferKindsOfFiles) {
    const std::pair<String, String> cases[] = {
        {u"", u""},
        {u"Texts (*.txt)|*.txt|Tables|*.csv; *.tsv", u"Texts (*.txt):*.txt;|Tables:*.csv;*.tsv;|"},
        {u"All|;|", u"All:*;|"},
        {u"|*.a||", u"*.a:*.a;|"},
        {u"Texts|*.txt|All", u"Texts:*.txt;|All:*;|"},
    };
    MemoryPorts world;
    Late file(u"GQuorFile", world);
    for (const auto& [text, expected] : cases) {
        file.call(u"ShowOpenDialog", {u"", text});
        String filters;
        for (const FileFilter& filter : world.host.dialogs.back().filters) {
            filters += filter.name + u":";
            for (const String& pattern : filter.patterns) filters += pattern + u";";
            filters += u"|";
        }
        EXPECT_EQ(filters, expected);
    }
}

TEST(Dialogs, GiveWhatIsChosen) {
    MemoryPorts world;
    world.files.put(u"C:\\old.txt", "");
    Late file(u"GQuorFile", world);
    const std::vector<const char16_t*> dialogs = {u"ShowOpenDialog", u"ShowSaveDialog",
                                                  u"BrowseForFolder"};
    file.expect(dialogs, {Row({}, u"")});
    EXPECT_EQ(world.host.dialogs.back().browseFlags, 1u);
    world.host.chosen = u"C:\\a b\\c";
    file.expect(dialogs, {Row({}, u"C:\\a b\\c")});

    const auto save = [&](const char16_t* chosen, const char16_t* extension) {
        world.host.dialogs.clear();
        world.host.chosen = chosen;
        return file(u"ShowSaveDialog", {u"T", u"", u"D:", u"f", extension}).get<String>();
    };
    EXPECT_EQ(save(u"C:\\new", u"txt"), u"C:\\new.txt");
    EXPECT_EQ(save(u"C:\\new.", u".txt"), u"C:\\new.");
    EXPECT_EQ(save(u"C:\\old.txt", u".txt"), u"C:\\old.txt");
    EXPECT_EQ(save(u"C:\\old", u".txt"), u"");  // twice, without seeing what would be lost
    String shown;
    for (const FileDialog& one : world.host.dialogs)
        shown += one.title + u"|" + one.folder + u"|" + one.fileName + u"\n";
    EXPECT_EQ(shown, u"T|D:|f\nT|C:\\|old.txt\n");
}

}  // namespace
}  // namespace quorkit::test
