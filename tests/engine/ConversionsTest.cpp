// Command line to script lines and back, and the loose image-type test.
#include "QtPrint.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>

using namespace mEngineMain;

TEST(CommandLineToScript, EachStatementItemStartsALine) {
    EXPECT_EQ(CommandLineToScript(" /fx.Diffuse /fx.resize 30, 30 /fx.savefile"),
              QStringLiteral(" \r\nfx.Diffuse \r\nfx.resize 30, 30 \r\nfx.savefile"));
    EXPECT_EQ(CommandLineToScript("x  /progress.show  /func.A"),
              QStringLiteral("x \r\nprogress.show \r\nfunc.A"));
}

TEST(CommandLineToScript, FilesSwitchIsTakenOut) {
    QString files;
    // The value runs up to the next "/", so the blank before it goes too.
    EXPECT_EQ(CommandLineToScript("/files:a.jpg;b.jpg /fx.Blur", &files),
              QStringLiteral("\r\nfx.Blur"));
    EXPECT_EQ(files, QStringLiteral("a.jpg;b.jpg "));
}

TEST(CommandLineToScript, SearchIgnoresCaseButReplacementsDoNot) {
    QString files;
    // The value is found, but "/files:" + value is removed only as written in lower case.
    EXPECT_EQ(CommandLineToScript("/FILES:a.jpg /fx.Blur", &files),
              QStringLiteral("/FILES:a.jpg \r\nfx.Blur"));
    EXPECT_EQ(files, QStringLiteral("a.jpg "));
    // Items with capitals are not split into lines.
    EXPECT_EQ(CommandLineToScript("/FX.Blur /fx.Sharpen"),
              QStringLiteral("/FX.Blur \r\nfx.Sharpen"));
}

TEST(ScriptToCommandLine, StatementsBecomeItems) {
    EXPECT_EQ(ScriptToCommandLine("fx.Diffuse\r\nfx.resize 30, 30\r\nfx.savefile"),
              QStringLiteral(" /fx.Diffuse /fx.resize 30, 30 /fx.savefile"));
    EXPECT_EQ(ScriptToCommandLine("fx.Blur\r\n"), QStringLiteral(" /fx.Blur"));
    EXPECT_EQ(ScriptToCommandLine("progress.hide\r\nfunc.X 1"),
              QStringLiteral(" /progress.hide /func.X 1"));
}

TEST(ScriptToCommandLine, EmptyScriptGivesOneSeparator) {
    EXPECT_EQ(ScriptToCommandLine(""), QStringLiteral(" /"));
}

TEST(ScriptToCommandLine, BlankLinesCollapse) {
    EXPECT_EQ(ScriptToCommandLine("fx.A\r\n\r\n\r\nfx.B\r\n\r\nfx.C"),
              QStringLiteral(" /fx.A /fx.B /fx.C"));
    EXPECT_EQ(ScriptToCommandLine("\r\n\r\nfx.A"), QStringLiteral(" /fx.A"));
    // Twenty blank lines are an ordinary run and merge into one separator.
    EXPECT_EQ(ScriptToCommandLine("fx.A" + QString("\r\n").repeated(21) + "fx.B"),
              QStringLiteral(" /fx.A /fx.B"));
}

TEST(ScriptToCommandLine, CollapseIsAFixedSeriesOfPasses) {
    // The passes merge up to 271,648 consecutive line ends into one separator; one more and two
    // separators are left, since the series is not repeated until nothing changes.
    EXPECT_EQ(ScriptToCommandLine("x" + QString("\r\n").repeated(271648) + "y"),
              QStringLiteral(" /x /y"));
    EXPECT_EQ(ScriptToCommandLine("x" + QString("\r\n").repeated(271649) + "y"),
              QStringLiteral(" /x / /y"));
}

TEST(ScriptToCommandLine, CommentLines) {
    EXPECT_EQ(ScriptToCommandLine("// note\r\nfx.A\r\n\\\\ other note\r\nfx.B"),
              QStringLiteral(" /fx.A /fx.B"));
    // With a leading blank the line is kept as an item of its own.
    EXPECT_EQ(ScriptToCommandLine(" // kept\r\nfx.A"), QStringLiteral(" / // kept /fx.A"));
}

TEST(ScriptToCommandLine, PlainCodeAndPercentSigns) {
    EXPECT_EQ(ScriptToCommandLine("Dim x\r\nfx.A 5%"), QStringLiteral(" /Dim x /fx.A 5%"));
    // The marker itself inside a statement counts as a line boundary.
    EXPECT_EQ(ScriptToCommandLine("fx.Text \"a% /%b\""), QStringLiteral(" /fx.Text \"a /b\""));
}

TEST(ScriptToCommandLine, SeparatorsAreTidied) {
    EXPECT_EQ(ScriptToCommandLine("fx.A  \r\n  fx.B"), QStringLiteral(" /fx.A   /  fx.B"));
    EXPECT_EQ(ScriptToCommandLine("x \r\nfx.B"), QStringLiteral(" /x /fx.B"));
    EXPECT_EQ(ScriptToCommandLine("x  \r\nfx.B"), QStringLiteral(" /x /fx.B"));
}

TEST(IsSupportedImageFile, LooseExtensionTest) {
    EXPECT_TRUE(IsSupportedImageFile("\\p\\a.JPG"));
    EXPECT_TRUE(IsSupportedImageFile("a.tiff"));
    EXPECT_TRUE(IsSupportedImageFile("a.pg")); // any piece of the filter text passes
    EXPECT_TRUE(IsSupportedImageFile("a.PNG"));
    EXPECT_FALSE(IsSupportedImageFile("a.*")); // found only at the very first character
    EXPECT_FALSE(IsSupportedImageFile("a.raw"));
    EXPECT_FALSE(IsSupportedImageFile("readme"));
    EXPECT_FALSE(IsSupportedImageFile("\\my.photos\\readme"));
    EXPECT_FALSE(IsSupportedImageFile("a."));
}
