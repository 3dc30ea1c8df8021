// Drives of the system this program runs on. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/drives.h>

namespace quorkit {

class NativeDrives final : public Drives {
   public:
    int GetDriveTypeA(const String& root) override;
    std::vector<String> GetLogicalDriveStringsA() override;
    ErrorCode GetVolumeInformationA(const String& root, std::uint32_t& serialNumber) override;
    ErrorCode WNetEnumResourceA(std::vector<NetworkConnection>& connections) override;
};

}  // namespace quorkit
