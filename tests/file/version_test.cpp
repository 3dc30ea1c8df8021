#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>

#include <algorithm>
#include <tuple>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

std::filesystem::path imageFor(const std::string& machine) {
    return std::filesystem::path(QUORKIT_TEST_DLLS) / ("version-" + machine + ".dll");
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(FileVersion, IsThatOfTheDll) {
    Scratch scratch;
    scratch.write("text.dll", "MZ is how this text begins");
    Late file(u"GQuorFile");
    for (const char* machine : {"x86_64", "i686"}) {
        const String name = imageFor(machine).u16string();
        file.expect(u"getFileVersion", {Row({name}, u"65535.2.0.40000")});
        file.expect(u"getFileVersionNumbers", {Row({name, Long{-1}, Long{-1}, Long{-1}, Long{-1}},
                                                   {true, 65535, 2, 0, 40000})});
    }
    for (const String& name : {scratch.name("text.dll"), scratch.name(""), scratch.name("none"),
                               String(), String(1, u'\0')}) {
        file.expect(u"getFileVersion", {Row({name}, u"")});
        file.expect(u"getFileVersionNumbers",
                    {Row({name, Long{1}, Long{2}, Long{3}, Long{4}}, {false, 1, 2, 3, 4})});
    }
}

/// Damaged copies: the version is either found or not, and nothing else happens.
TEST(FileVersion, SurvivesDamage) {
#ifdef _WIN32
    constexpr std::size_t kStep = 29;  // files take their time there
#else
    constexpr std::size_t kStep = 1;
#endif
    Scratch scratch;
    GQuorFile file;
    const auto version = [&] { return file.getFileVersion(scratch.name("damaged.dll")); };
    const String known = u"65535.2.0.40000";
    for (const char* machine : {"x86_64", "i686"}) {
        const std::string whole = contentOf(imageFor(machine));
        ASSERT_GT(whole.size(), 1000u);
        scratch.write("damaged.dll", whole);
        std::fstream image(scratch.path("damaged.dll"),
                           std::ios::in | std::ios::out | std::ios::binary);
        std::size_t lost = 0;
        for (std::size_t at = 0; at < whole.size(); at += kStep) {
            const auto put = [&](int byte) {
                image.seekp(static_cast<std::streamoff>(at)).put(static_cast<char>(byte)).flush();
            };
            for (const int damaged : {0xFF, whole[at] ^ 0x80, whole[at] ^ 0x01}) {
                put(damaged);
                const String found = version();
                lost += found.empty();
                EXPECT_TRUE(found.empty() || std::ranges::count(found, u'.') == 3) << at;
            }
            put(whole[at]);
        }
        EXPECT_GT(lost * kStep, 100u);
        EXPECT_EQ(version(), known);

        // As many sections and resources as can be counted, and directories that lead in circles.
        const std::size_t header = whole.find(std::string("PE\0\0", 4));
        const std::size_t table = whole.find(".rsrc");
        const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(whole[at]); };
        const std::size_t root = byteAt(table + 20) + 256u * byteAt(table + 21);
        const std::string back("\0\0\0\x80", 4);
        const std::tuple<std::size_t, std::string, String> hostile[] = {
            {header + 6, "\xFF\xFF", known},
            {root + 14, "\xFF\xFF", known},
            {root + 12, "\xFF\xFF\xFF\xFF", u""},
            {root + 20, back + whole.substr(root + 24, 12) + back, u""},
        };
        for (const auto& [at, bytes, expected] : hostile) {
            std::string changed = whole;
            changed.replace(at, bytes.size(), bytes);
            scratch.write("damaged.dll", changed + std::string(4 << 20, '\xFF'));
            EXPECT_EQ(version(), expected) << at - header;
        }

        scratch.write("damaged.dll", whole);
        const std::size_t end = whole.find("\xBD\x04\xEF\xFE") + 52;
        for (std::size_t size = whole.size(); size > 0; size -= std::min(size, kStep)) {
            std::filesystem::resize_file(scratch.path("damaged.dll"), size);
            EXPECT_EQ(version(), size < end ? u"" : known) << size;
        }
    }
}

}  // namespace
}  // namespace quorkit::test
