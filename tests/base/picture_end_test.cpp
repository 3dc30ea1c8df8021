#include "base/picture_end.h"

#include <gtest/gtest.h>

#include "clipboard/samples.h"

namespace quorkit::base {
namespace {

TEST(PictureEnd, IsFoundHoweverMuchFollows) {
    using namespace std::string_literals;
    const auto all = test::samples();
    const std::string jpeg = all[2].file.substr(0, all[2].file.size() - 2);
    const std::string gif = all[3].file.substr(0, all[3].file.size() - 1);
    for (const std::string& one :
         {all[0].file, all[2].file, all[3].file,
          // A scan with a byte 0xFF and a restart, another one, and a marker with filling bytes.
          jpeg + "\xFF\0\xFF\xD0.\xFF\xDA\0\3..\xFF\xFF\xFF\xD9"s,
          // A comment with a trailer's byte, and an image with colours of its own.
          gif + "!\xFE\3a;b\0,\0\0\0\0\1\0\1\0\x80"s + "colour\2\1;\0;"s}) {
        for (const std::size_t more : {0, 1, 100})
            EXPECT_EQ(sizeOfPicture(one + std::string(more, '\xFF')), one.size());
        for (std::size_t i = 0; i < one.size(); ++i)
            EXPECT_EQ(sizeOfPicture(one.substr(0, i)), std::nullopt);
    }
    for (const std::size_t other : {1, 4, 5})
        EXPECT_EQ(sizeOfPicture(all[other].file), std::nullopt);
    EXPECT_EQ(sizeOfPicture(gif + "?"), std::nullopt);
    EXPECT_EQ(sizeOfPicture(jpeg + "\xFF\xE0\0\1"s), std::nullopt);
    EXPECT_EQ(sizeOfPicture(all[0].file.substr(0, 8) + "\xFF\xFF\xFF\xFFIEND...."), std::nullopt);
    // An end within the header.
    EXPECT_EQ(sizeOfPicture(all[0].file.substr(0, 8) + "\0\0\0\0IEND"s + std::string(30, '.')),
              std::nullopt);
}

TEST(PictureEnd, CutsOnlyWhatRoundingAdds) {
    for (const auto& [size, end, expected] : {std::tuple{16u, 15u, 15u},
                                              {16u, 1u, 1u},
                                              {16u, 0u, 16u},
                                              {15u, 14u, 15u},
                                              {24u, 8u, 24u}})
        EXPECT_EQ(withoutRounding(std::string(size, 'x'), end).size(), expected);
    EXPECT_EQ(withoutRounding("12345678", {}), "12345678");
}

}  // namespace
}  // namespace quorkit::base
