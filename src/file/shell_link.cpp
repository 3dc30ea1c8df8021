#include "file/shell_link.h"

#include <algorithm>
#include <string_view>

#include "base/code_page.h"
#include "base/name_parts.h"
#include "base/unicode.h"

namespace quorkit::file {
namespace {

// Names, values and offsets of fields are taken from the published document.
enum LinkFlags : std::uint32_t {
    HasLinkInfo = 0x2,
    HasName = 0x4,
    IsUnicode = 0x80,
    HasExpString = 0x200,
};
enum LinkInfoFlags : std::uint32_t {
    VolumeIDAndLocalBasePath = 1,
    CommonNetworkRelativeLinkAndPathSuffix = 2,
};

void put(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i));
}

std::string unicode(StringView text) {
    std::string bytes;
    for (const char16_t unit : text) put(bytes, unit, 2);
    return bytes;
}

/// A structure with fixed fields; among these are its size and the offset of its variable part.
class Structure {
   public:
    explicit Structure(std::size_t fixedSize) : bytes_(fixedSize, '\0') {}

    void set(std::size_t field, std::uint32_t value) {
        std::string bytes;
        put(bytes, value, 4);
        bytes_.replace(field, bytes.size(), bytes);
    }
    void add(std::size_t field, std::string_view bytes) {
        set(field, static_cast<std::uint32_t>(bytes_.size()));
        bytes_ += bytes;
    }
    void addAnsi(std::size_t field, StringView text) { add(field, base::toAnsi(text) + '\0'); }
    void addUnicode(std::size_t field, StringView text) {
        bytes_.append(bytes_.size() % 2, '\0');
        add(field, unicode(text) + std::string(2, '\0'));
    }
    /// The complete structure, with its size in the first field.
    std::string whole() {
        set(0, static_cast<std::uint32_t>(bytes_.size()));
        return bytes_;
    }

   private:
    std::string bytes_;
};

std::string volumeID(const ShellLink& link) {
    Structure volume(16);
    volume.set(4, link.driveType);
    volume.set(8, link.serialNumber);
    volume.add(12, std::string_view("\0", 1));  // no label
    return volume.whole();
}

std::string networkLink(StringView share) {
    Structure network(28);
    network.addAnsi(8, share);
    network.addUnicode(20, share);
    return network.whole();
}

/// The length of the server and share in a network name; 0 for any other name.
std::size_t shareLength(StringView name) {
    const base::NameParts parts = base::partsOf(name);
    if (parts.start != base::NameParts::Network || parts.components.size() < 2) return 0;
    const StringView share = parts.components[1];
    return static_cast<std::size_t>(share.data() + share.size() - name.data());
}

std::string linkInfo(const ShellLink& link, StringView target) {
    constexpr std::uint32_t headerSize = 36;
    Structure info(headerSize);
    info.set(4, headerSize);
    StringView suffix;
    if (const std::size_t share = shareLength(target)) {
        suffix = target.substr(share);
        suffix.remove_prefix(std::min(suffix.size(), suffix.find_first_not_of(u"\\/")));
        info.set(8, CommonNetworkRelativeLinkAndPathSuffix);
        info.add(20, networkLink(target.substr(0, share)));
    } else {
        info.set(8, VolumeIDAndLocalBasePath);
        info.add(12, volumeID(link));
        info.addAnsi(16, target);
        info.addUnicode(28, target);
    }
    info.addAnsi(24, suffix);
    info.addUnicode(32, suffix);
    return info.whole();
}

std::string environmentVariables(StringView target) {
    std::string bytes;
    put(bytes, 0x314, 4);
    put(bytes, 0xA0000001, 4);
    bytes += base::toAnsi(target);
    bytes.resize(8 + 260, '\0');
    bytes += unicode(target);
    bytes.resize(0x314, '\0');
    return bytes;
}

/// The longest part of a text that every reader accepts, never half a character. The count has 16
/// bits, but some readers use as many for the number of bytes.
StringView countable(StringView text) {
    constexpr std::size_t most = 0x7FFF;
    if (text.size() <= most) return text;
    const bool halved = base::isHighSurrogate(text[most - 1]) && base::isLowSurrogate(text[most]);
    return text.substr(0, halved ? most - 1 : most);
}

}  // namespace

std::string shellLinkFile(const ShellLink& link) {
    constexpr char16_t end = u'\0';
    const StringView target = StringView(link.target).substr(0, link.target.find(end));
    const StringView description =
        countable(StringView(link.description).substr(0, link.description.find(end)));
    constexpr std::size_t maxPath = 260;
    const bool withVariables = !target.empty() && target.size() < maxPath;

    std::string bytes;
    put(bytes, 0x4C, 4);
    bytes += std::string_view("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);  // LinkCLSID
    put(bytes,
        IsUnicode | (target.empty() ? 0u : HasLinkInfo) | (description.empty() ? 0u : HasName) |
            (withVariables ? HasExpString : 0u),
        4);
    put(bytes, link.targetAttributes, 4);
    bytes.append(3 * 8 + 4 + 4, '\0');  // times, size and icon
    put(bytes, 1, 4);                   // ShowCommand: SW_SHOWNORMAL
    bytes.append(12, '\0');             // hot key, and reserved fields

    if (!target.empty()) bytes += linkInfo(link, target);
    if (!description.empty()) {
        put(bytes, static_cast<std::uint32_t>(description.size()), 2);
        bytes += unicode(description);
    }
    if (withVariables) bytes += environmentVariables(target);
    put(bytes, 0, 4);  // TerminalBlock
    return bytes;
}

}  // namespace quorkit::file
