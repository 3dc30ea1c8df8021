#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Dialogs, OfferKindsOfFilesAndGiveWhatIsChosen) {
    MemoryPorts world;
    Late file(u"GQuorFile", world);
    const std::vector<const char16_t*> dialogs = {u"ShowOpenDialog", u"ShowSaveDialog",
                                                  u"BrowseForFolder"};
    file.expect(dialogs, {Row({}, u"")});
    EXPECT_TRUE(world.host.dialogs[0].filters.empty());
    EXPECT_EQ(world.host.dialogs.back().browseFlags, 1u);
    world.host.chosen = u"C:\\a b\\c";
    file.expect(dialogs, {Row({}, u"C:\\a b\\c")});

    String shown;
    file(u"ShowOpenDialog", {u"", u"T (*.t)|*.t|Tables|*.csv; *.tsv|All|;||*.a|||Last"});
    for (const FileFilter& filter : world.host.dialogs.back().filters) {
        shown += filter.name + u":";
        for (const String& pattern : filter.patterns) shown += pattern + u";";
    }
    EXPECT_EQ(shown, u"T (*.t):*.t;Tables:*.csv;*.tsv;All:*;*.a:*.a;Last:*;");

    world.files.put(u"C:\\old.txt", "");
    const auto save = [&](const char16_t* chosen, const char16_t* extension,
                          const char16_t* saved) {
        world.host.chosen = chosen;
        EXPECT_EQ(file(u"ShowSaveDialog", {u"T", u"", u"D:", u"f", extension}), Variant(saved));
    };
    save(u"C:\\new", u"txt", u"C:\\new.txt");
    save(u"C:\\new.", u".txt", u"C:\\new.");
    save(u"C:\\old.txt", u".txt", u"C:\\old.txt");
    world.host.dialogs.clear();
    shown.clear();
    save(u"C:\\old", u".txt", u"");  // twice, without having seen the file that would be lost
    for (const FileDialog& one : world.host.dialogs)
        shown += one.title + u"|" + one.folder + u"|" + one.fileName + u"\n";
    EXPECT_EQ(shown, u"T|D:|f\nT|C:\\|old.txt\n");
}

}  // namespace
}  // namespace quorkit::test
