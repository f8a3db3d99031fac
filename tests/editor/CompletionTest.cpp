// Inline completion: the list, the proposal and the keys that accept, cycle or drop it.
#include "EditorHarness.h"

#include <gtest/gtest.h>

namespace {

const QStringList kCommands{"fx.Blur", "fx.BlurGaussian", "fx.Resize", "fx.Rotate"};

QStringList manyCommands(int n) {
    QStringList out;
    for (int i = 0; i < n; ++i)
        out.append(QStringLiteral("fx.Member%1").arg(i));
    return out;
}

} // namespace

TEST(Completion, ProposesTheFirstMatchAndTabAcceptsIt) {
    EditorHarness h(kCommands);
    h.type("fx.Bl");
    EXPECT_FALSE(h.core.state().list.visible);
    h.wait(200);
    EXPECT_TRUE(h.core.state().list.visible);
    EXPECT_EQ(h.core.state().list.items, (QStringList{"fx.Blur", "fx.BlurGaussian"}));
    EXPECT_EQ(h.box.text(), "fx.Blur ");
    EXPECT_EQ(h.selected(), "ur ");
    h.key(EditorKey::Tab);
    EXPECT_EQ(h.box.text(), "fx.Blur "); // no tab typed: the proposal ends in a space
    EXPECT_EQ(h.box.selStart(), 8);
    EXPECT_EQ(h.box.selLength(), 0);
    EXPECT_FALSE(h.core.state().ListShown);
}

TEST(Completion, DownAndUpCycleThroughTheListWrappingAround) {
    EditorHarness h(kCommands);
    h.type("fx.Bl");
    h.wait(200);
    h.key(EditorKey::Down);
    EXPECT_EQ(h.box.text(), "fx.BlurGaussian ");
    EXPECT_EQ(h.selected(), "urGaussian ");
    h.key(EditorKey::Down);
    EXPECT_EQ(h.selected(), "ur ");
    h.key(EditorKey::Up);
    EXPECT_EQ(h.selected(), "urGaussian ");
    // The list request those keys made is skipped: the choice stays.
    h.wait(400);
    EXPECT_EQ(h.selected(), "urGaussian ");
    h.key(EditorKey::Space);
    EXPECT_EQ(h.box.text(), "fx.BlurGaussian ");
}

TEST(Completion, TypingReplacesBackspaceDropsAndASpacedLineHidesTheList) {
    EditorHarness h(kCommands);
    h.type("fx.R");
    h.wait(200);
    EXPECT_EQ(h.selected(), "esize ");
    h.type("o");
    EXPECT_EQ(h.box.text(), "fx.Ro");
    h.wait(200);
    EXPECT_EQ(h.selected(), "tate ");
    h.key(EditorKey::Backspace); // drops the proposal and deletes the "o"
    EXPECT_EQ(h.box.text(), "fx.R");
    h.type("esize 30");
    h.wait(200);
    EXPECT_FALSE(h.core.state().list.visible);
    EXPECT_EQ(h.box.text(), "fx.Resize 30");
}

TEST(Completion, TwentySixMatchesShowTheListWithoutAProposal) {
    EditorHarness h(manyCommands(26));
    h.type("fx.");
    h.wait(200);
    EXPECT_TRUE(h.core.state().list.visible);
    EXPECT_EQ(h.core.state().list.items.size(), 26);
    EXPECT_EQ(h.box.text(), "fx.");
    EXPECT_FALSE(h.core.state().ListShown);
    EditorHarness few(manyCommands(25));
    few.type("fx.");
    few.wait(200);
    EXPECT_EQ(few.selected(), "Member0 ");
}

TEST(Completion, EnterAcceptsThenLeavesFxSelectedOnTheNewLine) {
    EditorHarness h(kCommands);
    h.type("fx.Res");
    h.wait(200);
    h.key(EditorKey::Enter);
    EXPECT_EQ(h.box.text(), "fx.Resize \nfx");
    EXPECT_EQ(h.selected(), "fx");
    EXPECT_FALSE(h.core.state().list.visible);
    // A full stop keeps the suggestion and completion goes on from "fx.".
    h.type(".Ro");
    EXPECT_EQ(h.box.text(), "fx.Resize \nfx.Ro");
    h.wait(200);
    EXPECT_EQ(h.selected(), "tate ");
    // Other keys replace the suggestion; Left, Up, a mouse press or leaving drop it.
    h.key(EditorKey::Enter);
    h.key(EditorKey::Enter);
    EXPECT_EQ(h.box.text(), "fx.Resize \nfx.Rotate \n\nfx");
    h.key(EditorKey::Up);
    EXPECT_EQ(h.box.text(), "fx.Resize \nfx.Rotate \n\n");
    h.key(EditorKey::Enter);
    h.core.focusLost();
    EXPECT_EQ(h.box.text(), "fx.Resize \nfx.Rotate \n\n\n");
}

TEST(Completion, OffShowsNoListAndEnterTypesNoFx) {
    EditorHarness h(kCommands);
    mWindowsAPI::preferences().SetAutoComplete = false;
    h.type("fx.Bl");
    h.wait(1000);
    h.key(EditorKey::Enter);
    EXPECT_FALSE(h.core.state().list.visible);
    EXPECT_EQ(h.box.text(), "fx.Bl\n");
}

TEST(Completion, ADoubleClickedEntryCompletesTheLine) {
    EditorHarness h(kCommands);
    h.type("fx.B");
    h.wait(200);
    h.core.listDoubleClicked(1);
    EXPECT_EQ(h.box.text(), "fx.BlurGaussian ");
    EXPECT_FALSE(h.core.state().list.visible);
}
