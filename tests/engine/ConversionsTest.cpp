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

TEST(ScriptToCommandLine, EachRuleAsAScriptAndItsLine) {
    const QString ends = QStringLiteral("\r\n");
    const std::pair<QString, QString> cases[] = {
        // Statements become items; an empty script gives one separator.
        {"fx.Diffuse\r\nfx.resize 30, 30\r\nfx.savefile",
         " /fx.Diffuse /fx.resize 30, 30 /fx.savefile"},
        {"fx.Blur\r\n", " /fx.Blur"},
        {"progress.hide\r\nfunc.X 1", " /progress.hide /func.X 1"},
        {"", " /"},
        // Blank lines collapse: twenty are an ordinary run. The passes merge up to 271,648
        // consecutive line ends into one separator; one more and two are left, since the series
        // is not repeated until nothing changes.
        {"fx.A\r\n\r\n\r\nfx.B\r\n\r\nfx.C", " /fx.A /fx.B /fx.C"},
        {"\r\n\r\nfx.A", " /fx.A"},
        {"fx.A" + ends.repeated(21) + "fx.B", " /fx.A /fx.B"},
        {"x" + ends.repeated(271648) + "y", " /x /y"},
        {"x" + ends.repeated(271649) + "y", " /x / /y"},
        // Comment lines go; with a leading blank the line is kept as an item of its own.
        {"// note\r\nfx.A\r\n\\\\ other note\r\nfx.B", " /fx.A /fx.B"},
        {" // kept\r\nfx.A", " / // kept /fx.A"},
        // Plain code stays; the marker itself inside a statement counts as a line boundary.
        {"Dim x\r\nfx.A 5%", " /Dim x /fx.A 5%"},
        {"fx.Text \"a% /%b\"", " /fx.Text \"a /b\""},
        // Separators are tidied.
        {"fx.A  \r\n  fx.B", " /fx.A   /  fx.B"},
        {"x \r\nfx.B", " /x /fx.B"},
        {"x  \r\nfx.B", " /x /fx.B"},
    };
    for (const auto& [script, line] : cases)
        EXPECT_EQ(ScriptToCommandLine(script), line) << script.left(40).toStdString();
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
