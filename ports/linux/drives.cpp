#include "native/drives.h"

namespace quorkit {

int NativeDrives::GetDriveTypeA(const String&) {
    return 0;
}
std::vector<String> NativeDrives::GetLogicalDriveStringsA() {
    return {};
}
ErrorCode NativeDrives::GetVolumeInformationA(const String&, std::uint32_t&) {
    return kGeneralFailure;
}
ErrorCode NativeDrives::WNetEnumResourceA(std::vector<NetworkConnection>&) {
    return kGeneralFailure;
}

}  // namespace quorkit
