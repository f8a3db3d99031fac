// Ctrl+C and SIGTERM end a run promptly and leave no temporary or half-written file.
#include "E2eFixture.h"

#include <csignal>

namespace {

// Prompt: well under a second after the signal, allowing for a loaded machine.
constexpr double kSignalAfter = 1.0;
constexpr double kPromptly = kSignalAfter + 3.0;

ProcessOptions signalAfterASecond(int signalNumber) {
    ProcessOptions options;
    options.signalAfterSeconds = kSignalAfter;
    options.signalNumber = signalNumber;
    options.timeoutSeconds = 20;
    return options;
}

} // namespace

TEST_F(E2eTest, CtrlCEndsAScriptLoopingForEverInMain) {
    write("loop.txt", "Sub Main()\r\n    Do\r\n    Loop\r\nEnd Sub\r\n");
    const ProcessResult r =
        run({"/scriptfile:" + path("loop.txt"), "/exit"}, signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130) << describe(r);
    EXPECT_LT(r.seconds, kPromptly);
    EXPECT_NE(r.err.find("vantorel: interrupted"), std::string::npos) << r.err;
}

TEST_F(E2eTest, SigtermEndsTheRunWithItsOwnStatus) {
    write("loop.txt", "Sub Main()\r\n    Do\r\n    Loop\r\nEnd Sub\r\n");
    const ProcessResult r =
        run({"/scriptfile:" + path("loop.txt"), "/exit"}, signalAfterASecond(SIGTERM));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 128 + SIGTERM) << describe(r);
    EXPECT_LT(r.seconds, kPromptly);
}

// Enabled once the imaging library registers its save files with Interrupt::createTempFile.
TEST_F(E2eTest, DISABLED_CtrlCDuringSavesLeavesOnlyCompletePhotos) {
    // Saving over and over, a large image, so the signal almost surely lands inside a save.
    copyExample("in/a.jpg");
    const ProcessResult r = run({"/files:" + path("in\\a.jpg"), "/progress.hide",
                                 "/fx.Resize 3072, 2048", "/cmd:Do : fx.SaveFile : Loop", "/exit"},
                                signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130) << describe(r);
    EXPECT_LT(r.seconds, kPromptly);
    EXPECT_EQ(entries("in"), QStringList{"a.jpg"}); // no temporary file beside it
    const auto size = sizeOf("in/a.jpg");
    ASSERT_TRUE(size) << "the photo is no complete JPEG";
    EXPECT_EQ(*size, std::make_pair(3072, 2048));
}

TEST_F(E2eTest, CtrlCOnATerminalEndsTheProgressLineFirst) {
    copyExample("in/a.jpg");
    const ProcessResult r = runInTerminal(
        {"/files:" + path("in\\a.jpg"), "/progress.show", "/cmd:progress.Label1.Caption = \"x\"",
         "/cmd:Do : progress.DoXEvents : Loop", "/fx.savefile", "/exit"},
        {}, signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130);
    // The message starts on a line of its own after the progress line.
    EXPECT_NE(r.out.find("\r\nvantorel: interrupted"), std::string::npos) << r.out;
}
