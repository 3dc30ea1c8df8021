// A window whose background is a picture of the text. So the server can redraw it at any time while
// the program is busy.
#include <array>
#include <chrono>
#include <mutex>
#include <thread>

#include "base/unicode.h"
#include "linux/linux_wait_window.h"
#include "linux/x11/asked_window.h"

namespace quorkit::native {
namespace {

using namespace x11;
using std::chrono::steady_clock;

constexpr std::uint16_t kWidth = 280;
constexpr std::uint16_t kHeight = 90;
constexpr std::uint32_t kBackground = 0xF0F0F0;
constexpr std::uint32_t kForeground = 0x202020;
/// The longest wait for a window manager to show the window.
constexpr auto kLongestWait = std::chrono::seconds(2);
constexpr auto kBetweenRequests = std::chrono::milliseconds(50);
constexpr auto kBetweenLooks = std::chrono::milliseconds(1);

/// The server uses the first one that it has; the last one is built into every server.
constexpr const char* kFonts[] = {"-*-helvetica-medium-r-normal--18-*-*-*-*-*-iso8859-1",
                                  "-*-*-medium-r-normal--18-*-*-*-*-*-iso8859-1", "fixed"};
constexpr std::uint16_t kWatch = 150;  // of the font "cursor"

class WaitWindow {
   public:
    static std::unique_ptr<WaitWindow> make() {
        auto connection = Connection::open();
        if (!connection) return nullptr;
        return std::unique_ptr<WaitWindow>(new WaitWindow(std::move(connection)));
    }

    WaitWindow(const WaitWindow&) = delete;
    WaitWindow& operator=(const WaitWindow&) = delete;
    /// The window has gone for every program when this returns.
    ~WaitWindow() {
        xcb_destroy_window(get(), window_);
        replyTo(*connection_, xcb_get_input_focus(get()), xcb_get_input_focus_reply);
    }

    bool isUsable() const { return connection_->isUsable(); }

    void show(const String& text, WindowHandle owner, Pointer pointer) {
        setText(text);
        setPointer(pointer);
        const auto above = static_cast<xcb_window_t>(owner);
        if (owner > 0)
            setProperty(XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, &above, 1);
        else
            xcb_delete_property(get(), window_, XCB_ATOM_WM_TRANSIENT_FOR);
        waitUntilShown();
    }

    void setPointer(Pointer pointer) {
        const std::uint32_t cursor = pointer == Pointer::Hourglass ? watch_ : XCB_NONE;
        xcb_change_window_attributes(get(), window_, XCB_CW_CURSOR, &cursor);
        xcb_flush(get());
    }

   private:
    explicit WaitWindow(std::unique_ptr<Connection> connection)
        : connection_(std::move(connection)),
          window_(xcb_generate_id(get())),
          picture_(xcb_generate_id(get())),
          pen_(xcb_generate_id(get())),
          font_(openFont()),
          watch_(makeWatch()) {
        const xcb_screen_t& screen = connection_->screen();
        const auto x = static_cast<std::int16_t>((screen.width_in_pixels - kWidth) / 2);
        const auto y = static_cast<std::int16_t>((screen.height_in_pixels - kHeight) / 2);
        xcb_create_window(get(), XCB_COPY_FROM_PARENT, window_, connection_->root(), x, y, kWidth,
                          kHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL, &kBackground);
        xcb_create_pixmap(get(), screen.root_depth, picture_, window_, kWidth, kHeight);
        const std::array<std::uint32_t, 3> pen = {kForeground, kBackground, font_};
        xcb_create_gc(get(), pen_, window_, XCB_GC_FOREGROUND | XCB_GC_BACKGROUND | XCB_GC_FONT,
                      pen.data());
        describe();
    }

    xcb_connection_t* get() const { return connection_->get(); }

    void setProperty(xcb_atom_t name, xcb_atom_t type, std::uint8_t format, const void* data,
                     std::uint32_t count) {
        xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window_, name, type, format, count, data);
    }

    /// Tells window managers that this is a dialog of fixed size without keyboard input.
    void describe() {
        connection_->learn(
            {"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG", "UTF8_STRING", "_NET_WM_NAME"});
        const xcb_atom_t dialog = connection_->atom("_NET_WM_WINDOW_TYPE_DIALOG");
        setProperty(connection_->atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, &dialog, 1);
        constexpr std::uint32_t positionSizeAndLimits = 4 | 8 | 16 | 32;
        const std::array<std::uint32_t, 18> hints = {
            positionSizeAndLimits, 0, 0, 0, 0, kWidth, kHeight, kWidth, kHeight};
        setProperty(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, hints.data(), 18);
        constexpr std::uint32_t inputHint = 1;
        const std::array<std::uint32_t, 9> noInput = {inputHint};
        setProperty(XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, noInput.data(), 9);
        constexpr std::string_view names("quorkit\0Quorkit\0", 16);
        setProperty(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, names.data(), 16);
    }

    xcb_font_t openFont() {
        for (const char* const name : kFonts) {
            const xcb_font_t font = xcb_generate_id(get());
            const auto cookie = xcb_open_font_checked(
                get(), font, static_cast<std::uint16_t>(std::string_view(name).size()), name);
            const ReplyPtr<xcb_generic_error_t> error(xcb_request_check(get(), cookie));
            if (!error) return font;
        }
        return XCB_NONE;
    }

    xcb_cursor_t makeWatch() {
        constexpr std::string_view name = "cursor";
        const xcb_font_t font = xcb_generate_id(get());
        const xcb_cursor_t cursor = xcb_generate_id(get());
        xcb_open_font(get(), font, name.size(), name.data());
        xcb_create_glyph_cursor(get(), cursor, font, font, kWatch, kWatch + 1, 0, 0, 0, 0xFFFF,
                                0xFFFF, 0xFFFF);
        xcb_close_font(get(), font);
        return cursor;
    }

    void setText(const String& text) {
        const std::string utf8 = base::toUtf8(text);
        const auto length = static_cast<std::uint32_t>(utf8.size());
        setProperty(connection_->atom("_NET_WM_NAME"), connection_->atom("UTF8_STRING"), 8,
                    utf8.data(), length);
        setProperty(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, utf8.data(), length);

        std::vector<xcb_char2b_t> units;
        for (const char16_t unit : text.substr(0, 255))
            units.push_back(
                {static_cast<std::uint8_t>(unit >> 8), static_cast<std::uint8_t>(unit)});
        const auto count = static_cast<std::uint8_t>(units.size());
        const auto size =
            replyTo(*connection_, xcb_query_text_extents(get(), font_, count, units.data()),
                    xcb_query_text_extents_reply);
        const int width = size ? size->overall_width : 0;
        const int above = size ? size->font_ascent - size->font_descent : 0;
        fill(kBackground);
        xcb_image_text_16(get(), count, picture_, pen_,
                          static_cast<std::int16_t>((kWidth - width) / 2),
                          static_cast<std::int16_t>((kHeight + above) / 2), units.data());
        xcb_change_window_attributes(get(), window_, XCB_CW_BACK_PIXMAP, &picture_);
        xcb_clear_area(get(), 0, window_, 0, 0, 0, 0);
    }

    void fill(std::uint32_t colour) {
        const xcb_rectangle_t whole = {0, 0, kWidth, kHeight};
        xcb_change_gc(get(), pen_, XCB_GC_FOREGROUND, &colour);
        xcb_poly_fill_rectangle(get(), picture_, pen_, 1, &whole);
        xcb_change_gc(get(), pen_, XCB_GC_FOREGROUND, &kForeground);
    }

    bool isShown() const {
        const auto about = replyTo(*connection_, xcb_get_window_attributes(get(), window_),
                                   xcb_get_window_attributes_reply);
        return about && about->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    /// Asks repeatedly, because a window manager that is just starting may miss a request.
    void waitUntilShown() {
        const auto deadline = steady_clock::now() + kLongestWait;
        for (auto asked = steady_clock::time_point::min(); !isShown();
             std::this_thread::sleep_for(kBetweenLooks)) {
            const auto now = steady_clock::now();
            if (!connection_->isUsable() || now >= deadline) return;
            if (now - kBetweenRequests < asked) continue;
            xcb_map_window(get(), window_);
            asked = now;
        }
    }

    std::unique_ptr<Connection> connection_;
    xcb_window_t window_;
    xcb_pixmap_t picture_;
    xcb_gcontext_t pen_;
    xcb_font_t font_;
    xcb_cursor_t watch_;
};

struct State {
    std::mutex mutex;
    std::unique_ptr<WaitWindow> window;
    Pointer pointer = Pointer::Default;
};

State& state() {
    static State& only = *new State;  // never destroyed: other threads may outlive static objects
    return only;
}

}  // namespace

void showWaitWindow(const String& text, WindowHandle owner) {
    const std::lock_guard lock(state().mutex);
    auto& window = state().window;
    if (!window || !window->isUsable()) window = WaitWindow::make();
    if (window) window->show(text, owner, state().pointer);
}

void hideWaitWindow() {
    const std::lock_guard lock(state().mutex);
    state().window.reset();
}

void setWaitPointer(Pointer pointer) {
    const std::lock_guard lock(state().mutex);
    state().pointer = pointer;
    if (state().window && state().window->isUsable()) state().window->setPointer(pointer);
}

}  // namespace quorkit::native
