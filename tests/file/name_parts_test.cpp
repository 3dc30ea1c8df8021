#include "file/name_parts.h"

#include <gtest/gtest.h>

#include "cli/utf8.h"

namespace quorkit::test {
namespace {

TEST(NameParts, SayWhereANameBegins) {
    using P = NameParts;
    const struct {
        StringView name;
        P::Start start;
        char16_t drive;
        std::vector<StringView> components;
        bool folder;
    } cases[] = {
        {u"", P::Here, 0, {}, false},
        {u"a", P::Here, 0, {u"a"}, false},
        {u"a\\b/c/", P::Here, 0, {u"a", u"b", u"c"}, true},
        {u"\\a", P::Root, 0, {u"a"}, false},
        {u"/", P::Root, 0, {}, true},
        {u"//a", P::Root, 0, {u"a"}, false},
        {u"c:\\a", P::Drive, u'C', {u"a"}, false},
        {u"Z:/", P::Drive, u'Z', {}, true},
        {u"C:\\\\s\\\\t\\\\", P::Drive, u'C', {u"s", u"t"}, true},
        {u"C:a\\b", P::HereOnDrive, u'C', {u"a", u"b"}, false},
        {u"d:", P::HereOnDrive, u'D', {}, false},
        {u"1:\\a", P::Here, 0, {u"1:", u"a"}, false},
        {u"\u00E4:x", P::Here, 0, {u"\u00E4:x"}, false},
        {u"\\\\srv\\share\\d", P::Network, 0, {u"srv", u"share", u"d"}, false},
        {u"\\\\", P::Network, 0, {}, true},
    };
    for (const auto& one : cases) {
        const NameParts parts = partsOf(one.name);
        EXPECT_TRUE(parts.start == one.start && parts.drive == one.drive &&
                    parts.components == one.components && parts.folder == one.folder)
            << cli::toUtf8(one.name);
    }
}

}  // namespace
}  // namespace quorkit::test
