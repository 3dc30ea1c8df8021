// The drives of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/drives.h>

namespace quorkit::native {

class NativeDrives final : public Drives {
   public:
    int GetDriveTypeA(const String& root) override;
    std::vector<String> GetLogicalDriveStringsA() override;
    ErrorCode VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) override;
    ErrorCode ListConnections(std::vector<NetworkConnection>& connections) override;
};

}  // namespace quorkit::native
