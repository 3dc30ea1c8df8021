#include "base/unicode.h"
#include "support/each_registry.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

using Results = std::vector<Variant>;

std::string data(const String& text) {
    return base::toUtf16(text + u'\0');
}
/// The results of Reg_EnumSubPaths for these names.
Results listed(const Names& names) {
    return {static_cast<Long>(names.size()), Array<String>(names, 1)};
}

class GQuorRegistryTest : public EachRegistry {
   protected:
    Late members{u"GQuorRegistry", world};
    const String path = u"HKCU\\" + base;
    std::shared_ptr<Dictionary> items = Dictionary::make();

    /// Calls a member without a result.
    void run(const char16_t* member, const Results& arguments) {
        members.expect(member, {Row(arguments, Variant())});
    }
};

TEST_P(GQuorRegistryTest, PathsBeginWithARoot) {
    items->set(u"v", u"y");
    members.expect(u"Reg_WriteStringValue", {Row({path, u"v", u"x"}, true)});
    for (const String& good : {u"hKeY_cUrReNt_UsEr?" + base, path + u"\\\\", u"HKCU/" + base})
        members.expect(u"Reg_ReadStringValue", {Row({good, u"V"}, u"x")});
    for (const String& bad : {u"HKCU\\\\" + base, u"\\HKCU\\" + base, u" HKCU\\" + base,
                              u"HKEY_USERS\\" + base, base, String()}) {
        members.expect(u"Reg_ReadStringValue", {Row({bad, u"v", u"none"}, u"none")});
        members.expect(u"Reg_ReadDWordValue", {Row({bad, u"v"}, 0), Row({bad, u"v", -7}, -7)});
        members.expect(u"Reg_ReadBoolValue", {Row({bad, u"v"}, false), Row({bad, u"v", 2}, true)});
        members.expect(u"Reg_EnumKeyValues", {Row({bad}, u"")});
        members.expect({u"Reg_WriteStringValue", u"Reg_WriteDWordValue", u"Reg_WriteBoolValue"},
                       {Row({bad, u"v", u"1"}, false)});
        run(u"Reg_WriteKeyValuesEx", {bad, items});
        run(u"Reg_DeleteKey", {bad, u"v"});
    }
    members.expect(u"Reg_EnumKeyValues", {Row({path}, u"v:x|"), Row({path + u"\\none"}, u"")});
}

TEST_P(GQuorRegistryTest, DataBecomeTexts) {
    const std::pair<RegistryValue, String> cases[] = {
        {{kRegString, data(u"\u4E2D")}, u"\u4E2D"},
        {{kRegString, base::toUtf16(u"no end")}, u"no end"},
        {{kRegExpandString, ""}, u""},
        {{kRegMultiString, data(String(u"a\0b\0", 4))}, String(u"a\0b\0", 4)},
        {{kRegNone, std::string("\x80\0", 2)}, u"\u20AC"},
        {{kRegBinary, "x"}, u""},
        {{kRegDWord, "\x07"}, u"7"},
        {{kRegDWord, std::string("\0\0\0\x80", 4)}, u"2147483648"},
        {{kRegDWord, std::string("\1\0\0\x80more", 8)}, u"-2147483647"},
        {{kRegString, data(String(2047, u'x'))}, String(2047, u'x')},
        {{kRegString, data(String(2048, u'x'))}, u"default"},
        {{kRegNone, std::string(2048, 'x')}, String(2048, u'x')},
        {{kRegNone, std::string(2049, 'x')}, u"default"}};
    for (const auto& [one, expected] : cases) {
        EXPECT_EQ(make().setValues(Values{{u"v", one}}), kSuccess);
        members.expect(u"Reg_ReadStringValue", {Row({path, u"v", u"default"}, expected)});
    }
    for (const String& text : {String(), String(u"\u4E2D\xD800 \n"), String(u"a\0b", 3)}) {
        members.expect(u"Reg_WriteStringValue", {Row({path + u"\\A/B\\C", u"", text}, true)});
        members.expect(u"Reg_ReadStringValue", {Row({path + u"\\A/B\\C", u"", u"none"}, text)});
    }
}

TEST_P(GQuorRegistryTest, NumbersHave32Bits) {
    for (const char16_t* text : {u" 2147483648 ", u"4294967296"})
        members.call(u"Reg_WriteDWordValue", {path, u"n", text});  // the second one is refused
    EXPECT_EQ(read().value(u"n", value), kSuccess);
    EXPECT_EQ(value, (RegistryValue{kRegDWord, std::string("\0\0\0\x80", 4)}));
}

TEST_P(GQuorRegistryTest, ListsValuesAndKeys) {
    const String longest(1999, u'x');
    make().setValues(Values{{u"Text", {kRegString, data(longest)}},
                            {u"no text", {kRegString, data(longest + u'x')}},
                            {u"bytes", {kRegNone, std::string(2000, 'x')}},
                            {u"no bytes", {kRegNone, std::string(2001, 'x')}},
                            {longest, {kRegDWord, "\7"}},
                            {longest + u'x', {kRegDWord, "\2"}},
                            {u"", {kRegString, data(u"x")}}});
    const std::map<String, Variant> expected = {
        {u"Text", longest}, {u"bytes", longest + u'x'}, {longest, u"7"}, {u"", u"x"}};
    std::map<String, Variant> found;
    const Variant collection = members(u"Reg_EnumKeyValues", {path});
    const auto& texts = dynamic_cast<Collection&>(*collection.get<ObjectRef>());
    for (Long i = 1; i <= texts.count(); ++i) found[texts.entry(i).key] = texts.item(i);
    EXPECT_EQ(found, expected);
    found.clear();
    const Variant dictionary = members(u"Reg_EnumKeyValuesEx", {path});
    for (const auto& one : dynamic_cast<Dictionary&>(*dictionary.get<ObjectRef>()).entries())
        found[one.key.get<String>()] = one.item;
    EXPECT_EQ(found, expected);

    const Variant before = Array<String>({u"as it was"});
    members.expect(u"Reg_EnumSubPaths", {Row({path, before}, Results{0, before})});
    for (const char16_t* key : {u"\\A", u"\\B"}) make(key);
    members.expect(u"Reg_EnumSubPaths", {Row({path, before}, listed({u"A", u"B"}))});
}

TEST_P(GQuorRegistryTest, WritesAndDeletesManyValues) {
    items->set(u"yes", true);
    items->set(5, Empty());
    items->set(u"5", 5);
    items->set(u"", u"x");
    run(u"Reg_WriteKeyValuesEx", {path, items});
    for (const auto& [name, text] : {std::pair{u"yes", u"True"}, {u"5", u"5"}, {u"", u"x"}}) {
        EXPECT_EQ(read().value(name, value), kSuccess);
        EXPECT_EQ(value, (RegistryValue{kRegString, data(text)}));
    }
    for (const char16_t* name : {u"YES", u"YES", u""}) run(u"Reg_DeleteKey", {path, name});
    members.expect(u"Reg_EnumKeyValues", {Row({path}, u"5:5|")});
    items->set(u"none", Null());
    members.expect(u"Reg_WriteKeyValuesEx",
                   {Row({path + u"\\new", items}, Error{94}), Row({path, ObjectRef()}, Error{91})});
    members.expect(u"Reg_EnumKeyValues", {Row({path + u"\\new"}, u"")});
    run(u"Reg_WriteKeyValuesEx", {u"HKEY_USERS\\x", ObjectRef()});
    items->set(u"none", 1);
    items->set(String(u"a\0b", 3), u"left out");
    run(u"Reg_WriteKeyValuesEx", {path + u"\\new", items});
    EXPECT_EQ(read(u"\\new").value(u"none", value), kSuccess);
}

TEST_P(GQuorRegistryTest, DeletesWholeKeys) {
    String deep = u"\\K";
    for (int i = 0; i < 100; ++i) deep += u"\\d";
    for (const String& key : {deep, String(u"\\K\\a/b\\c:d"), String(u"\\K\\f"), String(u"\\L")})
        make(key).setValues(Values{{u"v", {}}});
    const auto deleting = [&](const String& which, const String& in, const Names& left) {
        run(u"Reg_DeletePath", {which});
        members.expect(u"Reg_EnumSubPaths", {Row({path + in, Array<String>()}, listed(left))});
    };
    deleting(path + u"\\missing\\K", u"", {u"K", u"L"});
    deleting(path + u"\\K\\a/b\\c:d\\\\", u"\\K", {u"a/b", u"d", u"f"});
    deleting(path + u"\\\\k", u"", {u"L"});
}

INSTANTIATE_TEST_SUITE_P(Implementations, GQuorRegistryTest, testing::Bool(), nameOfRegistry);

TEST(GQuorRegistry, LeavesTheMachineAndTheRoots) {
    MemoryPorts world;
    Late members(u"GQuorRegistry", world);
    const String classes = u"\\Software\\Classes\\.x";
    members.expect(u"Reg_WriteStringValue", {Row({u"HKLM" + classes, u"", u"x"}, true),
                                             Row({u"HKCU\\A\\B", u"", u"x"}, true)});
    world.registry.setMachineReadOnly();
    members.expect(u"Reg_WriteStringValue", {Row({u"HKCR\\.x", u"", u"y"}, false)});
    members.call(u"Reg_DeleteKey", {u"HKCR\\.x", u""});
    for (const char16_t* nothing : {u"HKLM\\Software", u"HKCU", u"HKCU\\", u"HKCU\\\\\\", u"HKCU/A",
                                    u"HKCU\\\\A\\B", u"HKCUx\\A\\B", u"A\\B", u"\\", u""})
        members.call(u"Reg_DeletePath", {nothing});
    for (const String& key : {u"HKEY_LOCAL_MACHINE" + classes, String(u"HKEY_CLASSES_ROOT\\.x"),
                              String(u"hkcr\\.x"), String(u"HKEY_CURRENT_USER\\a\\b")})
        members.expect(u"Reg_ReadStringValue", {Row({key, u""}, u"x")});
}

}  // namespace
}  // namespace quorkit::test
