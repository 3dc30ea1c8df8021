#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Drives, HaveTypesSerialNumbersAndShares) {
    MemoryPorts world;
    world.drives.drives = {{u"C:", {DRIVE_FIXED, 0x1A2B3C, u""}},
                           {u"D:", {DRIVE_CDROM, 0xFFFFFFFF, u""}},
                           {u"N:", {1, 0, u""}},
                           {u"X:", {DRIVE_REMOTE, 0xBEEF, u"\\\\SRV\\Share"}},
                           {u"Y:", {7, 0, u"\\\\srv\\share"}}};
    Late file(u"GQuorFile", world);
    file.expect(u"getDriveTypeEx", {Row({u"C:\\x\\y"}, DRIVE_FIXED), Row({u"d:"}, DRIVE_CDROM),
                                    Row({u"\\\\none\\none"}, DRIVE_REMOTE),
                                    Row({u"N:"}, DRIVE_UNKNOWN), Row({u"Y:"}, DRIVE_UNKNOWN),
                                    Row({u"Z:"}, DRIVE_UNKNOWN), Row({u""}, DRIVE_UNKNOWN)});
    file.expect(u"getVolumeSerialNumber",
                {Row({u"c:\\dir"}, u"1A2B3C"), Row({u"D:"}, u"FFFFFFFF"), Row({u"N:"}, u"0"),
                 Row({u"\\\\srv\\share\\dir\\f"}, u"BEEF"), Row({u"\\\\srv\\none"}, u"0"),
                 Row({u"x\\y"}, u"0"), Row({u"C"}, u"0"), Row({u""}, u"0")});
    file.expect(u"LetterToUNC", {Row({u"x:"}, u"\\\\SRV\\Share"), Row({u"X:\\"}, u""),
                                 Row({u"X"}, u""), Row({u"C:"}, u""), Row({u""}, u"")});
    file.expect(u"UNCToLetter", {Row({u"\\\\srv\\SHARE\\dir\\f.txt"}, u"X:"),
                                 Row({u"\\\\srv\\other"}, u""), Row({u"C:\\x"}, u"")});
    world.drives.networkAnswer = kGeneralFailure;
    file.expect(u"LetterToUNC", {Row({u"X:"}, u"")});
    file.expect(u"UNCToLetter", {Row({u"\\\\srv\\share"}, u"")});
    file.expect(u"GetAllLogicalDrives", {Row({}, u":C:|:D:|:N:|:X:|:Y:|")});
    world.drives.drives.clear();
    file.expect(u"GetAllLogicalDrives", {Row({}, u"")});
}

/// A network with many connections without drives, and two with one.
struct ManyConnections : Drives {
    int asked = 0;
    int GetDriveTypeA(const String&) override { return DRIVE_REMOTE; }
    std::vector<String> GetLogicalDriveStringsA() override { return {u"A:\\", u"Z:\\"}; }
    ErrorCode VolumeSerialNumber(const String&, std::uint32_t&) override { return kSuccess; }
    ErrorCode ListConnections(std::vector<NetworkConnection>& connections) override {
        ++asked;
        connections.assign(1023, {u"", u"\\\\srv\\none"});
        connections.push_back({u"Z:", u"\\\\srv\\z"});
        connections.push_back({u"A:", u"\\\\srv\\a"});
        return kSuccess;
    }
};

TEST(Drives, AreAskedForOnceAndNotWithoutEnd) {
    MemoryPorts world;
    ManyConnections drives;
    Ports ports = world.ports.with(drives);
    Late file(u"GQuorFile", ports);
    file.expect(u"UNCToLetter", {Row({u"\\\\srv\\z"}, u"Z:")});
    EXPECT_EQ(drives.asked, 1);
    file.expect(u"LetterToUNC", {Row({u"A:"}, u""), Row({u""}, u"\\\\srv\\none")});
}

}  // namespace
}  // namespace quorkit::test
