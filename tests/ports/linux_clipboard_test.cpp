// The clipboard of a real X server, shared with other programs.
#ifndef _WIN32
#include <gtest/gtest.h>
#include <quorkit/GQuorClipboard.h>
#include <quorkit/ports/clipboard.h>

#include <future>

#include "clipboard/samples.h"
#include "support/late.h"
#include "support/scratch.h"
#include "support/shell.h"
#include "support/x_peer.h"
#include "support/x_server.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;
using namespace std::literals;
using std::chrono::steady_clock;

constexpr std::size_t kLarge = 50'000'000;

std::string paste(const std::string& type) {
    return outputOf("xclip -o -selection clipboard -t '" + type + "'");
}

class LinuxClipboard : public testing::Test {
   protected:
    XServer server;
    Scratch scratch;
    Late clipboard{u"GQuorClipboard"};
    Clipboard& port = ports::native().clipboard;

    /// Puts bytes on the clipboard with xclip, which becomes the owner some time after it has
    /// returned.
    void copy(const std::string& type, const std::string& bytes) {
        const auto connection = x11::Connection::open();
        const xcb_window_t before = owner(*connection);
        scratch.write("copied", bytes);
        outputOf("xclip -i -selection clipboard " + (type.empty() ? "" : "-t '" + type + "' ") +
                 scratch.path("copied").string() + " >/dev/null");
        EXPECT_TRUE(comesTrue([&] { return owner(*connection) != before; }));
    }
    static xcb_window_t owner(x11::Connection& connection) {
        const auto cookie = xcb_get_selection_owner(connection.get(), connection.atom("CLIPBOARD"));
        return replyTo(connection, cookie, xcb_get_selection_owner_reply)->owner;
    }
    String text() { return clipboard(u"GetTextFromClipboard").get<String>(); }
    /// The executables of the programs that keep the content, one a line.
    std::string helpers() {
        return outputOf("grep -lszx 'DISPLAY=" + server.display() + "' /proc/[0-9]*/environ |" +
                        "sed 's/environ$/exe/' | xargs -r readlink | grep '/quorkit-clipboard$'");
    }
    bool helpersEnd() {
        return comesTrue([&] { return helpers().empty(); });
    }
};

TEST_F(LinuxClipboard, IsReadByOthers) {
    clipboard(u"SetTextToClipboard", {u"\u00E4\r\n"});
    for (const char* type : {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain"})
        EXPECT_EQ(paste(type), "\u00E4\r\n") << type;
    EXPECT_EQ(paste("STRING") + paste("TEXT"), "\xE4\r\n\xE4\r\n");
    clipboard(u"SetTextToClipboard", {u"\U0001F600"});
    EXPECT_EQ(paste("TARGETS"),
              "TARGETS\nTIMESTAMP\nMULTIPLE\nSAVE_TARGETS\nUTF8_STRING\n"
              "text/plain;charset=utf-8\ntext/plain\nTEXT\n");
    clipboard(u"SetRTFTextToClipboard", {u"{\\rtf1 \u00E4}"});
    EXPECT_EQ(paste("text/rtf") + paste("text/richtext"), "{\\rtf1 \xE4}{\\rtf1 \xE4}");
    for (const auto& [type, metafile, file] : samples()) {
        scratch.write("misnamed", file);
        clipboard(u"LoadPictureToClipboard", {scratch.name("misnamed")});
        EXPECT_EQ(paste(type), file) << type;
    }
    EXPECT_TRUE(port.EmptyClipboard());
    EXPECT_TRUE(helpersEnd());
}

TEST_F(LinuxClipboard, ReadsWhatOthersHave) {
    const std::tuple<std::string, std::string, String> texts[] = {
        {"", "\u00C4 \U0001F600\r\n", u"\u00C4 \U0001F600\r\n"},
        {"text/plain", "\xE4", u"\u00E4"},
        {"text/plain", "\u00E4", u"\u00E4"},
        {"STRING", "\u00E4", u"\u00C3\u00A4"},
        {"UTF8_STRING", "a\xFF\xC3\xA4", u"a\uFFFD\u00E4"},
        {"text/html", "<p>", u""}};
    for (const auto& [type, bytes, expected] : texts) {
        copy(type, bytes);
        EXPECT_EQ(text(), expected) << type;
    }
    copy("text/richtext", "{\\rtf1 \xE4}");
    EXPECT_EQ(clipboard(u"GetRTFTextFromClipboard"), Variant(u"{\\rtf1 \u00E4}"));
    const auto all = samples();
    const std::tuple<std::string, std::string, std::string> pictures[] = {
        {"image/x-MS-bmp", all[1].file, all[1].file},
        {"application/x-wmf", all[5].file, all[5].file},
        {"image/png", all[3].file, all[3].file},  // a GIF
        {"image/png", "no picture", all[3].file}};
    for (const auto& [type, bytes, expected] : pictures) {
        copy(type, bytes);
        clipboard(u"SavePictureFromClipboard", {scratch.name("saved")});
        EXPECT_EQ(scratch.read("saved"), expected) << type;
    }
}

TEST_F(LinuxClipboard, CarriesLargeTextsUntilAllHaveThem) {
    std::string large(kLarge, 'a');
    for (std::size_t i = 0; i < large.size(); i += 997) large[i] = '\n';
    const auto start = steady_clock::now();
    EXPECT_TRUE(port.PutOnClipboard(ClipboardFormat::Text, large));
    std::string other;
    std::thread second([&] { other = paste("text/plain"); });
    EXPECT_EQ(paste("UTF8_STRING"), large);
    second.join();
    EXPECT_EQ(other, large);
    {
        XPeer vanishing;
        EXPECT_TRUE(vanishing.ask("UTF8_STRING", "A"));
        xcb_delete_property(vanishing.connection.get(), vanishing.window.id(), vanishing.atom("A"));
    }
    XPeer slow;
    EXPECT_TRUE(slow.ask("UTF8_STRING", "A"));
    copy("", large);
    EXPECT_TRUE(port.GetClipboardData(ClipboardFormat::Text, other));
    EXPECT_EQ(other, large);
    EXPECT_NE(helpers(), "");
    EXPECT_EQ(slow.takePieces("A"), kLarge);
    EXPECT_TRUE(helpersEnd());
    EXPECT_LT(steady_clock::now() - start, 20s);  // about one second
}

TEST_F(LinuxClipboard, OutlivesTheProgram) {
    const fs::path built = QUORKIT_BUILD;
    const Variable ownFolder("QUORKIT_LIBEXEC", scratch.path("own").string());
    fs::create_directory(scratch.path("bin"));
    fs::copy(built / "quorkit", scratch.path("bin"));
    const auto start = steady_clock::now();
    std::string expected;
    enum Kind { Good, Link, Strangers };
    const Kind strangers = geteuid() == 0 ? Strangers : Link;  // only root can make one
    const std::pair<const char*, Kind> steps[] = {{"libexec", Good}, {"libexec/quorkit", Good},
                                                  {"bin", Link},     {"bin", strangers},
                                                  {"bin", Good},     {"own", strangers}};
    for (const auto& [folder, kind] : steps) {
        const fs::path file = scratch.path(folder) / "quorkit-clipboard";
        fs::create_directory(file.parent_path());
        fs::remove(file);
        kind == Link ? fs::create_symlink(scratch.path("libexec/quorkit-clipboard"), file)
                     : fs::copy(built / file.filename(), file);
        if (kind == Strangers) {
            EXPECT_EQ(chown(file.c_str(), 65534, 65534), 0);
        }
        if (kind == Good || folder == "own"s) expected = file.string() + "\n";
        EXPECT_EQ(outputOf("x=$(" + scratch.path("bin/quorkit").string() +
                           " call GQuorClipboard.SetTextToClipboard hi <&- 2>&-); echo [$x]"),
                  "[]\n");
        EXPECT_EQ(paste("STRING"), "hi");
        EXPECT_TRUE(comesTrue([&] { return helpers() == expected; })) << file;
    }
    EXPECT_LT(steady_clock::now() - start, 5s);
    copy("", "other");
    EXPECT_TRUE(helpersEnd());
    EXPECT_EQ(text(), u"other");
}

TEST_F(LinuxClipboard, IsNeverEmptyWhileManySetIt) {
    std::atomic<int> empty = 0;
    const auto setAndRead = [&] {
        GQuorClipboard own;
        for (int i = 0; i < 20; ++i) {
            own.SetTextToClipboard(u"text");
            if (own.GetTextFromClipboard().empty()) ++empty;
        }
    };
    std::thread others[] = {std::thread(setAndRead), std::thread(setAndRead)};
    setAndRead();
    for (std::thread& one : others) one.join();
    EXPECT_EQ(empty, 0);
}

TEST_F(LinuxClipboard, FollowsTheRules) {
    XPeer peer;
    peer.own("CLIPBOARD_MANAGER");
    clipboard(u"SetTextToClipboard", {u"\U0001F600"});
    const auto request = peer.nextRequest();
    EXPECT_TRUE(request && request->target == peer.atom("SAVE_TARGETS"));
    EXPECT_FALSE(peer.ask("STRING", "A"));
    peer.put(peer.window.id(), peer.atom("A"), peer.atom("ATOM_PAIR"), 32,
             {peer.atom("STRING"), peer.atom("B"), peer.atom("UTF8_STRING"), peer.atom("C")});
    EXPECT_TRUE(peer.ask("MULTIPLE", "A"));
    EXPECT_EQ(peer.property("A").substr(0, 8), std::string(8, '\0'));
    EXPECT_EQ(peer.property("B"), "");
    EXPECT_EQ(peer.property("C"), "\U0001F600");
    EXPECT_FALSE(peer.ask("MULTIPLE", "D"));
    peer.own("CLIPBOARD");
    EXPECT_TRUE(helpersEnd());
    std::thread manager([&] {  // restores an old content when the clipboard has no owner
        EXPECT_TRUE(peer.next<xcb_selection_clear_event_t>(XCB_SELECTION_CLEAR));
        EXPECT_NE(owner(peer.connection), XCB_NONE);
    });
    clipboard(u"SetTextToClipboard", {u"new"});
    manager.join();
}

TEST_F(LinuxClipboard, DoesNotRelyOnOwners) {
    for (const auto& [manner, expected] :
         {std::pair{"silent", u""}, {"nonsense", u"AAAA"}, {"half", u""}}) {
        std::promise<void> ready;
        std::thread owner([&, manner = std::string(manner)] {
            XPeer peer;
            peer.own("CLIPBOARD");
            ready.set_value();
            for (const bool list : {true, false}) {
                const auto request = peer.nextRequest();
                if (!request || manner == "silent") return;
                const auto put = [&](xcb_atom_t type, int format, std::uint32_t value) {
                    peer.put(request->requestor, request->property, type, format, {value});
                };
                if (manner == "half") put(peer.atom(list ? "ATOM" : "INCR"), 32, XCB_ATOM_STRING);
                if (manner == "nonsense") put(XCB_ATOM_WINDOW, 8, 0x41414141);
                peer.answer(*request);
                if (manner == "nonsense" || list) continue;
                std::this_thread::sleep_for(100ms);
                put(XCB_ATOM_STRING, 8, 0x41414141);
            }
            peer.property("A");  // the answer shows that the server has received everything
        });
        ready.get_future().wait();
        const auto start = steady_clock::now();
        EXPECT_EQ(text(), expected) << manner;
        EXPECT_LT(steady_clock::now() - start, 4s) << manner;
        clipboard(u"SetTextToClipboard", {u"new"});
        EXPECT_EQ(text(), u"new");
        owner.join();
    }
}

TEST_F(LinuxClipboard, IsNotThereWithoutAServer) {
    clipboard(u"SetTextToClipboard", {u"x"});
    for (const char* display : {":no such", ""}) {
        const Variable variable("DISPLAY", display);
        clipboard(u"SetTextToClipboard", {u"new"});
        clipboard.expect(
            {u"GetTextFromClipboard", u"GetRTFTextFromClipboard", u"GetPictureFromClipboard"},
            {{{}, {u"", u"", ObjectRef()}}});
        EXPECT_FALSE(port.EmptyClipboard());
        EXPECT_FALSE(port.PutOnClipboard(ClipboardFormat::Text, "new"));
    }
    EXPECT_EQ(text(), u"x");
    server.end();
    EXPECT_TRUE(helpersEnd());
    EXPECT_EQ(text(), u"");
}

}  // namespace
}  // namespace quorkit::test
#endif
