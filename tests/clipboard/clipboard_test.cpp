// The class on the clipboard in memory and on the native one.
#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/picture.h>
#include <quorkit/ports/memory.h>

#include "clipboard/samples.h"
#include "support/late.h"
#ifndef _WIN32
#include "support/x_server.h"
#endif

namespace quorkit::test {
namespace {

#ifdef _WIN32
struct XServer {};
constexpr bool kWindows = true;
#else
constexpr bool kWindows = false;
#endif

class ClipboardTest : public testing::TestWithParam<const char*> {
   protected:
    const bool native = GetParam() == std::string("native");
    std::optional<XServer> server;
    MemoryPorts world;
    Clipboard& port = native ? ports::native().clipboard : world.clipboard;
    Ports all = world.ports.with(port);
    Late clipboard{u"GQuorClipboard", all};

    void SetUp() override {
        if (native) server.emplace();
    }
    std::optional<std::string> bytes(ClipboardFormat format) {
        std::string data;
        return port.GetClipboardData(format, data) ? std::optional(data) : std::nullopt;
    }
    std::string pictureFile() {
        const Variant value = clipboard(u"GetPictureFromClipboard");
        const auto picture = std::dynamic_pointer_cast<Picture>(value.get<ObjectRef>());
        return picture == nullptr ? "none" : picture->file();
    }
    /// Sets a text, and checks what both getters return.
    void expectBack(const char16_t* set, const String& text, const String& back,
                    const String& richBack) {
        clipboard(set, {text});
        clipboard.expect({u"GetTextFromClipboard", u"GetRTFTextFromClipboard"},
                         {{{}, {back, richBack}}});
    }
};

INSTANTIATE_TEST_SUITE_P(, ClipboardTest, testing::Values("memory", "native"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(ClipboardTest, GivesTextsBack) {
    const String zero(u"a\0b", 3);
    const std::pair<String, String> cases[] = {
        {u"a", u"a"},
        {u"", u""},
        {u"\u00C4 \U0001F600 \uFFFF\r\n\n\r\t", u"\u00C4 \U0001F600 \uFFFF\r\n\n\r\t"},
        {String{u'a', 0xD800, u'b'}, u"a\uFFFDb"},
        {zero, kWindows && native ? u"a" : zero}};
    for (const auto& [text, back] : cases) expectBack(u"SetTextToClipboard", text, back, u"");
    EXPECT_EQ(bytes(ClipboardFormat::Bitmap), std::nullopt);
    EXPECT_TRUE(port.EmptyClipboard());
    EXPECT_EQ(bytes(ClipboardFormat::Text), std::nullopt);
    clipboard.expect(u"GetTextFromClipboard", {{{}, u""}});
}

TEST_P(ClipboardTest, GivesRichTextsBack) {
    const std::pair<String, std::string> cases[] = {{u"{\\rtf1 a}", "{\\rtf1 a}"},
                                                    {u"\u00E4\u20AC \u0081", "\xE4\x80 \x81"},
                                                    {u"\u00C3\u00A4", "\xC3\x83\xC2\xA4"},
                                                    {u"\u03B1\u00E4", "\xCE\xB1\xC3\xA4"}};
    for (const auto& [text, inBytes] : cases) {
        expectBack(u"SetRTFTextToClipboard", text, u"", text);
        EXPECT_EQ(bytes(ClipboardFormat::RichText), inBytes);
    }
}

TEST_P(ClipboardTest, GivesPicturesBack) {
    for (const auto& [type, metafile, file] : samples()) {
        SCOPED_TRACE(type);
        world.files.put(u"C:\\a.png", file);
        world.files.put(u"C:\\b", "old");
        clipboard(u"LoadPictureToClipboard", {u"C:\\a.png"});
        EXPECT_EQ(bytes(ClipboardFormat::Bitmap).has_value(), !metafile);
        EXPECT_EQ(bytes(ClipboardFormat::Metafile).has_value(), metafile);
        clipboard(u"SavePictureFromClipboard", {u"C:\\b"});
        const Variant picture = clipboard(u"GetPictureFromClipboard");
        clipboard(u"SetTextToClipboard", {u"between"});
        EXPECT_EQ(pictureFile(), "none");
        clipboard(u"SetPictureToClipboard", {picture});
        EXPECT_EQ(world.files.content(u"C:\\b"), pictureFile());
        EXPECT_EQ(pictureFile() == file, !kWindows || !native || type != "image/wmf");
    }
    EXPECT_FALSE(port.PutOnClipboard(ClipboardFormat::Bitmap, "no picture"));
    EXPECT_FALSE(port.PutOnClipboard(ClipboardFormat::Metafile, samples()[0].file));
    EXPECT_NE(pictureFile(), "none");
}

TEST_P(ClipboardTest, SkipsWhatFails) {
    const Variant nothing = ObjectRef();
    world.files.put(u"C:\\kept", "no picture");
    for (const auto& [member, argument] :
         std::initializer_list<std::pair<const char16_t*, Variant>>{
             {u"LoadPictureToClipboard", u"C:\\missing"},
             {u"LoadPictureToClipboard", u"C:\\kept"},
             {u"SetPictureToClipboard", nothing}}) {
        clipboard(u"SetTextToClipboard", {u"x"});
        clipboard(u"SavePictureFromClipboard", {u"C:\\kept"});
        clipboard(member, {argument});
        clipboard.expect({u"GetTextFromClipboard", u"GetPictureFromClipboard"},
                         {{{}, {u"", nothing}}});
    }
    clipboard.expect(u"SetPictureToClipboard", {{{Collection::make()}, Error{13}}});
    clipboard(u"SetPictureToClipboard", {std::make_shared<Picture>(samples()[3].file)});
    world.files.setReadOnly(u"C:\\kept");
    for (const char16_t* name : {u"C:\\kept", u"C:\\", u"C:\\nowhere\\b.gif"})
        clipboard(u"SavePictureFromClipboard", {name});
    EXPECT_EQ(world.files.content(u"C:\\kept"), "no picture");
    world.clipboard.locked = true;
    if (!native) expectBack(u"SetTextToClipboard", u"new", u"", u"");
    world.clipboard.locked = false;
    EXPECT_NE(pictureFile(), "none");
}

}  // namespace
}  // namespace quorkit::test
