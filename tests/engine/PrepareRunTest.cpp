// The command-line run up to the finished script: expansion, modes, template, question.
#include "RecordingMessages.h"
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>

using namespace mEngineMain;
using Next = RunPlan::Next;

namespace {

const QByteArray kTemplate = "Sub Main\r\n'{MainCode}'\r\nEnd Sub\r\n"
                             "Sub ProcessEffects(path)\r\nfx.filename = path\r\n"
                             "'{EffectsScript}'\r\nEnd Sub\r\n";

const QString kQuestion = QStringLiteral(
    "Possible Error: fx.savefile is never called.\r\n\r\nAny image conversion settings you "
    "process will not be saved unless /fx.savefile is added into command line.\r\nWould you like "
    "to automatically add /fx.savefile to the command line now?");

class PrepareRun : public testing::Test {
protected:
    void SetUp() override {
        tree.write("bin/data/template.txt", kTemplate); // found as "Data\template.txt"
        tree.write("p/a.jpg");
        options.programFolder = tree.path("bin");
    }
    RunPlan prepare(const QString& line) { return prepareRun(line, options); }

    TempTree tree;
    RunOptions options;
    RecordingMessages recorder;
    ScopedMessages scope{&recorder};
};

} // namespace

TEST_F(PrepareRun, BatchFillsTheTemplate) {
    const QString a = tree.path("p\\a.jpg");
    const RunPlan plan = prepare("/files:" + a + " /fx.Blur /Fx.Resize 30, 30 /fx.savefile");
    EXPECT_EQ(plan.next, Next::Run);
    EXPECT_FALSE(plan.exitAfterRun);
    EXPECT_EQ(plan.fileCount, 1);
    EXPECT_EQ(plan.script, "Sub Main\r\nProcessEffects \"" + a +
                               " \"\r\n\r\nEnd Sub\r\n"
                               "Sub ProcessEffects(path)\r\nfx.filename = path\r\n"
                               "fx.Blur \r\nFx.Resize 30, 30 \r\nfx.savefile \r\nprogress.show\r\n"
                               "\r\nEnd Sub\r\n");
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(PrepareRun, QuotesAtEitherEndAreRemoved) {
    EXPECT_EQ(prepare("\"/fx.Blur\"").line, QStringLiteral("/fx.Blur /progress.show"));
    EXPECT_EQ(prepare("\"/fx.Blur").line, QStringLiteral("/fx.Blur /progress.show"));
    EXPECT_EQ(prepare("/fx.Text \"x\"").line, QStringLiteral("/fx.Text \"x /progress.show"));
    EXPECT_EQ(prepare("\"/exit\"").next, Next::Nothing);
}

TEST_F(PrepareRun, EmptyLineOpensTheScriptingView) {
    for (const char* line : {"", "   ", "\r\n \r\n", "\"\""}) {
        const RunPlan plan = prepare(line);
        EXPECT_EQ(plan.next, Next::OpenWindow) << line;
        EXPECT_TRUE(plan.commandViewText.isEmpty()) << line;
        EXPECT_TRUE(plan.script.isEmpty()) << line;
    }
}

TEST_F(PrepareRun, LoneExitDoesNothing) {
    EXPECT_EQ(prepare("  /EXIT ").next, Next::Nothing);
    EXPECT_EQ(prepare("\r\n/Exit\r\n").next, Next::Nothing);
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(PrepareRun, InteractiveStartPutsTheRestInTheCommandView) {
    const RunPlan plan = prepare("/SHOWSCRIPTWINDOW /fx.Blur /FX.Sharpen 5");
    EXPECT_EQ(plan.next, Next::OpenWindow);
    EXPECT_TRUE(plan.script.isEmpty());
    EXPECT_EQ(plan.commandViewText, QStringLiteral("/fx.Blur \r\n/fx.Sharpen 5"));
}

TEST_F(PrepareRun, ScriptFileWithShowScriptWindowBuildsButDoesNotRun) {
    tree.write("own.txt", "Sub Main\r\n' mine\r\n'{MAINCODE}'\r\nEnd Sub\r\n");
    const QString a = tree.path("p\\a.jpg");
    const RunPlan plan =
        prepare("/scriptfile:" + tree.path("own.txt") + " /showscriptwindow /files:" + a);
    EXPECT_EQ(plan.next, Next::OpenWindow);
    // The automatic " /progress.show" follows the /files: value, whose blank stays in the path.
    EXPECT_EQ(plan.script,
              "Sub Main\r\n' mine\r\nProcessEffects \"" + a + " \"\r\n\r\nEnd Sub\r\n");
    EXPECT_TRUE(plan.commandViewText.isEmpty());
}

TEST_F(PrepareRun, MissingOrEmptyScriptFileFallsBackToTheTemplate) {
    tree.write("empty.txt", "");
    for (const QString& file : {tree.path("none.txt"), tree.path("empty.txt")}) {
        const RunPlan plan = prepare("/scriptfile:" + file + " /fx.Blur");
        EXPECT_EQ(plan.next, Next::Run);
        EXPECT_TRUE(plan.script.startsWith("Sub Main\r\n'{MainCode}'\r\n"))
            << plan.script.toStdString();
        EXPECT_TRUE(plan.script.contains("fx.Blur \r\n"));
    }
}

TEST_F(PrepareRun, MissingTemplateLeavesNoCode) {
    options.programFolder = tree.path("elsewhere");
    const RunPlan plan = prepare("/files:" + tree.path("p\\a.jpg") + " /fx.Blur");
    EXPECT_EQ(plan.next, Next::Run);
    EXPECT_TRUE(plan.script.isEmpty());
    EXPECT_TRUE(recorder.boxes.isEmpty()); // no effects placeholder, so no question
}

TEST_F(PrepareRun, ARunThatWritesFilesRefusesWhatItCannotUseBeforeAnything) {
    tree.write("empty.txt", "");
    const QString line =
        "/scriptfile:" + tree.path("empty.txt") + " /loadcmdscript:" + tree.path("none.cmd") +
        " /folder:" + tree.path("gone") + ";" + tree.path("p") + " /files:b.jpg /fx.Blur";
    const QStringList problems{"file not found: " + tree.path("none.cmd") + " (/loadcmdscript:)",
                               "script template is empty: " + tree.path("empty.txt") +
                                   " (/scriptfile:); using the default",
                               "folder not found: " + tree.path("gone") + " (/folder:)",
                               "photo not found: b.jpg (/files:)"};
    // Ending with /exit, or without a display: refused, and the question is never asked.
    for (bool headless : {false, true}) {
        options.headless = headless;
        const RunPlan plan = prepare(line + (headless ? "" : " /exit"));
        EXPECT_EQ(plan.next, Next::Refuse);
        EXPECT_EQ(plan.problems, problems);
        EXPECT_TRUE(plan.script.isEmpty());
    }
    EXPECT_TRUE(recorder.boxes.isEmpty());
    // A run that opens the window afterwards goes on with what there is.
    options.headless = false;
    const RunPlan soft = prepare(line);
    EXPECT_EQ(soft.next, Next::Run);
    EXPECT_EQ(soft.files, QStringList{tree.path("p\\a.jpg")});
}

TEST_F(PrepareRun, StoredLinesThatIncludeThemselvesAreNamedInEveryMode) {
    tree.write("leaf.txt", "/fx.Blur ");
    tree.write("twice.txt", ("/loadcmdscript:" + tree.path("leaf.txt") +
                             "/loadcmdscript:" + tree.path("leaf.txt") + "/fx.savefile")
                                .toUtf8());
    tree.write("a.txt", ("/fx.Blur /loadcmdscript:" + tree.path("b.txt") + "/fx.Sharpen").toUtf8());
    tree.write("b.txt", ("/loadcmdscript:" + tree.path("a.txt") + "/exit").toUtf8());
    // One file used twice is no cycle.
    EXPECT_EQ(prepare("/loadcmdscript:" + tree.path("twice.txt")).line,
              QStringLiteral("/fx.Blur /fx.Blur /fx.savefile /progress.show"));
    const RunPlan plan = prepare("/loadcmdscript:" + tree.path("a.txt"));
    EXPECT_EQ(plan.next, Next::Refuse);
    EXPECT_EQ(plan.problems,
              QStringList{tree.path("a.txt") + " includes itself (/loadcmdscript:): "
                                               "a stored line cannot contain itself"});
    tree.write("self.vt3", ("fx.Blur\r\n/loadvt3script:" + tree.path("self.vt3")).toUtf8());
    EXPECT_EQ(prepare("/showscriptwindow /loadvt3script:" + tree.path("self.vt3")).next,
              Next::Refuse);
}

TEST_F(PrepareRun, WithoutFileSourceTheMainPlaceholderStays) {
    const RunPlan plan = prepare("/fx.Blur /folder:" + tree.path("missing"));
    EXPECT_TRUE(plan.script.startsWith("Sub Main\r\n'{MainCode}'\r\nEnd Sub"));
}

TEST_F(PrepareRun, ProgressShowIsAddedUnlessTheLineMentionsProgress) {
    EXPECT_TRUE(prepare("/fx.Blur").line.endsWith(" /progress.show"));
    EXPECT_EQ(prepare("/fx.Blur /progress.hide").line, QStringLiteral("/fx.Blur /progress.hide"));
    EXPECT_EQ(prepare("/fx.Blur /PROGRESS.hide").line, QStringLiteral("/fx.Blur /PROGRESS.hide"));
    const RunPlan plan = prepare("/fx.Blur /cmd:progress.hide");
    EXPECT_EQ(plan.line, QStringLiteral("/fx.Blur /cmd:progress.hide"));
    EXPECT_TRUE(plan.script.contains("\r\nprogress.hide\r\n"));
}

TEST_F(PrepareRun, ExitWithoutSaveAsksOnceAndYesAddsTheSave) {
    recorder.replies = {MsgAnswer::Yes};
    const RunPlan plan = prepare("/fx.Blur /exit");
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Possible Error"));
    EXPECT_EQ(recorder.boxes[0].text, kQuestion);
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(plan.line, QStringLiteral("/fx.Blur /fx.savefile /exit /progress.show"));
    EXPECT_TRUE(plan.script.contains("fx.Blur \r\nfx.savefile \r\nprogress.show\r\n"));
    EXPECT_TRUE(plan.exitAfterRun);
}

TEST_F(PrepareRun, NoOrCancelGoesOnUnchanged) {
    for (MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Cancel}) {
        recorder.replies = {answer};
        const RunPlan plan = prepare("/fx.Blur /exit");
        EXPECT_EQ(plan.next, Next::Run);
        EXPECT_EQ(plan.line, QStringLiteral("/fx.Blur /exit /progress.show"));
    }
    EXPECT_EQ(recorder.boxes.size(), 2);
}

TEST_F(PrepareRun, SaveWarningSearchIgnoresCaseButReplacementDoesNot) {
    EXPECT_EQ(prepare("/fx.Blur /FX.SAVEFILE /exit").line.count("savefile", Qt::CaseInsensitive),
              1);
    EXPECT_TRUE(recorder.boxes.isEmpty());
    recorder.replies = {MsgAnswer::Yes};
    const RunPlan plan = prepare("/fx.Blur /EXIT");
    EXPECT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(plan.line, QStringLiteral("/fx.Blur /EXIT /progress.show"));
    EXPECT_TRUE(plan.exitAfterRun);
}

TEST_F(PrepareRun, NoQuestionWithoutTheEffectsPlaceholder) {
    tree.write("bin/data/template.txt", "Sub Main\r\n'{MainCode}'\r\nEnd Sub\r\n");
    const RunPlan plan = prepare("/fx.Blur /exit");
    EXPECT_TRUE(recorder.boxes.isEmpty());
    EXPECT_FALSE(plan.script.contains("fx.Blur"));
}

TEST_F(PrepareRun, StoredCommandLinesAreSplicedIn) {
    tree.write("inner.txt", "/fx.Sharpen\r\n/fx.savefile\r\n");
    tree.write("outer.txt", "/fx.Blur\r\n/LoadCmdScript:" + tree.path("inner.txt").toUtf8());
    const RunPlan plan = prepare("/loadcmdscript:" + tree.path("outer.txt") + "/exit");
    EXPECT_EQ(plan.line, QStringLiteral("/fx.Blur/fx.Sharpen/fx.savefile/exit /progress.show"));
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(PrepareRun, MissingStoredFilesVanish) {
    EXPECT_EQ(prepare("/fx.Blur /LOADCMDSCRIPT:" + tree.path("none.txt") + "/exit").line,
              QStringLiteral("/fx.Blur /exit /progress.show"));
    EXPECT_EQ(prepare("/loadvt3script:" + tree.path("none.vt3") + "/fx.Blur").line,
              QStringLiteral("/fx.Blur /progress.show"));
}

TEST_F(PrepareRun, ScriptFilesAreSplicedInTheirCommandLineForm) {
    tree.write("s.vt3", "// a script\r\nfx.Blur\r\n\r\nfx.savefile\r\n");
    const RunPlan plan = prepare("/loadvt3script:" + tree.path("s.vt3") + "/exit");
    EXPECT_EQ(plan.line, QStringLiteral(" /fx.Blur /fx.savefile/exit /progress.show"));
    EXPECT_TRUE(plan.exitAfterRun);
}

TEST_F(PrepareRun, ExistingEmptyStoredFileKeepsTheLoopWaiting) {
    // Without the guard this expansion never ends; the guard stops it after a few passes.
    tree.write("empty.txt", "");
    int passes = 0;
    options.expansionGuard = [&] { return ++passes <= 5; };
    const RunPlan plan = prepare("/loadcmdscript:" + tree.path("empty.txt") + "/fx.Blur");
    EXPECT_EQ(passes, 6);
    EXPECT_TRUE(plan.line.startsWith("/loadcmdscript:"));
    passes = 0;
    prepare("/loadvt3script:" + tree.path("empty.txt") + "/fx.Blur");
    EXPECT_EQ(passes, 6);
}

TEST_F(PrepareRun, CrLfOfStoredLinesIsRemovedWholePairsOnly) {
    // Lone line ends have been made CR LF when the file was read, so every break goes.
    tree.write("lf.txt", "/fx.Blur\n/fx.Sharpen\r");
    EXPECT_EQ(prepare("/loadcmdscript:" + tree.path("lf.txt")).line,
              QStringLiteral("/fx.Blur/fx.Sharpen /progress.show"));
}

TEST_F(PrepareRun, WhatIsLeftOutSilentlyIsToldToTheWarningSink) {
    QStringList warnings;
    options.warn = [&](const QString& text) { warnings.append(text); };
    tree.write("empty.txt", "");
    const RunPlan plan = prepare("/scriptfile:" + tree.path("none.txt") + " /loadcmdscript:" +
                                 tree.path("none.cmd") + " /folder:" + tree.path("gone") + "; ;" +
                                 tree.path("p") + " /folderall:" + tree.path("gone2") +
                                 " /files:" + tree.path("p\\a.jpg") + ";;b.jpg /fx.Blur");
    EXPECT_EQ(plan.fileCount, 2); // a.jpg from /files:, then again from the folder
    EXPECT_EQ(warnings,
              (QStringList{"file not found: " + tree.path("none.cmd") + " (/loadcmdscript:)",
                           "script template not found: " + tree.path("none.txt") +
                               " (/scriptfile:); using the default",
                           "folder not found: " + tree.path("gone") + " (/folder:)",
                           "folder not found: " + tree.path("gone2") + " (/folderall:)",
                           "photo not found: b.jpg (/files:)"}));

    warnings.clear();
    prepare("/scriptfile:" + tree.path("empty.txt") + " /files:" + tree.path("nothing.jpg"));
    EXPECT_EQ(warnings, (QStringList{"script template is empty: " + tree.path("empty.txt") +
                                         " (/scriptfile:); using the default",
                                     "photo not found: " + tree.path("nothing.jpg") + " (/files:)",
                                     "no photo to process"}));

    warnings.clear();
    prepare("/files:" + tree.path("p") + " /fx.Blur");
    EXPECT_EQ(warnings,
              (QStringList{tree.path("p") + " is a folder: /folder: takes folders (/files:)",
                           "no photo to process"}));

    warnings.clear();
    options.programFolder = tree.path("elsewhere");
    prepare("/fx.Blur");
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith("script template not found or empty: " +
                                       tree.path("elsewhere\\Data\\template.txt")));
}

TEST_F(PrepareRun, AnEmptyStoredFileIsToldOnceWhileTheLoopWaits) {
    QStringList warnings;
    options.warn = [&](const QString& text) { warnings.append(text); };
    tree.write("empty.txt", "");
    int passes = 0;
    options.expansionGuard = [&] { return ++passes <= 3; };
    prepare("/loadcmdscript:" + tree.path("empty.txt") + "/fx.Blur");
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(tree.path("empty.txt") + " is empty (/loadcmdscript:)"));
}

TEST_F(PrepareRun, ANestedSwitchEndingAStoredLineIsNotFoundAndTheWarningSaysWhy) {
    // Line breaks go only after the expansion, so the nested path runs into the next line.
    QStringList warnings;
    options.warn = [&](const QString& text) { warnings.append(text); };
    tree.write("inner.txt", "/fx.Blur");
    tree.write("outer.txt", ("/loadcmdscript:" + tree.path("inner.txt") + "\r\n").toUtf8());
    const RunPlan plan = prepare("/loadcmdscript:" + tree.path("outer.txt") + " /fx.Sharpen");
    EXPECT_FALSE(plan.line.contains("fx.Blur"));
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith("file not found: " + tree.path("inner.txt") +
                                       " (/loadcmdscript:); its path runs on into the next line"))
        << warnings[0].toStdString();
}
