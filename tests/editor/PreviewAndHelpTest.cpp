// The preview trigger and dynamic help: when a preview is asked for and with what, and when the
// reference pane is asked to show a topic.
#include "EditorHarness.h"
#include "editor/ReferenceTopic.h"

#include <gtest/gtest.h>

TEST(Preview, OnePerPauseInTypingAndNoneWithoutAChange) {
    EditorHarness h;
    h.type("fx.Soften");
    h.wait(300);
    h.type("(5)");
    h.wait(499);
    EXPECT_TRUE(h.previews.isEmpty());
    h.wait(1);
    EXPECT_EQ(h.previews, QStringList{" /fx.Soften(5)"});
    h.wait(2000);
    EXPECT_EQ(h.previews.size(), 1);
    // Recolouring twice, or typing that changes nothing in the command line, sends nothing.
    h.core.Colorize(true, "-1", false);
    h.core.Colorize(true, "-1", false);
    h.core.keyPress();
    h.wait(500);
    EXPECT_EQ(h.previews.size(), 1);
}

TEST(Preview, AutomaticPreviewsHideMessagesTheTestKeepsThem) {
    EditorHarness h;
    h.script("fx.msgdisplay \"hi\"\nfx.Blur");
    h.core.RequestPreview(false);
    EXPECT_EQ(h.previews.last(), " /msghide...\"hi\" /fx.Blur");
    mWindowsAPI::preferences().SetDynamicPreview = false;
    h.core.RequestPreview(false);
    EXPECT_EQ(h.previews.last(), "none");
    h.core.RequestPreview(true); // the Test command: even without a change, messages kept
    h.core.RequestPreview(true);
    EXPECT_EQ(h.previews.mid(2),
              (QStringList{" /fx.msgdisplay \"hi\" /fx.Blur", " /fx.msgdisplay \"hi\" /fx.Blur"}));
}

TEST(DynamicHelp, LooksUpTheFirstWordOfAnFxLineOncePerWord) {
    EditorHarness h;
    QStringList topics;
    h.core.ReferencePane = [&](const QString& word) { topics.append(word); };
    h.type("fx.");
    h.wait(200);
    EXPECT_TRUE(topics.isEmpty()); // three characters: no look-up
    h.type("Blur 3");
    h.wait(200);
    h.type("0");
    h.key(EditorKey::Left);
    h.core.click();
    h.wait(200);
    EXPECT_EQ(topics, QStringList{"fx.Blur"});
    h.type("\nx = fx.Ab");
    h.wait(200);
    EXPECT_EQ(topics, QStringList{"fx.Blur"}); // its first word holds no "fx."
    h.box.setText("fx.Ab");
    h.wait(200);
    EXPECT_EQ(topics, (QStringList{"fx.Blur", "fx.Ab"}));
}

TEST(DynamicHelp, TheTopicComesUpWithTheCaretTwentyCharactersBeforeIt) {
    const QString doc =
        QStringLiteral("Index: Blur Rotate\n\nfx.Blur\nBlurs.\n\nfx.Rotate angle\n");
    const ReferenceTopic rotate = ReferenceTopic::find(doc, "FX.ROTATE");
    EXPECT_EQ(rotate.position, 36);
    EXPECT_TRUE(rotate.turnView);
    EXPECT_EQ(rotate.caret, 16);
    const ReferenceTopic early = ReferenceTopic::find(doc, "fx.Blur");
    EXPECT_EQ(early.position, 20);
    EXPECT_FALSE(early.turnView);
    EXPECT_EQ(ReferenceTopic::find(doc, "fx.Nothing").position, -1);
}
