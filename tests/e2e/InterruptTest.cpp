// Ctrl+C and SIGTERM end a run promptly and leave no temporary or half-written file.
#include "E2eFixture.h"

#include <csignal>

namespace {

// The runs tell when they have started looping; the signal comes a second later.
constexpr double kSignalAfter = 1.0;
// Prompt: well under a second after the signal, allowing for a loaded machine.
constexpr double kPromptly = 3.0;

ProcessOptions signalAfterASecond(int signalNumber) {
    ProcessOptions options;
    options.signalAfterSeconds = kSignalAfter;
    options.signalAfterText = "looping";
    options.signalNumber = signalNumber;
    options.timeoutSeconds = 20;
    return options;
}

const QByteArray kLoopingMain =
    "Sub Main()\r\n    MsgBox \"looping\"\r\n    Do\r\n    Loop\r\nEnd Sub\r\n";

} // namespace

TEST_F(E2eTest, CtrlCEndsAScriptLoopingForEverInMain) {
    write("loop.txt", kLoopingMain);
    const ProcessResult r =
        run({"/scriptfile:" + path("loop.txt"), "/exit"}, signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130) << describe(r);
    EXPECT_LT(r.seconds - r.signalSentAt, kPromptly) << describe(r);
    EXPECT_NE(r.err.find("vantorel: interrupted"), std::string::npos) << r.err;
    EXPECT_EQ(entries(), (QStringList{".config", "loop.txt"})); // nothing left behind
}

TEST_F(E2eTest, CtrlCDuringSavesLeavesOnlyCompletePhotos) {
#ifndef VANTOREL_SAVES_REGISTER_TEMP_FILES
    GTEST_SKIP() << "the imaging library does not register its save files with Interrupt yet";
#endif
    // Saving over and over, a large image, so the signal almost surely lands inside a save.
    copyExample("in/a.jpg");
    const ProcessResult r =
        run({"/files:" + path("in\\a.jpg"), "/progress.hide", "/fx.Resize 3072, 2048",
             "/cmd:MsgBox \"looping\"", "/cmd:Do : fx.SaveFile : Loop", "/exit"},
            signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130) << describe(r);
    EXPECT_LT(r.seconds - r.signalSentAt, kPromptly) << describe(r);
    EXPECT_EQ(entries("in"), QStringList{"a.jpg"}); // no temporary file beside it
    const auto size = sizeOf("in/a.jpg");
    ASSERT_TRUE(size) << "the photo is no complete JPEG";
    EXPECT_EQ(*size, std::make_pair(3072, 2048));
}

TEST_F(E2eTest, CtrlCOnATerminalEndsTheProgressLineFirst) {
    if (!terminalsAvailable()) GTEST_SKIP() << "this machine offers no pseudo-terminals";
    copyExample("in/a.jpg");
    const ProcessResult r =
        runInTerminal({"/files:" + path("in\\a.jpg"), "/progress.show", "/cmd:MsgBox \"looping\"",
                       "/cmd:progress.Label1.Caption = \"x\"",
                       "/cmd:Do : progress.DoXEvents : Loop", "/fx.savefile", "/exit"},
                      {}, signalAfterASecond(SIGINT));
    ASSERT_TRUE(r.exited) << describe(r);
    EXPECT_EQ(r.status, 130);
    // The progress line was open (it ends in erase-to-end-of-line); the message starts on a
    // line of its own after it.
    EXPECT_NE(r.out.find(" photos per second\x1b[K\r\nvantorel: interrupted"), std::string::npos)
        << r.out;
}
