#include <quorkit/ports/faults.h>

namespace quorkit {

int FaultyDrives::GetDriveTypeA(const String& root) {
    return due("GetDriveTypeA") ? 0 : inner_.GetDriveTypeA(root);
}
std::vector<String> FaultyDrives::GetLogicalDriveStringsA() {
    return due("GetLogicalDriveStringsA") ? std::vector<String>()
                                          : inner_.GetLogicalDriveStringsA();
}
ErrorCode FaultyDrives::GetVolumeInformationA(const String& root, std::uint32_t& serialNumber) {
    return due("GetVolumeInformationA") ? code() : inner_.GetVolumeInformationA(root, serialNumber);
}
ErrorCode FaultyDrives::WNetEnumResourceA(std::vector<NetworkConnection>& connections) {
    return due("WNetEnumResourceA") ? code() : inner_.WNetEnumResourceA(connections);
}

}  // namespace quorkit
