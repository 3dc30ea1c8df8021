#include <gtest/gtest.h>
#include <quorkit/enumerations.h>

#include "support/collections.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(ReadAllVarFields, ListsTheNames) {
    const struct {
        std::vector<Variant> arguments;
        const char16_t* names;
    } cases[] = {
        {{u"Dear @#Name#@, @#City#@"}, u":Name|:City|"},
        {{u"@#Name#@ text"}, u""},  // the search starts behind it
        {{u" @#Name#@"}, u""},
        {{u"  @#Name#@"}, u":Name|"},
        {{u"x @#A#@@#A#@"}, u":A|:A|"},
        {{u"x @##@@#B#@"}, u":B|"},
        {{u"x @#a@#b#@"}, u":a@#b|"},
        {{u"x @#open"}, u""},
        {{u"x @#A#@ @#open"}, u":A|"},
        {{u""}, u""},
        {{u"....<Ab>c<de>", u"<", u">"}, u":Ab|:de|"},
        {{u"-----begIn X eNd-", u"BEGIN", u"end"}, u": X |"},
        {{u"x @#A#@", u"", u"#@"}, u""},
        {{u"x @#A#@", u"@#", u""}, u""},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [arguments, names] : cases)
        EXPECT_EQ(flat(strings(u"ReadAllVarFields", arguments)), names);

    String text = u"--";
    for (int i = 0; i < 100'000; ++i) text += u"@#field#@";
    const auto fields = strings(u"ReadAllVarFields", {text}).get<ObjectRef>();
    EXPECT_EQ(std::dynamic_pointer_cast<Collection>(fields)->count(), 100'000);
}

TEST(SplitDOSCMDParam, SplitsAtTheFirstEqualsSign) {
    const struct {
        const char16_t* parameter;
        const char16_t* command;
        const char16_t* argument;
    } cases[] = {
        {u"/log=c:\\x=1", u"/log", u"c:\\x=1"},
        {u"/quiet", u"/quiet", u"as it was"},
        {u"=x", u"", u"x"},
        {u"/a=", u"/a", u""},
        {u"", u"", u"as it was"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [parameter, command, argument] : cases) {
        const auto outcome = strings.call(u"SplitDOSCMDParam", {parameter, u"", u"as it was"});
        EXPECT_EQ(outcome.arguments[1], Variant(command));
        EXPECT_EQ(outcome.arguments[2], Variant(argument));
    }
}

TEST(FieldNames, LoseOrShowTheirLineNumber) {
    const struct {
        const char16_t* field;
        Long convert;
        const char16_t* name;
        const char16_t* number;
    } cases[] = {
        {u"Street12", eConvertChars_toUpper, u"STREET", u"12"},
        {u"Str\u00E4\u00DFe012", eConvertChars_toUpper, u"STR\u00C4\u00DFE", u"012"},
        {u"Street1\u00C42", eConvertChars_toLower, u"street1\u00E4", u"2"},
        {u"Street", eConvertChars_noConvert, u"Street", u""},
        {u"Street\u0661", 3, u"Street\u0661", u""},
        {u"007", -1, u"", u"007"},
        {u"", eConvertChars_toUpper, u"", u""},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [field, convert, name, number] : cases) {
        EXPECT_EQ(strings(u"getFieldNameWithoutLineNumber", {field, convert}), Variant(name));
        EXPECT_EQ(strings(u"getFieldNameLineNumber", {field}), Variant(number));
    }
}

TEST(FieldNames, PositionsHave16Bits) {
    Late strings(u"GQuorStrings");
    const String longest(32767, u'7');
    EXPECT_EQ(strings(u"getFieldNameLineNumber", {longest}), Variant(longest));
    EXPECT_EQ(strings(u"getFieldNameWithoutLineNumber", {longest, Long{0}}), Variant(u""));
    EXPECT_EQ(strings.call(u"SplitDOSCMDParam", {longest, u"", u""}).arguments[1],
              Variant(longest));
    const String tooLong = longest + u"=";
    EXPECT_EQ(strings.errorOf(u"getFieldNameLineNumber", {tooLong}), 6);
    EXPECT_EQ(strings.errorOf(u"getFieldNameWithoutLineNumber", {tooLong, Long{0}}), 6);
    EXPECT_EQ(strings.errorOf(u"SplitDOSCMDParam", {tooLong, u"", u""}), 6);
}

}  // namespace
}  // namespace quorkit::test
