// CaptureWindow: a clear error without a display; a real capture from a private Xvfb when the
// X virtual frame buffer is installed.
#include "imaging/fx/Capture.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>

#include "FxTestSupport.h"

#ifdef FX_TEST_HAVE_XCB
#include <xcb/xcb.h>
#endif

extern char** environ;

namespace {

// Restores DISPLAY when the test ends.
class DisplayVariable {
public:
    DisplayVariable() {
        const char* v = std::getenv("DISPLAY");
        m_had = v != nullptr;
        if (v) m_value = v;
    }
    ~DisplayVariable() {
        if (m_had)
            setenv("DISPLAY", m_value.c_str(), 1);
        else
            unsetenv("DISPLAY");
    }

private:
    bool m_had = false;
    std::string m_value;
};

// An Xvfb server on a free display number, stopped (by its own process id) at the end.
class PrivateXvfb {
public:
    bool start() {
        const char* xvfb = "/usr/bin/Xvfb";
        if (!std::filesystem::exists(xvfb)) return false;
        for (int n = 90 + getpid() % 100; n < 400; ++n) {
            if (std::filesystem::exists("/tmp/.X11-unix/X" + std::to_string(n)) ||
                std::filesystem::exists("/tmp/.X" + std::to_string(n) + "-lock"))
                continue;
            m_display = ":" + std::to_string(n);
            const char* argv[] = {xvfb,  m_display.c_str(), "-screen",
                                  "0",   "320x200x24",      "-nolisten",
                                  "tcp", "-noreset",        nullptr};
            if (posix_spawn(&m_pid, xvfb, nullptr, nullptr, const_cast<char**>(argv), environ) != 0)
                return false;
            std::string socket = "/tmp/.X11-unix/X" + std::to_string(n);
            for (int i = 0; i < 100 && !std::filesystem::exists(socket); ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            return std::filesystem::exists(socket);
        }
        return false;
    }
    ~PrivateXvfb() {
        if (m_pid > 0) {
            kill(m_pid, SIGTERM);
            waitpid(m_pid, nullptr, 0);
        }
    }
    const std::string& display() const { return m_display; }

private:
    pid_t m_pid = -1;
    std::string m_display;
};

} // namespace

TEST(CaptureWindow, WithoutADisplayTheErrorSaysSo) {
    DisplayVariable keep;
    unsetenv("DISPLAY");
    try {
        fx::CaptureWindow(0);
        FAIL() << "capture without a display succeeded";
    } catch (const fx::FxError& e) {
        EXPECT_EQ(e.kind(), fx::FxErrorKind::Unavailable);
        EXPECT_EQ(e.member(), "CaptureWindow");
        std::string expected =
            fx::captureSupported() ? "no X11 display is available" : "not available in this build";
        EXPECT_NE(std::string(e.what()).find(expected), std::string::npos) << e.what();
    }
    fxtest::expectBadArgument([] { fx::CaptureWindow(-1); }, "CaptureWindow",
                              "handle must be a window id or 0");
}

TEST(CaptureWindow, CapturesTheScreenOfAnXServer) {
    if (!fx::captureSupported()) GTEST_SKIP() << "built without X11 support";
    PrivateXvfb server;
    if (!server.start()) GTEST_SKIP() << "Xvfb is not installed or did not start";
    DisplayVariable keep;
    setenv("DISPLAY", server.display().c_str(), 1);
    fxtest::photo(); // starts libvips
    vips::VImage screen = fx::CaptureWindow(0);
    EXPECT_EQ(screen.width(), 320);
    EXPECT_EQ(screen.height(), 200);
    EXPECT_EQ(screen.bands(), 3);
    EXPECT_EQ(screen.format(), VIPS_FORMAT_UCHAR);
    fxtest::expectBadArgument([] { fx::CaptureWindow(0x7abcdef); }, "CaptureWindow",
                              "no window with handle");
#ifdef FX_TEST_HAVE_XCB
    // A red 100x50 window: captured by its id it is 100x50 and red; unmapped it is refused.
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    ASSERT_EQ(xcb_connection_has_error(c), 0);
    xcb_screen_t* root = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    xcb_window_t window = xcb_generate_id(c);
    uint32_t values[] = {0xFF0000, 1}; // background pixel (24-bit true colour), override-redirect
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, root->root, 30, 20, 100, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, root->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(c, window);
    free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr)); // wait for the server
    vips::VImage shot = fx::CaptureWindow(long(window));
    EXPECT_EQ(shot.width(), 100);
    EXPECT_EQ(shot.height(), 50);
    EXPECT_EQ(shot.getpoint(50, 25), (std::vector<double>{255, 0, 0}));
    xcb_unmap_window(c, window);
    free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    fxtest::expectBadArgument([&] { fx::CaptureWindow(long(window)); }, "CaptureWindow",
                              "is not visible on the screen");
    xcb_disconnect(c);
#endif
}
