// Large sections and values, and a file that may not be written.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

class IniTest : public testing::Test {
   protected:
    static constexpr const char16_t* kFile = u"settings.ini";

    IniTest() { ini.let(u"IniFileName", kFile); }

    void content(std::string bytes) { world.files.put(kFile, std::move(bytes)); }
    static Variant entry(String key, String value) {
        Array<String> table({0, 2}, {0, 1});
        table.elements() = {std::move(key), std::move(value)};
        return table;
    }
    static Variant names(std::vector<String> list) { return Array<String>(std::move(list)); }

    MemoryPorts world;
    Late ini{u"QuorInifile", world};
};

TEST_F(IniTest, ReadsAsMuchOfASectionAsItsBufferTakes) {
    std::string lines = "[S]\n";
    for (int i = 0; i < 5000; ++i) lines += "ke" + std::to_string(10000 + i) + "y=x\n";
    content(lines);  // each entry takes 11 characters; a last one that is cut goes
    EXPECT_EQ(ini.call(u"ReadSectionKeys", {u"S", 0}).arguments[1], Variant(3640));
    const std::pair<Variant, Long> sizes[] = {
        {Variant::missing(), 2978}, {1000, 2978}, {u"55002", 5000}, {55000, 4999}};
    for (const auto& [size, count] : sizes)
        EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0, size}).arguments[1], Variant(count));
    // What is rewritten is not what is handed to callers.
    const Variant changed = entry(u"ke14999y", u"new");
    const Variant list = names({u"ke14999y"});
    const struct {
        const char16_t* member;
        std::vector<Variant> arguments;
        Long left;
    } calls[] = {{u"WriteMultiLineValue", {u"S", u"ke14999y", u"x\r\ny"}, 5002},
                 {u"WriteMultiLineSection", {u"S", changed}, 5000},
                 {u"WriteSectionContent", {u"S", changed}, 5000},
                 {u"WriteSectionContent", {u"S", changed, 40000}, 5000},
                 {u"DeleteMultiLineKey", {u"S", u"ke14999y"}, 4999},
                 {u"DeleteKeys", {u"S", list, 40000}, 4999}};
    for (const auto& one : calls) {
        content(lines);
        ini.expect(one.member, {Row(one.arguments, 1)});
        EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0, 1000000}).arguments[1],
                  Variant(one.left));
    }
    ini(u"WriteKeyValue", {u"S", u"long", String(5000, u'x')});
    ini.expect(u"ReadKeyValue", {Row({u"S", u"long", u""}, String(4095, u'x'))});
}

TEST_F(IniTest, KeepsValuesOfManyLines) {
    String many(4000, u'x');
    for (int i = 0; i < 300; ++i) many += u"\r\n" + String(4000, u'x');
    ini.expect(u"WriteMultiLineValue", {Row({u"S", u"K", many}, 1)});
    ini.expect(u"ReadMultiLineValue", {Row({u"S", u"K"}, many)});

    const Long size = 1000000;
    String text = u"line";
    for (int i = 1; i < 20000; ++i) text += u"\r\nline of the text";
    ini(u"WriteMultiLineValue", {u"S", u"K", text});
    ini.expect(u"ReadMultiLineSection", {Row({u"S", 0, size}, {entry(u"K", text), 1, size})});
}

TEST_F(IniTest, LeavesAFileThatMayNotBeWritten) {
    content("[S]\na=1\nb=2\n");
    world.files.setReadOnly(kFile);
    ini.expect(u"DeleteKeys", {Row({u"S", names({u"b"})}, -1)});
    EXPECT_EQ(world.files.content(kFile), "[S]\na=1\nb=2\n");
}

}  // namespace
}  // namespace quorkit::test
