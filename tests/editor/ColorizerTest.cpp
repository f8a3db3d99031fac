// The colouring pass: which characters get which look, and what a pass leaves alone.
#include "EditorHarness.h"
#include "editor/ScriptColorizer.h"

#include <gtest/gtest.h>

namespace {

// One letter per character: . plain, N number, C command, G comment, E error (bold), T typed.
QString inks(const std::vector<Look>& looks) {
    QString out;
    for (const Look& l : looks) {
        const char letters[] = ".NCGET";
        QChar c = QLatin1Char(letters[int(l.ink)]);
        // Bold goes with the error class only; anything else bold would be a fault.
        out += (l.bold != (l.ink == Ink::Error)) ? QChar(u'!') : c;
    }
    return out;
}

QString colour(const QString& text, const QStringList& patterns = {}) {
    ScriptColorizer c;
    c.setCommands({"fx.Blur", "fx.BlurGaussian", "fx.Rotate", ""});
    c.setErrorPatterns(patterns);
    return inks(c.colour(text));
}

} // namespace

TEST(Colorizer, EachClassOfLine) {
    // Calls: command words and numbers; the rest of a call line stays plain.
    EXPECT_EQ(colour("fx.Blur 5"), "CCCCCCC.N");
    EXPECT_EQ(colour("fx.Rotate -90, 1.5e2"), "CCCCCCCCC.NNN..NNNNN");
    EXPECT_EQ(colour("progress.DoXEvents"), QString(18, u'.'));
    // Comments, numbers inside them included; both comment marks.
    EXPECT_EQ(colour("// fx.Blur 5"), QString(12, u'G'));
    EXPECT_EQ(colour("\\\\ note"), QString(7, u'G'));
    // Anything else is an error line, so is a call that is indented or not in lower case.
    EXPECT_EQ(colour("Dim x"), "EEEEE");
    EXPECT_EQ(colour("  fx.Blur 5"), QString(11, u'E'));
    EXPECT_EQ(colour("Fx.Blur 5"), QString(9, u'E'));
    EXPECT_EQ(colour("' a VBScript comment"), QString(20, u'E'));
    // Per line, across line breaks (each "\n" takes the look of its line's CR LF).
    EXPECT_EQ(colour("//a\nfx.Blur\nx = 1"), "GGG.CCCCCCC.EEEEE");
    // The empty command finds nothing; empty lines mark nothing.
    EXPECT_EQ(colour("\n\n"), "..");
    // Hex and a longer command that contains a shorter one.
    EXPECT_EQ(colour("fx.BlurGaussian &H1F"), "CCCCCCCCCCCCCCC.NNNN");
}

TEST(Colorizer, ErrorPatternsOverrideEverythingAndSpanLines) {
    const QStringList patterns{"fx.Blur 5\r\nfx.Rotate", "ROTATE 9"};
    // The pattern found across the line break, its characters marked; case does not matter.
    EXPECT_EQ(colour("fx.Blur 5\nfx.Rotate 90", patterns), "EEEEEEEEEEEEEEEEEEEEEN");
    EXPECT_EQ(colour("fx.Blur 6\nfx.Rotate 90", patterns), "CCCCCCC.N.CCCEEEEEEEEN");
    EXPECT_EQ(colour("// fx.rotate 90", patterns), "GGGGGGEEEEEEEEG");
}

TEST(Colorizer, TheLaggingNumberSearchFindsTheFirstMatchAhead) {
    // "5" is searched from a position that lags behind by the separators, so it is found in
    // "x5" before the number itself: the behaviour of the search, kept.
    EXPECT_EQ(colour("fx.Rotate x5, 5"), "CCCCCCCCC..N...");
    EXPECT_TRUE(ScriptColorizer::isNumeric(u"&H1F"));
    EXPECT_TRUE(ScriptColorizer::isNumeric(u"-1.5e3"));
    EXPECT_FALSE(ScriptColorizer::isNumeric(u""));
    EXPECT_FALSE(ScriptColorizer::isNumeric(u"x5"));
}

TEST(Colorizer, APassKeepsTheSelectionAndSetsNoTextChange) {
    EditorHarness h({"fx.Blur"});
    h.script("// header\nfx.Blur 5\nDim x");
    h.box.setSelStart(12);
    h.box.setSelLength(5);
    h.core.Colorize(true, "-1", false);
    EXPECT_EQ(h.box.selStart(), 12);
    EXPECT_EQ(h.box.selLength(), 5);
    EXPECT_FALSE(h.core.state().TextChanged);
    EXPECT_EQ(inks(h.core.looks().looks()), "GGGGGGGGG.CCCCCCC.N.EEEEE");
    // Only changed text is recoloured from the keyboard; colouring itself changes no text.
    h.core.Colorize(true, "-1", true);
    EXPECT_EQ(h.previews.size(), 1);
}

TEST(Colorizer, OffMeansNoPassAndNoPreviewFromIt) {
    EditorHarness h({"fx.Blur"});
    mWindowsAPI::preferences().SetColorize = false;
    h.script("fx.Blur 5");
    h.core.Colorize(true, "-1", false);
    EXPECT_TRUE(h.previews.isEmpty());
    EXPECT_TRUE(h.core.state().TextChanged);
    EXPECT_EQ(inks(h.core.looks().looks()), QString(9, u'.'));
}

TEST(Colorizer, TypedTextIsPlainExceptInsideAComment) {
    EditorHarness h({"fx.Blur"});
    h.script("// note\nfx.Blur");
    h.core.Colorize(true, "-1", false);
    h.type("X");
    h.box.setSelStart(4);
    h.type("Y");
    EXPECT_EQ(h.box.text(), "// nYote\nfx.BlurX");
    EXPECT_EQ(inks(h.core.looks().looks()), "GGGGGGGG.CCCCCCC.");
}
