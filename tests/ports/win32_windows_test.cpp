// The windows of this program, whose threads may not be handling events when they are asked.
#ifdef _WIN32
#include <gtest/gtest.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/ports.h>
#include <windows.h>

#include <future>
#include <thread>

namespace quorkit::test {
namespace {

using namespace std::chrono_literals;

int handled = 0;

/// A window that posts a new message to itself for each one, and never paints.
LRESULT CALLBACK restless(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_PAINT) return 0;
    if (message == WM_APP) ::PostMessageW(window, WM_APP, 0, 0);
    if (message == WM_APP || message == WM_APP + 1) ++handled;
    return ::DefWindowProcW(window, message, first, second);
}

class Win32Windows : public testing::Test {
   protected:
    Win32Windows() { handled = 0; }
    ~Win32Windows() override {
        host.HideWaitWindow();
        ::DestroyWindow(window);
    }

    static WindowHandle handleOf(HWND window) {
        return static_cast<WindowHandle>(reinterpret_cast<std::intptr_t>(window));
    }
    /// The result of `ask` in another thread, while this one, which owns the window, waits.
    template <class Ask>
    auto elsewhere(Ask ask) {
        auto answer = std::async(std::launch::async, ask);
        EXPECT_EQ(answer.wait_for(10s), std::future_status::ready);
        while (answer.wait_for(1ms) != std::future_status::ready) host.DoEvents();
        return answer.get();
    }
    /// The titles of the test's visible windows, the topmost first.
    std::vector<String> visible() {
        std::vector<String> titles;
        for (const WindowInfo& one : desktop.EnumWindows())
            if (one.visible && one.title.starts_with(u"quorkit ")) titles.push_back(one.title);
        return titles;
    }
    using Titles = std::vector<String>;

    Host& host = ports::native().host;
    Desktop& desktop = ports::native().desktop;
    const String title = u"quorkit " + String(300, u'x');
    const HWND window = ::CreateWindowExW(
        0, L"STATIC", reinterpret_cast<const wchar_t*>(title.c_str()), WS_POPUP | WS_VISIBLE, 0, 0,
        500, 300, nullptr, nullptr, nullptr, nullptr);
};

TEST_F(Win32Windows, AreFoundWhileTheirThreadWaits) {
    EXPECT_EQ(elsewhere([&] { return visible(); }), Titles{title});
    EXPECT_EQ(elsewhere([&] { return desktop.FindWindowA({}, title); }), handleOf(window));
    EXPECT_EQ(desktop.FindWindowA(u"", {}), 0);
    EXPECT_EQ(desktop.FindWindowA(u"", title), 0);
    EXPECT_EQ(desktop.GetWindowTextA(0), u"");
}

TEST_F(Win32Windows, AnyThreadShowsAndHidesTheWaitWindow) {
    const auto show = [&](const char16_t* text, HWND owner) {
        return [&, text, owner] {
            host.ShowWaitWindow(text, handleOf(owner));
            return visible();
        };
    };
    const auto place = [&](const char16_t* text) {
        RECT edges = {};
        const HWND found = reinterpret_cast<HWND>(std::intptr_t{desktop.FindWindowA({}, text)});
        ::GetWindowRect(found, &edges);
        EXPECT_EQ(::GetClassLongPtrW(found, GCLP_HCURSOR),
                  reinterpret_cast<ULONG_PTR>(
                      ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT))));
        const bool pinned = (::GetWindowLongW(found, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        return std::tuple((edges.left + edges.right) / 2, (edges.top + edges.bottom) / 2, pinned);
    };
    EXPECT_EQ(show(u"quorkit a", nullptr)(), (Titles{u"quorkit a", title}));
    EXPECT_EQ(elsewhere(show(u"quorkit b", window)), (Titles{u"quorkit b", title}));
    EXPECT_EQ(place(u"quorkit b"), std::tuple(250, 150, false));
    EXPECT_TRUE(desktop.SetTopmost(handleOf(window), true));
    EXPECT_EQ(elsewhere(show(u"quorkit c", window)), (Titles{u"quorkit c", title}));
    EXPECT_EQ(place(u"quorkit c"), std::tuple(250, 150, true));
    const auto hide = [&] {
        host.HideWaitWindow();
        return visible();
    };
    EXPECT_EQ(elsewhere(hide), Titles{title});
    EXPECT_EQ(hide(), Titles{title});
}

TEST_F(Win32Windows, WhatIsPostedAfterTheEndIsHandledAndTheEndStays) {
    std::thread([&] {  // this ends with the rest of its queue
        WNDCLASSW about = {};
        about.lpfnWndProc = restless;
        about.lpszClassName = L"quorkit-restless";
        ASSERT_TRUE(::RegisterClassW(&about));
        const HWND own = ::CreateWindowExW(0, about.lpszClassName, nullptr, WS_POPUP, 0, 0, 9, 9,
                                           nullptr, nullptr, nullptr, nullptr);
        const auto soon = [] { return std::chrono::steady_clock::now() + 50ms; };
        for (const bool posted : {false, true}) {
            if (posted)
                ::PostThreadMessageW(::GetCurrentThreadId(), WM_QUIT, 7, 0);
            else
                ::PostQuitMessage(7);
            handled = 0;
            ::PostMessageW(own, WM_APP + 1, 0, 0);
            EXPECT_TRUE(host.WaitForEvents(soon()));
            host.DoEvents();
            EXPECT_EQ(handled, 1);
            EXPECT_FALSE(host.WaitForEvents(soon()));
            ::PostMessageW(own, WM_APP + 1, 0, 0);
            EXPECT_TRUE(host.WaitForEvents(soon()));
            host.DoEvents();
            EXPECT_EQ(handled, 2);
            MSG message;
            EXPECT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
            EXPECT_EQ(message.message, UINT{WM_QUIT});
            EXPECT_EQ(message.wParam, 7u);
        }
        // A window that keeps its thread busy must not delay the return.
        ::ShowWindow(own, SW_SHOWNOACTIVATE);
        host.DoEvents();
        ::PostMessageW(own, WM_APP, 0, 0);
        host.DoEvents();
        EXPECT_TRUE(host.WaitForEvents(soon()));
        EXPECT_GT(handled, 2);
        ::DestroyWindow(own);
    })
        .join();
}

}  // namespace
}  // namespace quorkit::test
#endif
