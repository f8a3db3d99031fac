// The script host's error texts: the excerpt around the failing line, preview and box texts.
#include "QtPrint.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>

using namespace mEngineMain;

namespace {

// "l1" ... "lN" joined with CR LF.
QString numberedScript(int count) {
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines.append(QStringLiteral("l%1").arg(i));
    return lines.join(QStringLiteral("\r\n"));
}

QStringList excerptLines(const QString& excerpt) {
    QStringList lines = excerpt.split(QStringLiteral("\r\n"));
    EXPECT_EQ(lines.takeLast(), QString()); // every line ends with CR LF
    return lines;
}

} // namespace

TEST(ScriptErrorExcerpt, ErrorOnTheFirstLineShowsLines1To6) {
    QString errorLine;
    const QStringList lines =
        excerptLines(scriptErrorExcerpt(numberedScript(20), {13, "Type mismatch", 1}, &errorLine));
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines.first(), QStringLiteral("Line 001:  l1   'ERROR: 13: Type mismatch"));
    EXPECT_EQ(lines.last(), QStringLiteral("Line 006:  l6"));
    EXPECT_EQ(errorLine, QStringLiteral("l1"));
}

TEST(ScriptErrorExcerpt, ErrorOnTheLastLineShowsTheFiveBefore) {
    const QStringList lines =
        excerptLines(scriptErrorExcerpt(numberedScript(12), {11, "Division by zero", 12}));
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines.first(), QStringLiteral("Line 007:  l7"));
    EXPECT_EQ(lines.last(), QStringLiteral("Line 012:  l12   'ERROR: 11: Division by zero"));
}

TEST(ScriptErrorExcerpt, MiddleLineHasFiveEachSideTabsRemovedAndTrimmed) {
    QString script = numberedScript(30);
    script.replace(QStringLiteral("l15"), QStringLiteral("\t  fx.Blur\t2  "));
    QString errorLine;
    const QStringList lines = excerptLines(
        scriptErrorExcerpt(script, {5, "Invalid procedure call or argument", 15}, &errorLine));
    ASSERT_EQ(lines.size(), 11);
    EXPECT_EQ(lines[0], QStringLiteral("Line 010:  l10"));
    EXPECT_EQ(lines[5], QStringLiteral(
                            "Line 015:  fx.Blur2   'ERROR: 5: Invalid procedure call or argument"));
    EXPECT_EQ(errorLine, QStringLiteral("fx.Blur2"));
    EXPECT_EQ(scriptErrorExcerpt(numberedScript(1500), {1, "x", 1200}).left(10),
              QStringLiteral("Line 1195:"));
}

// The preview's text: ScriptHost.PreviewReturnsTheErrorAsText, FxBatch.PreviewMode....
TEST(ScriptErrorTexts, PreviewAndBox) {
    const ScriptFailure failure{1002, "Syntax error", 7};
    EXPECT_EQ(runtimeErrorText(failure, "Syntax error", "Line 007:  x\r\n"),
              QStringLiteral("Error in Code...Syntax error\r\n1002: Syntax error at line 7\r\n\r\n"
                             "Script Preview: \r\nLine 007:  x\r\n"));
    EXPECT_TRUE(noScriptEngineText().startsWith("Error: Could not initilize Windows Script 5.6"));
}
