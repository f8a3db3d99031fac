// The script editor and the reference pane as widgets, offscreen, with the generated data files:
// what the user sees of colouring, completion, previews and dynamic help.
#include "ViewsFixture.h"
#include "editor/ScriptEditorCore.h"
#include "editor/mRichTextBox.h"
#include "editor/uReference.h"
#include "editor/uScriptingWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace {

class EditorWidget : public ViewsTest {
protected:
    void SetUp() override {
        ViewsTest::SetUp();
        editor.resize(700, 500);
        editor.show();
        editor.box()->setFocus();
    }

    QColor colourAt(int blockNumber, int column) const {
        const QTextBlock block = editor.box()->document()->findBlockByNumber(blockNumber);
        for (const QTextLayout::FormatRange& r : block.layout()->formats())
            if (column >= r.start && column < r.start + r.length)
                return r.format.foreground().color();
        return {};
    }
    QListWidget* list() const { return editor.findChild<QListWidget*>("lstProperties"); }

    uScriptingWindow editor;
};

} // namespace

TEST_F(EditorWidget, ColoursAreLayoutFormatsThatLeaveTextSelectionAndUndoAlone) {
    QPlainTextEdit* box = editor.box();
    box->setPlainText("// note 5\nfx.Blur\nDim x");
    QTextCursor c = box->textCursor();
    c.setPosition(12);
    c.setPosition(14, QTextCursor::KeepAnchor);
    box->setTextCursor(c);
    const int undo = box->document()->availableUndoSteps();
    editor.core().Colorize(true, "-1", false);
    EXPECT_EQ(colourAt(0, 8), QColor(0, 150, 0));
    EXPECT_EQ(colourAt(1, 3), QColor(20, 0, 150));
    EXPECT_EQ(colourAt(2, 0), QColor(166, 0, 0));
    EXPECT_EQ(box->textCursor().selectionStart(), 12);
    EXPECT_EQ(box->textCursor().selectionEnd(), 14);
    EXPECT_EQ(box->document()->availableUndoSteps(), undo);
    EXPECT_FALSE(editor.core().state().TextChanged);
    // Typed text is black and keeps the line's colours around it.
    QTest::keyClicks(box, "Z"); // replaces the selected ".B"
    EXPECT_EQ(box->toPlainText(), "// note 5\nfxZlur\nDim x");
    EXPECT_EQ(colourAt(1, 2), QColor(0, 0, 0));
    EXPECT_EQ(colourAt(2, 0), QColor(166, 0, 0));
}

TEST_F(EditorWidget, TypingOpensTheListTabAcceptsAndEnterStartsTheNextCall) {
    QPlainTextEdit* box = editor.box();
    QTest::keyClicks(box, "fx.Sharp");
    QTRY_VERIFY(list()->isVisible());
    EXPECT_EQ(list()->item(0)->text(), "fx.Sharpen");
    EXPECT_EQ(box->textCursor().selectedText(), "en ");
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_TRUE(box->toPlainText().endsWith("\nfx.Sharpen "));
    QTest::keyClicks(box, "40");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->toPlainText().endsWith("\nfx.Sharpen 40\nfx"));
    EXPECT_EQ(box->textCursor().selectedText(), "fx");
}

TEST_F(EditorWidget, PreviewsAndTheTestCommand) {
    QSignalSpy previews(&editor, &uScriptingWindow::PreviewRequest);
    editor.AppendLine("fx.msgdisplay \"hi\"");
    ASSERT_FALSE(previews.isEmpty());
    EXPECT_EQ(previews.last().at(0).toString(), " /msghide...\"hi\"");
    mWindowsAPI::preferences().SetDynamicPreview = false;
    editor.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
    QTest::keyClick(editor.box(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(previews.last().at(0).toString(), " /fx.msgdisplay \"hi\"");
    QTest::keyClicks(editor.box(), "x");
    QTRY_COMPARE(previews.last().at(0).toString(), QStringLiteral("none"));
}

TEST_F(EditorWidget, MenuCommandsFilesAndTheAutoCompleteSwitch) {
    QMenu* add = editor.findChild<QMenu*>("mnuAdd");
    ASSERT_NE(add, nullptr);
    QStringList items;
    for (QAction* a : add->actions())
        if (a->objectName() == "mnuCmds") items.append(a->text());
    EXPECT_EQ(items, editor.core().state().Commands);
    EXPECT_TRUE(items.contains("fx.Rotate"));
    editor.findChild<QAction*>("mnuTest")->trigger();
    // Save and load through the dialogs' answers.
    const QString file = tree.nativePath("s.vt3");
    editor.chooseFile = [&](bool, const QString&) { return file; };
    editor.findChild<QAction*>("mnuSave")->trigger();
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, "Save Complete");
    EXPECT_EQ(recorder.boxes[0].text, "Script: s.vt3 has been saved.");
    const QString saved = editor.scriptText();
    editor.findChild<QAction*>("mnuNew")->trigger();
    editor.findChild<QAction*>("mnuLoad")->trigger();
    EXPECT_EQ(editor.scriptText(), saved + "\n");
    // The switch toggles the preference; applying the preferences does not.
    QCheckBox* automatic = editor.findChild<QCheckBox*>("chkAuto");
    mWindowsAPI::setApplySettingsHook([this] { editor.LoadInitSettings(); });
    mWindowsAPI::LoadSettings(false);
    EXPECT_TRUE(automatic->isChecked());
    EXPECT_TRUE(mWindowsAPI::preferences().SetAutoComplete);
    automatic->click();
    EXPECT_FALSE(mWindowsAPI::preferences().SetAutoComplete);
    EXPECT_FALSE(automatic->isChecked());
    EXPECT_EQ(mWindowsAPI::GetSettingValue("Settings", "SetAutoComplete"), "False");
    mWindowsAPI::setApplySettingsHook({});
}

TEST_F(EditorWidget, DynamicHelpScrollsTheReferenceToTheMember) {
    uReference reference;
    reference.resize(400, 300);
    reference.show();
    editor.setReferencePane(&reference);
    QTextBrowser* browser = reference.browser();
    ASSERT_TRUE(browser->toPlainText().contains("fx.Sharpen"));
    QTest::keyClicks(editor.box(), "fx.Sharpen 4");
    const int at = int(browser->toPlainText().indexOf("fx.Sharpen"));
    QTRY_COMPARE(browser->textCursor().position(), at - 20);
    EXPECT_GT(browser->verticalScrollBar()->value(), 0);
}
