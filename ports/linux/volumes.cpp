#include "linux/volumes.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <filesystem>
#include <fstream>

#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

namespace fs = std::filesystem;

/// The device of a mount, "8:1". Some file systems show other numbers in its place.
std::string deviceOf(const Mount& mount) {
    struct stat about = {};
    if (!mount.device.starts_with("0:") || !mount.source.starts_with("/dev/") ||
        stat(mount.source.c_str(), &about) != 0 || !S_ISBLK(about.st_mode))
        return mount.device;
    return std::to_string(major(about.st_rdev)) + ":" + std::to_string(minor(about.st_rdev));
}

bool hasWindowsSerial(std::string_view fileSystem) {
    constexpr std::array<std::string_view, 6> systems = {"exfat", "fuseblk", "msdos",
                                                         "ntfs",  "ntfs3",   "vfat"};
    return std::ranges::find(systems, fileSystem) != systems.end();
}

/// The serial number from the identifiers that the system keeps as links to devices.
bool windowsSerialOf(const Mount& mount, std::uint32_t& serial) {
    const std::string device = deviceOf(mount);
    std::error_code error;
    fs::directory_iterator entries("/dev/disk/by-uuid", error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        struct stat about = {};
        if (stat(entries->path().c_str(), &about) != 0) continue;
        if (std::to_string(major(about.st_rdev)) + ":" + std::to_string(minor(about.st_rdev)) !=
            device)
            continue;
        if (serialFromIdentifier(entries->path().filename().native(), serial)) return true;
    }
    return false;
}

}  // namespace

bool isRemovable(const Mount& mount) {
    const std::string folder = "/sys/dev/block/" + deviceOf(mount);
    // The facts of a disk are in the folder above those of its partitions.
    return std::ranges::any_of(std::array{"/removable", "/../removable"}, [&](const char* file) {
        return std::ifstream(folder + file).get() == '1';
    });
}

bool serialFromIdentifier(std::string_view identifier, std::uint32_t& serial) {
    constexpr std::size_t digits = 8;
    std::string text(identifier);
    if (text.size() == digits + 1 && text[digits / 2] == '-')
        text.erase(digits / 2, 1);
    else if (text.size() == 2 * digits)
        text.erase(0, digits);
    if (text.size() != digits) return false;
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + digits, number, 16);
    if (error != std::errc() || end != text.data() + digits) return false;
    serial = number;
    return true;
}

ErrorCode serialNumberOf(const Mount& mount, std::uint32_t& serial) {
    if (hasWindowsSerial(mount.fileSystem) && windowsSerialOf(mount, serial)) return kSuccess;
    struct statfs about = {};
    if (statfs(mount.point.c_str(), &about) != 0) return lastError();
    const auto halves = std::bit_cast<std::array<std::uint32_t, 2>>(about.f_fsid);
    const std::uint32_t number = halves[0] ^ halves[1];
    if (number == 0) return kGeneralFailure;
    serial = number;
    return kSuccess;
}

}  // namespace quorkit::native
