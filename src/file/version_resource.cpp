#include "file/version_resource.h"

#include <string>
#include <string_view>

#include "file/open_file.h"

namespace quorkit::file {
namespace {

/// Little-endian numbers; the caller has checked the offset.
std::uint16_t number16(std::string_view bytes, std::size_t offset) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[offset + i]); };
    return static_cast<std::uint16_t>(byte(0) | byte(1) << 8);
}
std::uint32_t number32(std::string_view bytes, std::size_t offset) {
    return number16(bytes, offset) | std::uint32_t{number16(bytes, offset + 2)} << 16;
}

/// Any step may find nothing, and then the search ends.
using Bytes = std::optional<std::string>;
using Offset = std::optional<std::uint64_t>;

class Image {
   public:
    Image(Files& files, const String& name) : file_(files, name) {}

    std::optional<FileVersion> version() {
        const Offset resources = readHeaders() ? fileOffset(resourceAddress_) : std::nullopt;
        const Offset entry = resources ? dataEntry(*resources) : std::nullopt;
        const Bytes data = entry ? read(*entry, 16) : std::nullopt;
        if (!data || number32(*data, 4) < kVersionInfoSize) return {};
        const Offset info = fileOffset(number32(*data, 0));
        return info ? versionAt(*info) : std::nullopt;
    }

   private:
    static constexpr std::size_t kFixedInfoOffset = 40;  ///< behind lengths, type, key and padding
    static constexpr std::size_t kFixedInfoSize = 52;
    static constexpr std::size_t kVersionInfoSize = kFixedInfoOffset + kFixedInfoSize;

    /// `size` bytes; nothing when the file does not hold all of them.
    Bytes read(std::uint64_t offset, std::size_t size) {
        file_.seek(offset);
        std::string bytes(size, '\0');
        for (std::size_t used = 0; used < size;) {
            const std::size_t count = file_.read(bytes.data() + used, size - used);
            if (count == 0) return {};
            used += count;
        }
        return bytes;
    }

    /// Finds the section table, and the address of the resources in memory.
    bool readHeaders() {
        const Bytes dos = read(0, 64);
        if (!dos || !dos->starts_with("MZ")) return false;
        const std::uint64_t start = number32(*dos, 60);
        constexpr std::size_t headerSize = 24;
        const Bytes header = read(start, headerSize);
        if (!header || !header->starts_with(std::string_view("PE\0\0", 4))) return false;

        const std::uint16_t optionalSize = number16(*header, 20);
        const Bytes optional = read(start + headerSize, optionalSize);
        if (!optional || optionalSize < 2) return false;
        const std::uint16_t magic = number16(*optional, 0);
        if (magic != 0x10B && magic != 0x20B) return false;
        const std::size_t directories = magic == 0x10B ? 96 : 112;
        constexpr std::size_t resourceDirectory = 2;
        const std::size_t entry = directories + 8 * resourceDirectory;
        if (optionalSize < entry + 8 || number32(*optional, directories - 4) <= resourceDirectory)
            return false;
        resourceAddress_ = number32(*optional, entry);
        if (resourceAddress_ == 0) return false;

        const std::uint16_t sections = number16(*header, 6);
        const Bytes table = read(start + headerSize + optionalSize, sections * kSectionSize);
        if (!table) return false;
        sections_ = *table;
        return true;
    }

    /// The offset in the file of what the system would load at `address`.
    Offset fileOffset(std::uint32_t address) const {
        for (std::size_t at = 0; at < sections_.size(); at += kSectionSize) {
            const std::uint32_t start = number32(sections_, at + 12);
            const std::uint32_t sizeInFile = number32(sections_, at + 16);
            if (address >= start && address - start < sizeInFile)
                return std::uint64_t{number32(sections_, at + 20)} + (address - start);
        }
        return {};
    }

    /// The offset of the data entry of the first version resource, found through three levels:
    /// type, name and language.
    Offset dataEntry(std::uint64_t resources) {
        constexpr std::uint32_t isDirectory = 0x80000000;
        std::uint32_t entry = isDirectory;
        for (int level = 0; level < 3 && (entry & isDirectory) != 0; ++level) {
            const std::uint64_t at = resources + (entry & ~isDirectory);
            const auto next = level == 0 ? versionType(at) : firstEntry(at);
            if (!next) return {};
            entry = *next;
        }
        if ((entry & isDirectory) != 0) return {};
        return resources + entry;
    }

    /// The target of the directory's entry for version resources.
    std::optional<std::uint32_t> versionType(std::uint64_t directory) {
        const Bytes head = read(directory, kDirectorySize);
        if (!head) return {};
        const std::size_t named = number16(*head, 12) * kEntrySize;
        const Bytes entries =
            read(directory + kDirectorySize + named, number16(*head, 14) * kEntrySize);
        if (!entries) return {};
        constexpr std::uint32_t versions = 16;  // RT_VERSION
        for (std::size_t at = 0; at < entries->size(); at += kEntrySize)
            if (number32(*entries, at) == versions) return number32(*entries, at + 4);
        return {};
    }

    std::optional<std::uint32_t> firstEntry(std::uint64_t directory) {
        const Bytes bytes = read(directory, kDirectorySize + kEntrySize);
        if (!bytes || number32(*bytes, 12) == 0) return {};  // neither named entries nor others
        return number32(*bytes, kDirectorySize + 4);
    }

    std::optional<FileVersion> versionAt(std::uint64_t offset) {
        constexpr std::string_view key("V\0S\0_\0V\0E\0R\0S\0I\0O\0N\0_\0I\0N\0F\0O\0\0\0", 32);
        const Bytes info = read(offset, kVersionInfoSize);
        if (!info || number16(*info, 2) < kFixedInfoSize || info->substr(6, key.size()) != key ||
            number32(*info, kFixedInfoOffset) != 0xFEEF04BD)
            return {};
        const auto part = [&](std::size_t at) { return number16(*info, kFixedInfoOffset + at); };
        return FileVersion{part(10), part(8), part(14), part(12)};
    }

    static constexpr std::size_t kSectionSize = 40;
    static constexpr std::size_t kDirectorySize = 16;
    static constexpr std::size_t kEntrySize = 8;

    OpenFile file_;
    std::uint32_t resourceAddress_ = 0;
    std::string sections_;
};

}  // namespace

std::optional<FileVersion> readFileVersion(Files& files, const String& name) {
    return Image(files, name).version();
}

}  // namespace quorkit::file
