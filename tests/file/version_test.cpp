#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/late.h"

namespace quorkit::test {
namespace {

const String kVersion = u"65535.2.0.40000";

/// A real DLL of either kind.
std::filesystem::path imageFor(const char* machine) {
    return std::filesystem::path(QUORKIT_TEST_DLLS) / (std::string("version-") + machine + ".dll");
}

class FileVersion : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Of, FileVersion, testing::Values("x86_64", "i686"));

TEST_P(FileVersion, IsThatOfTheDll) {
    const String name = imageFor(GetParam()).u16string();
    const Variant one = Long{1};
    Late file(u"GQuorFile");
    file.expect(u"getFileVersion", {Row({name}, kVersion), Row({u""}, u"")});
    file.expect(u"getFileVersionNumbers",
                {Row({name, one, one, one, one}, {true, 65535, 2, 0, 40000}),
                 Row({u"", one, one, one, one}, {false, 1, 1, 1, 1})});
}

/// Damaged copies: the version is either found or not, and nothing else happens.
TEST_P(FileVersion, SurvivesDamage) {
    std::ifstream stream(imageFor(GetParam()), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(stream), {}};
    MemoryPorts world;
    GQuorFile file(world);
    const auto versionOf = [&](std::string image) {
        world.files.put(u"a.dll", std::move(image));
        return file.getFileVersion(u"a.dll");
    };
    const std::size_t end = whole.find("\xBD\x04\xEF\xFE") + 52;
    std::size_t lost = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_EQ(versionOf(whole.substr(0, at)), at < end ? u"" : kVersion) << at;
        for (const int damaged : {0xFF, whole[at] ^ 0x80, whole[at] ^ 0x01}) {
            std::string image = whole;
            image[at] = static_cast<char>(damaged);
            const String found = versionOf(image);
            EXPECT_TRUE(found.empty() || std::ranges::count(found, u'.') == 3) << at;
            lost += found.empty();
        }
    }
    EXPECT_GT(lost, 100u);

    // As many sections and resources as can be counted, and directories that lead in circles.
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(whole[at]); };
    const std::size_t section = whole.find(".rsrc");
    const std::size_t root = byteAt(section + 20) + 256u * byteAt(section + 21);
    const std::string back("\0\0\0\x80", 4);
    const std::tuple<std::size_t, std::string, String> hostile[] = {
        {whole.find(std::string("PE\0\0", 4)) + 6, "\xFF\xFF", kVersion},
        {root + 14, "\xFF\xFF", kVersion},
        {root + 12, "\xFF\xFF\xFF\xFF", u""},
        {root + 20, back + whole.substr(root + 24, 12) + back, u""},
    };
    for (const auto& [at, bytes, expected] : hostile) {
        std::string image = whole + std::string(4 << 20, '\xFF');
        EXPECT_EQ(versionOf(image.replace(at, bytes.size(), bytes)), expected) << at;
    }
}

}  // namespace
}  // namespace quorkit::test
