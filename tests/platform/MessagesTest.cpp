// Message boxes: safe defaults, the console rendering and scoped replacement of the handler.
#include "platform/Messages.h"
#include "RecordingMessages.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <unistd.h>

TEST(Messages, SafeDefaultNeverConfirms) {
    EXPECT_EQ(Messages::safeDefault(MsgButtons::YesNoCancel), MsgAnswer::No);
    EXPECT_EQ(Messages::safeDefault(MsgButtons::YesNo), MsgAnswer::No);
    EXPECT_EQ(Messages::safeDefault(MsgButtons::OkCancel), MsgAnswer::Cancel);
    EXPECT_EQ(Messages::safeDefault(MsgButtons::RetryCancel), MsgAnswer::Cancel);
    EXPECT_EQ(Messages::safeDefault(MsgButtons::AbortRetryIgnore), MsgAnswer::Abort);
    EXPECT_EQ(Messages::safeDefault(MsgButtons::OkOnly), MsgAnswer::Ok);
}

TEST(Messages, ScopedHandlerIsRestored) {
    RecordingMessages outer, inner;
    {
        ScopedMessages a(&outer);
        {
            ScopedMessages b(&inner);
            messages().inform("T", "inner");
        }
        messages().inform("T", "outer");
    }
    ASSERT_EQ(inner.boxes.size(), 1);
    ASSERT_EQ(outer.boxes.size(), 1);
    EXPECT_EQ(outer.boxes[0].text, QStringLiteral("outer"));
    EXPECT_NE(dynamic_cast<ConsoleMessages*>(&messages()), nullptr);
}

// The console writes to stderr and, without a terminal on stdin, answers No and says so.
TEST(Messages, ConsoleQuestionWithoutTerminalTakesNo) {
    if (isatty(STDIN_FILENO)) GTEST_SKIP() << "stdin is a terminal";
    testing::internal::CaptureStderr();
    ConsoleMessages console;
    const MsgAnswer answer =
        console.question(QStringLiteral("Possible Error"), QStringLiteral("line 1\r\nline 2"));
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, MsgAnswer::No);
    EXPECT_EQ(err.rfind("Possible Error\nline 1\nline 2\n", 0), 0u) << err;
    EXPECT_NE(err.find("taking \"No\""), std::string::npos) << err;
}

TEST(Messages, ConsoleBoxWithoutTitleShowsApplicationTitle) {
    testing::internal::CaptureStderr();
    ConsoleMessages console;
    EXPECT_EQ(
        console.messageBox(QString(), QStringLiteral("text"), MsgIcon::None, MsgButtons::OkOnly),
        MsgAnswer::Ok);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Vantorel 3 Caldrith\ntext\n");
}

TEST(Messages, ConsoleInputWithoutTerminalIsCancelled) {
    if (isatty(STDIN_FILENO)) GTEST_SKIP() << "stdin is a terminal";
    testing::internal::CaptureStderr();
    ConsoleMessages console;
    EXPECT_EQ(console.inputBox("Title", "Prompt", "x"), std::nullopt);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "Title\nPrompt\n(no terminal to answer on: cancelled)\n");
}
