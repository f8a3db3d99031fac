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
}
