// The main window and the command-line view, offscreen: menus, views, preferences, placement.
#include "ViewsFixture.h"
#include "platform/ScratchFolder.h"
#include "views/frmScript.h"
#include "views/mInterface.h"
#include "views/srcCommandLine.h"
#include "views/srcScripting.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class Workbench : public ViewsTest {
protected:
    static QAction* action(frmScript& w, const char* name) {
        return w.findChild<QAction*>(QLatin1String(name));
    }
    static bool menuShown(frmScript& w, const char* name) {
        return w.findChild<QMenu*>(QLatin1String(name))->menuAction()->isVisible();
    }
    static QList<bool> checks(frmScript& w) {
        QList<bool> out;
        for (const char* name : {"mnuPref0", "mnuPref1", "mnuPref2", "mnuPref3"})
            out.append(action(w, name)->isChecked());
        return out;
    }
};

} // namespace

TEST_F(Workbench, CaptionAndMenusAsTheUserSeesThem) {
    frmScript w;
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Vantorel 3 Caldrith - v3.0.12"));
    QStringList top;
    for (QAction* a : w.menuBar()->actions())
        top.append(a->text());
    EXPECT_EQ(top, (QStringList{"&File", "&View", "Scripting Preferences", "&Help"}));
    const QList<std::pair<const char*, const char*>> items{
        {"mnuExit", "E&xit"},
        {"mnuLSrcScripting", "&Scripting Editor"},
        {"mnuLSrcCommandLine", "Command &Line (Interface)"},
        {"mnuPrefOff", "Turn Off All Automation  (Faster)"},
        {"mnuPref0", "Script &Colorization"},
        {"mnuPref1", "Script &AutoComplete"},
        {"mnuPref2", "Dynamic Help &Referencing"},
        {"mnuPref3", "Dynamic &Preview"},
        {"mnuSendFeedback", "Send Suggestions or Feedback"},
        {"mnuCheckForUpdates", "Check for Application &Updates"}};
    for (const auto& [name, caption] : items)
        EXPECT_EQ(action(w, name)->text(), QString::fromUtf8(caption)) << name;
    EXPECT_EQ(w.findChild<QMenu*>("mnuManage")->title(),
              QStringLiteral("Manage Automation Features"));
}

TEST_F(Workbench, ViewsAreShownByNameWithTheirOwnMenus) {
    frmScript w;
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcScripting"));
    EXPECT_TRUE(menuShown(w, "mnusrcScripting1"));
    w.ShowTool(QStringLiteral("SRCCOMMANDLINE"));
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcCommandLine")); // the control's own spelling
    EXPECT_EQ(w.findChild<QStackedWidget*>()->currentWidget(), w.commandLineView());
    EXPECT_FALSE(menuShown(w, "mnusrcScripting1"));
    EXPECT_TRUE(menuShown(w, "mnuView"));
    w.ShowTool(QStringLiteral("nothing"));
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcCommandLine"));
    // The rule itself: own menus with an optional digit, other views' menus off, the rest alone.
    EXPECT_EQ(mInterface::menuVisibleFor("mnuSRCScripting3", "srcScripting"), true);
    EXPECT_EQ(mInterface::menuVisibleFor("mnusrcScripting4", "srcScripting"), false);
    EXPECT_EQ(mInterface::menuVisibleFor("mnuSrcOther", "srcScripting"), false);
    EXPECT_EQ(mInterface::menuVisibleFor("mnuFile", "srcScripting"), std::nullopt);
}

TEST_F(Workbench, PreferencesAreStoredAndAppliedWithoutEcho) {
    {
        frmScript w;
        EXPECT_EQ(checks(w), (QList<bool>{true, true, true, true})); // nothing stored yet
        action(w, "mnuPrefOff")->trigger();
        EXPECT_EQ(checks(w), (QList<bool>{false, false, false, false}));
        for (const char* key :
             {"SetColorize", "SetAutoComplete", "SetDynamicHelp", "SetDynamicPreview"})
            EXPECT_EQ(stored(key), QStringLiteral("False")) << key;
        action(w, "mnuPref2")->trigger();
        EXPECT_EQ(checks(w), (QList<bool>{false, false, true, false}));
        EXPECT_EQ(stored("SetDynamicHelp"), QStringLiteral("True"));
    }
    // Loading sets the checks; that must not flip or write anything back.
    mWindowsAPI::preferences() = {};
    frmScript again;
    EXPECT_EQ(checks(again), (QList<bool>{false, false, true, false}));
    EXPECT_FALSE(mWindowsAPI::preferences().SetColorize);
}

TEST_F(Workbench, PlacementSurvivesARestartButNotASecondInstance) {
    QRect placed;
    {
        frmScript first;
        first.setGeometry(110, 90, 700, 500);
        placed = first.geometry();
        first.close();
    }
    EXPECT_EQ(stored("frmScriptwidth"), QString::number(placed.width() * 15));
    EXPECT_EQ(stored("frmScriptwindow"), QStringLiteral("0"));
    frmScript restored;
    EXPECT_FALSE(restored.isSecondInstance());
    EXPECT_EQ(restored.geometry(), placed);
    frmScript second; // while the first still runs
    EXPECT_TRUE(second.isSecondInstance());
    EXPECT_NE(second.geometry(), placed);
}

TEST_F(Workbench, RunHandsTheLineToTheEngineAndConvertAsksFirst) {
    frmScript w;
    srcCommandLine* view = w.commandLineView();
    QStringList ran;
    view->setRunner([&](const QString& line, bool preview) {
        EXPECT_FALSE(preview);
        ran.append(line);
        return QString();
    });
    view->SetCommandLine("/files:a.jpg\n/fx.Blur\n/fx.savefile");
    view->Run();
    EXPECT_EQ(ran, QStringList{"/files:a.jpg /fx.Blur /fx.savefile"});

    w.ShowTool("srcCommandLine");
    const QString scriptBefore = w.scriptingView()->scriptText();
    recorder.replies = {MsgAnswer::No, MsgAnswer::Cancel, MsgAnswer::Yes};
    view->Convert();
    view->Convert();
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcCommandLine"));
    EXPECT_EQ(w.scriptingView()->scriptText(), scriptBefore);
    view->SetCommandLine("/files:a.jpg /fx.Blur /fx.savefile");
    view->Convert();
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcScripting"));
    EXPECT_TRUE(w.scriptingView()->scriptText().endsWith("\nfx.Blur \nfx.savefile"));
    ASSERT_EQ(recorder.boxes.size(), 3);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Notice"));
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::YesNoCancel);

    // The editor's menu hands its script to the command-line view.
    w.scriptingView()->findChild<QAction*>("mnuCommandLine")->trigger();
    EXPECT_EQ(w.CurrentTool(), QStringLiteral("srcCommandLine"));
    EXPECT_TRUE(view->commandLine().startsWith("/files:nofiles  /fx.Blur /fx.savefile"));

    // A double-click on the example copies it into the box.
    QTest::mouseDClick(view->findChild<QLineEdit*>("Text2"), Qt::LeftButton);
    EXPECT_EQ(view->commandLine(), srcCommandLine::exampleLine());
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The single-instance lock lives in the runtime folder: a private one for the tests.
    QTemporaryDir runtime;
    QFile::setPermissions(runtime.path(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    // Previews and test runs write their scratch files here, never into the build's data folder.
    QTemporaryDir scratch;
    ScratchFolder::setOverride(scratch.path());
    QApplication app(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral("3.0.12"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
