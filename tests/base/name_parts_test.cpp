#include "base/name_parts.h"

#include <gtest/gtest.h>

namespace quorkit::base {
namespace {

TEST(NameParts, SayWhereANameBegins) {
    using P = NameParts;
    using Case = std::tuple<StringView, P::Start, char16_t, String, bool>;
    for (const Case& one :
         {Case(u"", P::Here, 0, u"", false), Case(u"a\\b/c/", P::Here, 0, u"a|b|c|", true),
          Case(u"\\a", P::Root, 0, u"a|", false), Case(u"/", P::Root, 0, u"", true),
          Case(u"//a", P::Root, 0, u"a|", false), Case(u"a:\\a", P::Drive, u'A', u"a|", false),
          Case(u"Z:/", P::Drive, u'Z', u"", true),
          Case(u"C:\\\\s\\\\t\\\\", P::Drive, u'C', u"s|t|", true),
          Case(u"C:a\\b", P::HereOnDrive, u'C', u"a|b|", false),
          Case(u"d:", P::HereOnDrive, u'D', u"", false),
          Case(u"1:\\a", P::Here, 0, u"1:|a|", false),
          Case(u"\u00E4:x", P::Here, 0, u"\u00E4:x|", false),
          Case(u"\\\\srv\\share\\d", P::Network, 0, u"srv|share|d|", false),
          Case(u"\\\\", P::Network, 0, u"", true)}) {
        const StringView name = std::get<StringView>(one);
        const NameParts parts = partsOf(name);
        String components;
        for (const StringView component : parts.components) components += String(component) + u'|';
        EXPECT_EQ(Case(name, parts.start, parts.drive, components, parts.folder), one);
    }
}

}  // namespace
}  // namespace quorkit::base
