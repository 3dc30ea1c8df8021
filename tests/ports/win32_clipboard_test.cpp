// Exchange with other programs through the clipboard of Windows.
#ifdef _WIN32
#include <gtest/gtest.h>
#include <quorkit/ports/ports.h>

#include "base/dib.h"
#include "clipboard/samples.h"
#include "win32/clipboard_data.h"

namespace quorkit::test {
namespace {

/// The bytes under a format number.
std::string under(UINT format) {
    EXPECT_TRUE(::OpenClipboard(nullptr));
    const HANDLE memory = ::GetClipboardData(format);
    const std::string bytes(static_cast<const char*>(::GlobalLock(memory)), ::GlobalSize(memory));
    ::GlobalUnlock(memory);
    ::CloseClipboard();
    return bytes;
}

TEST(Win32Clipboard, HasTheBestFormOfAPictureAndABitmap) {
    Clipboard& port = ports::native().clipboard;
    const auto all = samples();
    const UINT png = ::RegisterClipboardFormatW(L"PNG");
    const UINT jpeg = ::RegisterClipboardFormatW(L"JFIF");
    const UINT gif = ::RegisterClipboardFormatW(L"GIF");
    const std::string dib = base::dibOf(all[1].file).value();
    for (const auto& [i, format, size] :
         {std::tuple{0u, png, 48u}, {1u, UINT{CF_DIB}, 64u}, {2u, jpeg, 44u}, {3u, gif, 44u}}) {
        EXPECT_TRUE(port.PutOnClipboard(ClipboardFormat::Bitmap, all[i].file));
        EXPECT_EQ(under(format), format == CF_DIB ? dib : all[i].file);
        EXPECT_EQ(under(CF_DIB).size(), size);
        if (i == 0) {
            EXPECT_EQ(under(CF_DIB).substr(40), std::string("\xFF\xFF\xFF\0\0\0\xFF\0", 8));
        }
    }

    EXPECT_TRUE(port.EmptyClipboard());
    for (const auto& [format, bytes, expected] :
         {std::tuple{jpeg, std::string("no picture"), std::string("none")},
          {UINT{CF_DIB}, dib + "12345678", all[1].file},  // memory may be larger than the picture
          {gif, all[3].file, all[1].file},
          {png, all[0].file + std::string(8 - all[0].file.size() % 8, 'x'), all[0].file}}) {
        EXPECT_TRUE(::OpenClipboard(nullptr));
        std::string found = "none";
        EXPECT_FALSE(port.GetClipboardData(ClipboardFormat::Bitmap, found));  // it is locked
        EXPECT_TRUE(native::ClipboardItem(format, bytes).put());
        ::CloseClipboard();
        port.GetClipboardData(ClipboardFormat::Bitmap, found);
        EXPECT_EQ(found, expected);
    }
}

}  // namespace
}  // namespace quorkit::test
#endif
