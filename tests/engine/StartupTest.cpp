// Start-up: the process arguments become the command line.
#include "QtPrint.h"
#include "engine/mVTSE_Main.h"

#include <gtest/gtest.h>

TEST(Startup, ArgumentsAreJoinedWithBlanks) {
    char prog[] = "vantorel", a[] = "/files:a.jpg", b[] = "/fx.Text \"x y\"", c[] = "/exit";
    char* argv[] = {prog, a, b, c, nullptr};
    EXPECT_EQ(mVTSE_Main::commandLineFromArguments(4, argv),
              QStringLiteral("/files:a.jpg /fx.Text \"x y\" /exit"));
}

TEST(Startup, LineEndsInArgumentsBecomeCrLf) {
    char prog[] = "vantorel", a[] = "/fx.Blur\n/fx.savefile";
    char* argv[] = {prog, a, nullptr};
    EXPECT_EQ(mVTSE_Main::commandLineFromArguments(2, argv),
              QStringLiteral("/fx.Blur\r\n/fx.savefile"));
}
