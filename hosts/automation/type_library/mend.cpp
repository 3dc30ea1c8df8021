#include "automation/type_library/mend.h"

#include <oaidl.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quorkit::automation {
namespace {

// Offsets in bytes; all numbers are 32 bits wide, some of them two of 16.
constexpr std::size_t kFlags = 20;  // of the library
constexpr std::uint32_t kHasHelpLibrary = 0x100;
constexpr std::size_t kTypeCount = 32;
constexpr std::size_t kTypeOffsets = 84;
constexpr std::size_t kTypeSize = 100;
constexpr std::size_t kKind = 0;  // of a type; of the kind, the lowest four bits
constexpr std::size_t kMembers = 4;
constexpr std::size_t kCounts = 24;  // functions, variables
constexpr std::size_t kSize = 80;
constexpr std::size_t kConvention = 16;  // of a function, which begins with its size
constexpr std::uint32_t kHasDefaults = 0x1000;
constexpr std::size_t kParameterCount = 20;
constexpr std::size_t kParameterSize = 12;  // at the function's end, behind a default for each

constexpr std::uint32_t kHalfTrue = 0xAC0000FF;
constexpr std::uint32_t kTrue = 0xAC00FFFF;

class File {
   public:
    explicit File(std::string bytes) : bytes_(std::move(bytes)) {}

    std::uint32_t at(std::size_t offset) const {
        std::uint32_t number = 0;
        if (offset + sizeof number > bytes_.size()) throw std::runtime_error("no type library");
        std::memcpy(&number, bytes_.data() + offset, sizeof number);
        return number;
    }
    std::uint32_t low(std::size_t offset) const { return at(offset) & 0xFFFF; }
    void put(std::size_t offset, std::uint32_t number) {
        std::memcpy(bytes_.data() + offset, &number, sizeof number);
    }
    const std::string& bytes() const { return bytes_; }

   private:
    std::string bytes_;
};

void mendDefaults(File& file, std::size_t function) {
    if ((file.at(function + kConvention) & kHasDefaults) == 0) return;
    const std::uint32_t count = file.low(function + kParameterCount);
    std::size_t value = function + file.low(function) - count * (sizeof kTrue + kParameterSize);
    for (std::uint32_t i = 0; i < count; ++i, value += sizeof kTrue)
        if (file.at(value) == kHalfTrue) file.put(value, kTrue);
}

void mendType(File& file, std::size_t type) {
    const std::uint32_t kind = file.at(type + kKind) & 0xF;
    const std::uint32_t variables = file.at(type + kCounts) >> 16;
    // Every field of a record is a Long.
    if (kind == TKIND_ENUM) file.put(type + kSize, sizeof(LONG));
    if (kind == TKIND_RECORD) file.put(type + kSize, variables * sizeof(LONG));

    std::size_t function = file.at(type + kMembers) + sizeof(std::uint32_t);
    for (std::uint32_t i = file.low(type + kCounts); i > 0; --i) {
        mendDefaults(file, function);
        function += file.low(function);
    }
}

}  // namespace

void mendTypeLibrary(const std::filesystem::path& path) {
    std::ifstream input(path, std::ios::binary);
    File file(std::string(std::istreambuf_iterator<char>(input), {}));
    input.close();
    const std::uint32_t count = file.at(kTypeCount);
    std::size_t segments = kTypeOffsets + count * sizeof count;
    if ((file.at(kFlags) & kHasHelpLibrary) != 0) segments += sizeof count;
    for (std::uint32_t i = 0; i < count; ++i) mendType(file, file.at(segments) + i * kTypeSize);

    std::ofstream output(path, std::ios::binary);
    output << file.bytes();
    if (!output.flush()) throw std::runtime_error("cannot write the type library");
}

}  // namespace quorkit::automation
