#include "base/dib.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quorkit::base {
namespace {

std::string number(std::size_t value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i, value >>= 8) bytes += static_cast<char>(value & 0xFF);
    return bytes;
}

/// A packed bitmap with `between` bytes between its header and its pixels.
std::string dib(std::uint32_t header, std::uint32_t bits, std::uint32_t compression,
                std::uint32_t coloursUsed, std::size_t between) {
    const std::string planes = number(1 | bits << 16);
    std::string bytes = number(header) + number(0x00010001) + planes;
    if (header != 12)
        bytes = number(header) + number(1) + number(1) + planes + number(compression) +
                std::string(12, '\0') + number(coloursUsed);
    bytes.resize(header + between, 'b');
    return bytes + "pixels";
}

std::string file(const std::string& dib, std::size_t start) {
    return "BM" + number(14 + dib.size()) + number(0) + number(start) + dib;
}

TEST(Dib, IsTheFileWithoutItsHeader) {
    for (const std::string& one :
         {dib(40, 24, 0, 0, 0), dib(40, 8, 0, 0, 1024), dib(40, 8, 1, 3, 12), dib(40, 32, 3, 0, 12),
          dib(40, 16, 6, 2, 24), dib(56, 32, 3, 0, 0), dib(108, 32, 3, 0, 0), dib(124, 4, 0, 0, 64),
          dib(12, 1, 0, 0, 6), dib(12, 24, 0, 0, 0)}) {
        const std::string whole = file(one, 14 + one.find("pixels"));
        EXPECT_EQ(dibOf(whole), one);
        EXPECT_EQ(bmpFileOf(one), whole);
    }
    std::string version5 = dib(124, 24, 0, 0, 0).replace(112, 4, number(124 + 6));  // a profile
    std::string gap = version5;
    gap.insert(124, "gap").replace(112, 4, number(124 + 3 + 6));
    EXPECT_EQ(dibOf(file(gap, 14 + 124 + 3)), version5);
}

TEST(Dib, EndsBehindItsPixelsAndItsProfile) {
    const std::string plain = dib(40, 24, 0, 0, 0);
    const std::string packed = dib(40, 8, 1, 3, 12);
    const auto with = [](std::string one, std::size_t position, const std::string& bytes) {
        return one.replace(position, bytes.size(), bytes);
    };
    const std::string version5 = with(dib(124, 32, 3, 0, 0), 112, std::string(8, '\0'));
    using Size = std::optional<std::size_t>;
    for (const auto& [one, size] : {std::pair{plain, Size(44)},
                                    {dib(12, 24, 0, 0, 0), 16},
                                    {dib(40, 8, 0, 3, 12), 56},
                                    {with(plain, 8, number(0xFFFFFFFF)), 44},  // from the top down
                                    {with(plain, 8, number(0x80000000)), {}},
                                    {with(plain, 4, number(0xFFFFFFFF)), {}},
                                    {with(plain, 4, number(0)), {}},
                                    {packed, {}},  // the header does not tell the size
                                    {with(packed, 20, number(5)), 57},
                                    {with(packed, 20, number(7)), {}},
                                    {version5, 128},
                                    {with(version5, 112, number(128) + number(2)), 130},
                                    {with(version5, 112, number(128) + number(3)), {}},
                                    {"", {}}})
        EXPECT_EQ(sizeOfDib(one), size);
}

TEST(Dib, ThatIsBrokenIsRefused) {
    const std::string good = dib(40, 8, 0, 0, 1024);
    for (const std::string& one :
         {std::string(), file(good, 0), file(good, 14 + 40), file(good, 0xFFFFFFFF),
          file(good, 14 + 40 + 1024).substr(0, 500), file(number(0xFFFFFFFF) + good, 100)})
        EXPECT_EQ(dibOf(one), std::nullopt);
    for (const std::string& one : {std::string(), std::string(11, '\0'), good.substr(0, 1000),
                                   dib(40, 8, 0, 0xFFFFFFFF, 0), dib(16, 8, 0, 0, 90)})
        EXPECT_EQ(bmpFileOf(one), std::nullopt);
}

}  // namespace
}  // namespace quorkit::base
