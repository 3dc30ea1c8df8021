#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <algorithm>

namespace quorkit::test {
namespace {

using Roots = std::vector<String>;

TEST(MemoryDrives, AreAsToldTo) {
    MemoryDrives drives;
    drives.drives[u"X:"] = {4, 0x9ABCDEF0, u"\\\\Srv\\Share"};
    EXPECT_EQ(drives.GetLogicalDriveStringsA(), (Roots{u"C:\\", u"X:\\"}));
    for (const char16_t* root : {u"x:", u"X:\\"}) EXPECT_EQ(drives.GetDriveTypeA(root), 4);
    for (const char16_t* root : {u"D:", u"", u"X:\\d"}) EXPECT_EQ(drives.GetDriveTypeA(root), 1);

    for (const char16_t* root : {u"x:\\", u"\\\\srv\\share\\"}) {
        std::uint32_t serial = 0;
        EXPECT_EQ(drives.VolumeSerialNumber(root, serial), kSuccess);
        EXPECT_EQ(serial, 0x9ABCDEF0);
    }
    std::uint32_t serial = 0;
    EXPECT_NE(drives.VolumeSerialNumber(u"D:\\", serial), kSuccess);

    std::vector<NetworkConnection> connections;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(drives.ListConnections(connections), kSuccess);
    ASSERT_EQ(connections.size(), 1u);
    EXPECT_EQ(connections[0].localName + connections[0].remoteName, u"X:\\\\Srv\\Share");
    drives.networkAnswer = kGeneralFailure;
    EXPECT_EQ(drives.ListConnections(connections), kGeneralFailure);
}

TEST(NativeDrives, HoldTheSystem) {
    Drives& drives = ports::native().drives;
    const Roots roots = drives.GetLogicalDriveStringsA();
    EXPECT_TRUE(std::ranges::is_sorted(roots));
    EXPECT_EQ(std::ranges::count(roots, String(u"C:\\")), 1);
    for (const String& root : roots) {
        EXPECT_EQ(root.substr(1), u":\\");
        const int type = drives.GetDriveTypeA(root);
        EXPECT_TRUE(type == 0 || (type >= 2 && type <= 6)) << type;
        EXPECT_EQ(drives.GetDriveTypeA(root.substr(0, 2)), type);
    }
    EXPECT_EQ(drives.GetDriveTypeA(u"?:"), 1);
#ifdef __linux__
    for (const char16_t* none : {u"usr", u"/no/such", u"", u"\\\\nowhere\\x"})
        EXPECT_EQ(drives.GetDriveTypeA(none), 1);
    for (const char16_t* within : {u"c:\\", u"/", u"/usr", u"C:\\usr"})
        EXPECT_EQ(drives.GetDriveTypeA(within), drives.GetDriveTypeA(u"C:"));
    std::vector<NetworkConnection> connections;
    EXPECT_EQ(drives.ListConnections(connections), kSuccess);
#endif
    std::uint32_t serial = 0;
    EXPECT_EQ(drives.VolumeSerialNumber(u"C:\\", serial), kSuccess);
    EXPECT_NE(drives.VolumeSerialNumber(u"?:\\", serial), kSuccess);
}

}  // namespace
}  // namespace quorkit::test
