#include "registry/reg_file.h"

#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <fstream>
#include <iterator>

#include "base/unicode.h"
#include "registry/key_name.h"
#include "registry/open_key.h"

namespace quorkit::test {
namespace {

using namespace std::string_literals;

const std::string kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const registry::RegPath kKey{RegistryRoot::CurrentUser, u"Software\\X"};

std::string exported(Registry& registry, const registry::RegPath& key = kKey) {
    std::string content;
    const ErrorCode code = registry::printRegFile(registry, key, content).code;
    return code == kSuccess ? content : "error " + std::to_string(code);
}

/// The exported text without the mark and the header.
std::string text(Registry& registry, const registry::RegPath& key = kKey) {
    const std::string content = exported(registry, key);
    if (!content.starts_with(base::kUtf16Mark)) return content;
    return base::toUtf8(base::fromUtf16(content.substr(2))).substr(kHeader.size());
}

std::string import(Registry& registry, const std::string& content) {
    std::vector<registry::RegChange> changes;
    if (const auto bad = registry::readRegFile(content, changes))
        return std::to_string(bad->number) + ": " + bad->what;
    const registry::RegResult result = registry::applyRegChanges(registry, std::move(changes));
    return result.code == kSuccess ? "" : base::toUtf8(registry::printKeyName(result.key));
}

void set(Registry& registry, const registry::RegPath& key, const std::vector<NamedValue>& values) {
    const registry::OpenKey open(registry, key, RegistryAccess::Write, registry::Unopened::IsMade);
    ASSERT_EQ(open.setValues(values), kSuccess);
}

// Written by Wine: wine reg export "HKCU\Software\Quorkit Witness" witness.reg
TEST(RegFile, IsThatOfOtherTools) {
    std::ifstream file(QUORKIT_SOURCE_DIR "/tests/registry/witness.reg", std::ios::binary);
    const std::string witness{std::istreambuf_iterator<char>(file), {}};
    MemoryRegistry registry;
    EXPECT_EQ(import(registry, witness), "");
    EXPECT_EQ(exported(registry, {RegistryRoot::CurrentUser, u"Software\\Quorkit Witness"}),
              witness);
}

TEST(RegFile, CarriesEveryValueAndName) {
    std::vector<NamedValue> values = {{u"", {kRegString, std::string(2, '\0')}}};
    for (const std::uint32_t type : {0u, 1u, 2u, 3u, 4u, 7u, 11u, 0x80000001u})
        for (const std::string& data :
             {""s, "A"s, "A\0B"s, "A\0B\0"s, "A\0\0\0B\0\0\0"s, "A\0\0\0\0\0"s, "\r\0\n\0\0\0"s,
              "\0\xD8\0\0"s, std::string(500, '1')})
            values.push_back({String(1 + values.size(), u'v'), {type, data}});
    MemoryRegistry registry;
    set(registry, kKey, values);
    for (const char16_t* name : {u"\"", u"a\\n", u"[x]", u"a]b", u"a] ;b", u";", u"-", u"@", u" ",
                                 u"\u00C4\u4E00", u"\x01\x7F\t", u"=\"x\"", u"\xD800"})
        set(registry, {kKey.root, kKey.path + u'\\' + name},
            {{name, {kRegDWord, "1234"}}, {u"\r\n\"", {}}});

    MemoryRegistry other;
    EXPECT_EQ(import(other, exported(registry)), "");
    EXPECT_EQ(exported(other), exported(registry));
    std::vector<NamedValue> found;
    registry::OpenKey(other, kKey, RegistryAccess::Read).values(found);
    EXPECT_EQ(found, values);

    set(registry, {kKey.root, kKey.path + u"\\a\nb"}, {});
    EXPECT_EQ(exported(registry), "error 123");
}

TEST(RegFile, IsReadInEveryForm) {
    const std::string body = "[HKEY_CURRENT_USER\\Software\\X]\r\n";
    const std::pair<std::string, std::string> rows[] = {
        // Encodings.
        {kHeader + "[hkcu\\Software\\X\\]\n\"\u00C4\"=\"\u20AC\"", "\"\u00C4\"=\"\u20AC\"\r\n"},
        {"\xEF\xBB\xBF" + kHeader + "[HKCU\\Software\\X]\n@=\"\u00C4\"", "@=\"\u00C4\"\r\n"},
        {"REGEDIT4 \n\n[hkcu\\Software\\X]\n\"\xC4\"=\"\x80\"\n\"e\"=hex(2):80,00",
         "\"e\"=hex(2):ac,20,00,00\r\n\"\u00C4\"=\"\u20AC\"\r\n"},
        // Comments, continued lines, texts with line breaks.
        {kHeader +
             "; \"x\n\n \t; y\\\n  [HKCU\\Software\\X] ; [z\n @ = \"a\"; b \"c\n\"d\"=dword:1;",
         "@=\"a\"\r\n\"d\"=dword:00000001\r\n"},
        {kHeader + body +
             "\"a\"=hex:\\\r\n  01,\\ ; b \"\r\n\t02, \\ \r\n 03 ;\\\r\n\"b\"=\"\\\\\"",
         "\"a\"=hex:01,02,03\r\n\"b\"=\"\\\\\"\r\n"},
        {kHeader + body + "\"a\"=\"b\n;\\\"\r\n\"\n\"n\nm\"=\"c\"",
         "\"a\"=hex(1):62,00,0a,00,3b,00,22,00,0d,00,0a,00,00,00\r\n\"n\\nm\"=\"c\"\r\n"},
        // Later lines win.
        {kHeader + body + "\"a\"=\"1\"\n\"A\"=\"2\"\n\"b\"=\"1\"\n\"b\"=-\n\"c\"=-\n\"c\"=\"1\"\n" +
             "[HKCU\\Software\\X\\Y\\Z]\n[HKCU\\software\\x]\n\"c\"=\"2\"\n[-hkcu\\SOFTWARE\\X\\y]",
         "\"a\"=\"2\"\r\n\"c\"=\"2\"\r\n"},
        {kHeader + body + "\"a\"=\"1\"\n[-HKCU\\Software\\X]\n[-HKCU\\None\\X]\n" + body +
             "@=\"1\"\n@=-\n",
         ""},
    };
    for (const auto& [file, values] : rows) {
        MemoryRegistry registry;
        EXPECT_EQ(import(registry, file), "") << file;
        EXPECT_EQ(text(registry), body + values + "\r\n");
    }
}

TEST(RegFile, WithABadLineChangesNothing) {
    const std::string start = kHeader + "[HKCU\\Software\\X]\n\"x\"=\"y\"\n";
    std::vector<std::pair<std::string, std::size_t>> rows = {
        {"", 1},
        {"\n" + start, 1},
        {"REGEDIT5\n", 1},
        {kHeader + "\"x\"=-\n[HKCU\\a]", 3},
        {start + "[-HKCU\\Software\\Y]\n;\n\"x\"=\"y\"", 7},
        {start + "\"\n\"=\"\n\"\n\n\"\xC4\"=\"y\"\n", 9},
        {std::string(base::kUtf16Mark) + base::toUtf16(base::fromUtf8(start)) + "[", 5},
        {base::toUtf16(base::fromUtf8(start)), 1},
    };
    std::string deep;
    for (std::size_t i = 0; i <= kDeepestKey; ++i) deep += "\\a";
    for (const char* key :
         {"", "HKCUX", "HKCUX\\a", "HKCU/a", "HKCU\\\\a", "HKU\\a", "-HKCU", "-HKCU\\", "-a"})
        rows.emplace_back(start + '[' + key + "]\n", 5);
    for (const char* line : {"[HKCU", "[HKCU] x", "x", "\"x\"", "\"x\"=", "\"x\"=y", "@=\"y\"z",
                             "@=dword:123456789", "@=hex:01,", "@=hex:01,\\\n\n02", "@=hex:01\\",
                             "@=\"y\\\n\n@=\"a\"", "\"x\ny\"=\"y", "\"\\0\"=\"y\""})
        rows.push_back({start + line + '\n', 5});
    rows.push_back({start + "[HKCU\\" + std::string(kLongestKeyName + 1, 'a') + ']', 5});
    rows.push_back({start + "[HKCU" + deep + ']', 5});
    rows.push_back({start + "[HKCU\\\0]"s, 5});
    rows.push_back({start + '"' + std::string(kLongestValueName + 1, 'a') + "\"=\"y\"\n", 5});
    for (const auto& [file, number] : rows) {
        MemoryRegistry registry;
        const std::string answer = import(registry, file);
        EXPECT_TRUE(answer.starts_with(std::to_string(number) + ": ")) << answer << file;
        EXPECT_EQ(exported(registry), "error 2");
    }
}

TEST(RegFile, StopsAtTheKeyThatCannotBeChanged) {
    MemoryRegistry registry;
    set(registry, {RegistryRoot::LocalMachine, u"Software\\Classes\\.x"}, {{u"a", {}}});
    set(registry, {RegistryRoot::CurrentUser, u"Software\\Classes\\.x\\y"}, {{u"a", {}}});
    EXPECT_EQ(import(registry, kHeader + "[HKCR\\.x]\n\"a\"=-\n\"b\"=\"c\""), "");
    const registry::RegPath classes{RegistryRoot::ClassesRoot, u".x"};
    EXPECT_EQ(text(registry, classes),
              "[HKEY_CLASSES_ROOT\\.x]\r\n\"b\"=\"c\"\r\n\r\n"
              "[HKEY_CLASSES_ROOT\\.x\\y]\r\n\"a\"=hex(0):\r\n\r\n");
    registry.setMachineReadOnly();
    EXPECT_EQ(import(registry, kHeader + "[HKCU\\a]\n[-HKCR\\.x]\n[HKCU\\b]"),
              "HKEY_CLASSES_ROOT\\.x");
    EXPECT_EQ(text(registry, {RegistryRoot::CurrentUser, u"a"}), "[HKEY_CURRENT_USER\\a]\r\n\r\n");
    EXPECT_EQ(exported(registry, {RegistryRoot::CurrentUser, u"b"}), "error 2");
    registry.setMachineReadOnly(false);
    EXPECT_EQ(import(registry, kHeader + "[-HKCR\\.x]"), "");
    EXPECT_EQ(exported(registry, classes), "error 2");
}

}  // namespace
}  // namespace quorkit::test
