// The engine's windows without a display: the progress window and the message dialogs.
#include "QtPrint.h"
#include "engine/QtMessages.h"
#include "engine/frmConvProgressWindow.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

// The application lives for the whole run and ends before the library's own statics.
using GuiTest = testing::Test;

TEST_F(GuiTest, ProgressWindowFollowsTheScript) {
    auto window = std::make_unique<frmConvProgressWindow>();
    frmConvProgressWindow* view = window.get();
    frmConvProgress progress(std::move(window));
    progress.beginRun(4);
    progress.setLabelCaption("Now Converting: a.jpg");
    EXPECT_FALSE(view->isVisible()); // loaded, not shown
    progress.Show();
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->windowTitle(), QStringLiteral("Vantorel 3 - Converting"));
    EXPECT_EQ(view->label1()->toolTip(), QStringLiteral("Now Converting: a.jpg"));
    progress.setLabelCaption("Now Converting: b.jpg");
    EXPECT_EQ(view->bar()->value(), 2);
    EXPECT_EQ(view->bar()->maximum(), 4);
    progress.DoXEvents();
    // Cancel asks the run to stop; the button says it is on its way.
    view->cancelButton()->click();
    EXPECT_TRUE(progress.cancelRequested());
    EXPECT_FALSE(view->cancelButton()->isEnabled());
    progress.beginRun(4);
    EXPECT_FALSE(progress.cancelRequested());
    // Without a count there is no bar.
    progress.beginRun(0);
    progress.setLabelCaption("x");
    EXPECT_FALSE(view->bar()->isVisible());
    progress.Hide();
    EXPECT_FALSE(view->isVisible());
}

TEST_F(GuiTest, MessageBoxesCarryTitleTextIconAndSafeEscape) {
    const auto box = QtMessages::buildBox("Possible Error", "line 1\r\nline 2", MsgIcon::Question,
                                          MsgButtons::YesNoCancel);
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Possible Error"));
    EXPECT_EQ(box->text(), QStringLiteral("line 1\nline 2"));
    EXPECT_EQ(box->icon(), QMessageBox::Question);
    EXPECT_EQ(box->buttons().size(), 3);
    EXPECT_EQ(box->standardButton(box->escapeButton()), QMessageBox::No);
    const auto untitled = QtMessages::buildBox({}, "x", MsgIcon::Exclamation, MsgButtons::OkOnly);
    EXPECT_EQ(untitled->windowTitle(), QStringLiteral("Vantorel 3 Caldrith"));
    EXPECT_EQ(untitled->icon(), QMessageBox::Warning);
}

TEST_F(GuiTest, ClickedButtonsBecomeAnswers) {
    QtMessages dialogs;
    // Answer the modal box as soon as it is up.
    QTimer::singleShot(0, [] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible())
                box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(dialogs.question("Q", "Go on?"), MsgAnswer::Yes);
    EXPECT_EQ(QtMessages::answerFor(QMessageBox::Retry), MsgAnswer::Retry);
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
