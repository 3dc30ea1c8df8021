#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/memory.h>

#include <filesystem>

#include "support/late.h"

namespace quorkit::test {
namespace {

class FileVersion : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Of, FileVersion,
                         testing::Values("version-x86_64.dll", "version-i686.dll"));

TEST_P(FileVersion, IsThatOfTheDllAndSurvivesDamage) {
    const String name = (std::filesystem::path(QUORKIT_TEST_DLLS) / GetParam()).u16string();
    const String version = u"65535.2.0.40000";
    const Variant one = Long{1};
    Late late(u"GQuorFile");
    late.expect(u"getFileVersion", {Row({name}, version), Row({u""}, u"")});
    late.expect(u"getFileVersionNumbers",
                {Row({name, one, one, one, one}, {true, 65535, 2, 0, 40000}),
                 Row({u"", one, one, one, one}, {false, 1, 1, 1, 1})});

    Array<Byte> bytes;
    GQuorFile().LoadFileToByteArray(name, bytes);
    const std::string whole(bytes.elements().begin(), bytes.elements().end());
    MemoryPorts world;
    GQuorFile file(world);
    const auto versionOf = [&](std::string image) {
        world.files.put(u"a.dll", std::move(image));
        return file.getFileVersion(u"a.dll");
    };
    const std::size_t end = whole.find("\xBD\x04\xEF\xFE") + 52;
    for (std::size_t at = 0; at < whole.size(); ++at)
        EXPECT_EQ(versionOf(whole.substr(0, at)), at < end ? u"" : version) << at;

    // The largest possible numbers of sections and resources, and directories in circles.
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(whole[at]); };
    const std::size_t section = whole.find(".rsrc");
    const std::size_t root = byteAt(section + 20) + 256u * byteAt(section + 21);
    const std::string back("\0\0\0\x80", 4);
    using Case = std::tuple<std::size_t, std::string, String>;
    for (const auto& [at, damage, expected] :
         {Case(whole.find(std::string("PE\0\0", 4)) + 6, "\xFF\xFF", version),
          Case(root + 14, "\xFF\xFF", version), Case(root + 12, "\xFF\xFF\xFF\xFF", u""),
          Case(root + 20, back + whole.substr(root + 24, 12) + back, u"")}) {
        std::string image = whole + std::string(4 << 20, '\xFF');
        EXPECT_EQ(versionOf(image.replace(at, damage.size(), damage)), expected) << at;
    }
}

}  // namespace
}  // namespace quorkit::test
