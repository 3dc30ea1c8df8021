// Searching the windows of an X server against plain requests sent together; and the clipboard
// against a common program for it. The server is started here.
#include <benchmark/benchmark.h>
#include <quorkit/GQuorClipboard.h>
#include <quorkit/GQuorWindows.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "ratios.h"
#include "support/scratch.h"
#include "support/x_server.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"SearchTitle", "SearchTitle_pipelined", "ratio <= 2"},
    {"SearchTitle", "SearchTitle_one_by_one", ""},
    {"ClipboardText", "ClipboardText_xclip", ""},
});

/// 200 windows with titles, listed as a window manager lists them.
class Screen {
   public:
    static Screen& get() {
        static Screen screen;
        return screen;
    }

    xcb_connection_t* connection() const { return connection_; }

    xcb_get_property_cookie_t ask(xcb_window_t window, const char* property) {
        return xcb_get_property(connection_, 0, window, atom(property), XCB_ATOM_ANY, 0, 1024);
    }
    xcb_get_property_cookie_t askList() { return ask(root_, "_NET_CLIENT_LIST_STACKING"); }

    /// The number of bytes in the property.
    int take(xcb_get_property_cookie_t cookie, std::vector<xcb_window_t>* words = nullptr) {
        xcb_get_property_reply_t* const reply =
            xcb_get_property_reply(connection_, cookie, nullptr);
        if (reply == nullptr) return 0;
        const int length = xcb_get_property_value_length(reply);
        if (words != nullptr) {
            const std::span all(static_cast<xcb_window_t*>(xcb_get_property_value(reply)),
                                static_cast<std::size_t>(length) / sizeof(xcb_window_t));
            words->assign(all.begin(), all.end());
        }
        std::free(reply);
        return length;
    }

   private:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t* const screen =
            xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        root_ = screen->root;
        std::vector<xcb_window_t> windows(200);
        for (xcb_window_t& window : windows) {
            window = xcb_generate_id(connection_);
            xcb_create_window(connection_, 0, window, root_, 0, 0, 10, 10, 0,
                              XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
            const std::string title = "A document of ordinary length " + std::to_string(window);
            set(window, "_NET_WM_NAME", atom("UTF8_STRING"), 8, title.data(), title.size());
            set(window, "WM_NAME", XCB_ATOM_STRING, 8, title.data(), title.size());
            set(window, "WM_CLASS", XCB_ATOM_STRING, 8, "writer\0Writer", 14);
            xcb_map_window(connection_, window);
        }
        set(root_, "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, 32, windows.data(),
            windows.size());
        for (const xcb_window_t window : {root_, windows.front()})  // says that it keeps the list
            set(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, 32, windows.data(), 1);
        take(askList());
    }

    void set(xcb_window_t window, const char* property, xcb_atom_t type, std::uint8_t format,
             const void* data, std::size_t count) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property), type,
                            format, static_cast<std::uint32_t>(count), data);
    }

    xcb_atom_t atom(const std::string& name) {
        xcb_atom_t& number = atoms_[name];
        if (number == 0) {
            const auto cookie = xcb_intern_atom(
                connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
            auto* const reply = xcb_intern_atom_reply(connection_, cookie, nullptr);
            number = reply->atom;
            std::free(reply);
        }
        return number;
    }

    test::XServer server_;
    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::map<std::string, xcb_atom_t> atoms_;
};

void SearchTitle(benchmark::State& state) {
    Screen::get();
    GQuorWindows windows;
    for (auto _ : state)
        if (windows.WinFindWindowByPartOfTitle(u"no window has this") != 0)
            state.SkipWithError("wrong");
}
BENCHMARK(SearchTitle)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Requests the list, then every title together.
void SearchTitle_pipelined(benchmark::State& state) {
    Screen& screen = Screen::get();
    for (auto _ : state) {
        std::vector<xcb_window_t> windows;
        screen.take(screen.askList(), &windows);
        std::vector<xcb_get_property_cookie_t> asked;
        for (const xcb_window_t window : windows)
            asked.push_back(screen.ask(window, "_NET_WM_NAME"));
        for (const auto cookie : asked)
            if (screen.take(cookie) == 0) state.SkipWithError("wrong");
    }
}
BENCHMARK(SearchTitle_pipelined)->Unit(benchmark::kMicrosecond)->UseRealTime();

void SearchTitle_one_by_one(benchmark::State& state) {
    Screen& screen = Screen::get();
    for (auto _ : state) {
        std::vector<xcb_window_t> windows;
        screen.take(screen.askList(), &windows);
        for (const xcb_window_t window : windows)
            if (screen.take(screen.ask(window, "_NET_WM_NAME")) == 0) state.SkipWithError("wrong");
    }
}
BENCHMARK(SearchTitle_one_by_one)->Unit(benchmark::kMicrosecond)->UseRealTime();

constexpr std::size_t kText = 10'000'000;

void ClipboardText(benchmark::State& state) {
    Screen::get();
    GQuorClipboard clipboard;
    const String text(kText, u'x');
    for (auto _ : state) {
        clipboard.SetTextToClipboard(text);
        if (clipboard.GetTextFromClipboard().size() != kText) state.SkipWithError("wrong");
    }
}
BENCHMARK(ClipboardText)->Unit(benchmark::kMillisecond)->UseRealTime();

void ClipboardText_xclip(benchmark::State& state) {
    Screen::get();
    const test::Scratch folder;
    folder.write("text", std::string(kText, 'x'));
    const std::string file = folder.path("text").string();
    const std::string set = "xclip -selection clipboard -i " + file + " >/dev/null 2>&1";
    const std::string get = "xclip -selection clipboard -o >" + file + ".got";
    for (auto _ : state)
        if (std::system(set.c_str()) != 0 || std::system(get.c_str()) != 0)
            state.SkipWithError("wrong");
}
BENCHMARK(ClipboardText_xclip)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quorkit::bench
