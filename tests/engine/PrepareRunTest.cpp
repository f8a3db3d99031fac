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
        options.warn = [this](const QString& text) { warnings.append(text); };
    }
    RunPlan prepare(const QString& line) { return prepareRun(line, options); }
    // "@name" stands for the path of name in the tree.
    QString at(QString text) const { return text.replace(u'@', tree.path() + u'\\'); }

    TempTree tree;
    RunOptions options;
    QStringList warnings;
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

TEST_F(PrepareRun, EmptyLineOpensTheScriptingView) {
    for (const char* line : {"", "   ", "\r\n \r\n", "\"\""}) {
        const RunPlan plan = prepare(line);
        EXPECT_EQ(plan.next, Next::OpenWindow) << line;
        EXPECT_TRUE(plan.commandViewText.isEmpty()) << line;
        EXPECT_TRUE(plan.script.isEmpty()) << line;
    }
}

TEST_F(PrepareRun, InteractiveStartPutsTheRestInTheCommandView) {
    const RunPlan plan = prepare("/SHOWSCRIPTWINDOW /fx.Blur /FX.Sharpen 5");
    EXPECT_EQ(plan.next, Next::OpenWindow);
    EXPECT_TRUE(plan.script.isEmpty());
    EXPECT_EQ(plan.commandViewText, QStringLiteral("/fx.Blur \r\n/fx.Sharpen 5"));
}

TEST_F(PrepareRun, ScriptFileWithShowScriptWindowBuildsButDoesNotRun) {
    tree.write("own.txt", "Sub Main\r\n' mine\r\n'{MAINCODE}'\r\nEnd Sub\r\n'{effectsscript}'");
    const QString a = tree.path("p\\a.jpg");
    const RunPlan plan =
        prepare("/scriptfile:" + tree.path("own.txt") + " /showscriptwindow /fx.Blur /files:" + a);
    EXPECT_EQ(plan.next, Next::OpenWindow);
    // The automatic " /progress.show" follows the /files: value, whose blank stays in the path.
    EXPECT_EQ(plan.script, "Sub Main\r\n' mine\r\nProcessEffects \"" + a +
                               " \"\r\n\r\nEnd Sub\r\nfx.Blur \r\nprogress.show\r\n");
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
    const QString line = at("/scriptfile:@empty.txt /loadcmdscript:@none.cmd /folder:@gone;@p "
                            "/files:b.jpg /fx.Blur");
    const QStringList problems{at("file not found: @none.cmd (/loadcmdscript:)"),
                               at("script template is empty: @empty.txt (/scriptfile:); using "
                                  "the default"),
                               at("folder not found: @gone (/folder:)"),
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
    EXPECT_TRUE(warnings.isEmpty());
    // A run that opens the window afterwards goes on with what there is, and says what it left.
    options.headless = false;
    const RunPlan soft = prepare(line);
    EXPECT_EQ(soft.next, Next::Run);
    EXPECT_EQ(soft.files, QStringList{tree.path("p\\a.jpg")});
    EXPECT_EQ(warnings, problems);
}

// How the line reads once quotes, stored lines and script files are dealt with.
TEST_F(PrepareRun, TheLineAfterExpansion) {
    tree.write("inner.txt", "/fx.Sharpen\r\n/fx.savefile\r\n");
    tree.write("outer.txt", at("/fx.Blur\r\n/LoadCmdScript:@inner.txt").toUtf8());
    tree.write("s.vt3", "// a script\r\nfx.Blur\r\n\r\nfx.savefile\r\n");
    // Lone line ends have been made CR LF when the file was read, so every break goes.
    tree.write("lf.txt", "/fx.Blur\n/fx.Sharpen\r");
    tree.write("leaf.txt", "/fx.Blur ");
    tree.write("twice.txt",
               at("/loadcmdscript:@leaf.txt/loadcmdscript:@leaf.txt/fx.savefile").toUtf8());
    const std::pair<const char*, const char*> cases[] = {
        // Quotes at either end are removed.
        {"\"/fx.Blur\"", "/fx.Blur /progress.show"},
        {"\"/fx.Blur", "/fx.Blur /progress.show"},
        {"/fx.Text \"x\"", "/fx.Text \"x /progress.show"},
        // /progress.show is added unless the line mentions progress.
        {"/fx.Blur /progress.hide", "/fx.Blur /progress.hide"},
        {"/fx.Blur /PROGRESS.hide", "/fx.Blur /PROGRESS.hide"},
        {"/fx.Blur /cmd:progress.hide", "/fx.Blur /cmd:progress.hide"},
        // Stored command lines and scripts are spliced in; missing ones vanish.
        {"/loadcmdscript:@outer.txt/exit", "/fx.Blur/fx.Sharpen/fx.savefile/exit /progress.show"},
        {"/loadcmdscript:@lf.txt", "/fx.Blur/fx.Sharpen /progress.show"},
        {"/loadcmdscript:@twice.txt", "/fx.Blur /fx.Blur /fx.savefile /progress.show"},
        {"/fx.Blur /fx.savefile /LOADCMDSCRIPT:@none.txt/exit",
         "/fx.Blur /fx.savefile /exit /progress.show"},
        {"/loadvt3script:@none.vt3/fx.Blur", "/fx.Blur /progress.show"},
        {"/loadvt3script:@s.vt3/exit", " /fx.Blur /fx.savefile/exit /progress.show"},
    };
    for (const auto& [line, expanded] : cases)
        EXPECT_EQ(prepare(at(line)).line, at(expanded)) << line;
    EXPECT_TRUE(prepare("/fx.Blur /cmd:progress.hide").script.contains("\r\nprogress.hide\r\n"));
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(PrepareRun, StoredLinesThatIncludeThemselvesAreNamedInEveryMode) {
    tree.write("a.txt", at("/fx.Blur /loadcmdscript:@b.txt/fx.Sharpen").toUtf8());
    tree.write("b.txt", at("/loadcmdscript:@a.txt/exit").toUtf8());
    const RunPlan plan = prepare(at("/loadcmdscript:@a.txt"));
    EXPECT_EQ(plan.next, Next::Refuse);
    EXPECT_EQ(plan.problems, QStringList{at("@a.txt includes itself (/loadcmdscript:): a stored "
                                            "line cannot contain itself")});
    tree.write("self.vt3", at("fx.Blur\r\n/loadvt3script:@self.vt3").toUtf8());
    EXPECT_EQ(prepare(at("/showscriptwindow /loadvt3script:@self.vt3")).next, Next::Refuse);
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

// The search for a save ignores case, the replacement does not; No and Cancel change nothing.
TEST_F(PrepareRun, TheSaveQuestionAndItsAnswers) {
    struct Case {
        const char* line;
        MsgAnswer answer;
        int questions;
        const char* after;
    };
    const Case cases[] = {
        {"/fx.Blur /exit", MsgAnswer::No, 1, "/fx.Blur /exit /progress.show"},
        {"/fx.Blur /exit", MsgAnswer::Cancel, 1, "/fx.Blur /exit /progress.show"},
        {"/fx.Blur /FX.SAVEFILE /exit", MsgAnswer::Yes, 0,
         "/fx.Blur /FX.SAVEFILE /exit /progress.show"},
        {"/fx.Blur /EXIT", MsgAnswer::Yes, 1, "/fx.Blur /EXIT /progress.show"},
    };
    for (const Case& c : cases) {
        recorder.boxes.clear();
        recorder.replies = {c.answer};
        const RunPlan plan = prepare(c.line);
        EXPECT_EQ(recorder.boxes.size(), c.questions) << c.line;
        EXPECT_EQ(plan.next, Next::Run) << c.line;
        EXPECT_EQ(plan.line, c.after) << c.line;
        EXPECT_TRUE(plan.exitAfterRun) << c.line;
    }
}

TEST_F(PrepareRun, AnEmptyStoredFileKeepsTheLoopWaitingAndIsToldOnce) {
    // Without the guard this expansion never ends; the guard stops it after a few passes.
    tree.write("empty.txt", "");
    int passes = 0;
    options.expansionGuard = [&] { return ++passes <= 5; };
    const RunPlan plan = prepare(at("/loadcmdscript:@empty.txt/fx.Blur"));
    EXPECT_EQ(passes, 6);
    EXPECT_TRUE(plan.line.startsWith("/loadcmdscript:"));
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(at("@empty.txt is empty (/loadcmdscript:)")));
    passes = 0;
    prepare(at("/loadvt3script:@empty.txt/fx.Blur"));
    EXPECT_EQ(passes, 6);
}

TEST_F(PrepareRun, WhatIsLeftOutSilentlyIsToldToTheWarningSink) {
    tree.write("empty.txt", "");
    const RunPlan plan = prepare(at("/scriptfile:@none.txt /folder:@gone; ;@p /folderall:@gone2 "
                                    "/files:@p\\a.jpg;;b.jpg /fx.Blur"));
    EXPECT_EQ(plan.fileCount, 2); // a.jpg from /files:, then again from the folder
    EXPECT_EQ(warnings,
              (QStringList{at("script template not found: @none.txt (/scriptfile:); using the "
                              "default"),
                           at("folder not found: @gone (/folder:)"),
                           at("folder not found: @gone2 (/folderall:)"),
                           "photo not found: b.jpg (/files:)"}));
    warnings.clear();
    prepare(at("/files:@p /fx.Blur"));
    EXPECT_EQ(warnings, (QStringList{at("@p is a folder: /folder: takes folders (/files:)"),
                                     "no photo to process"}));
    warnings.clear();
    options.programFolder = tree.path("elsewhere");
    prepare("/fx.Blur");
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(
        at("script template not found or empty: @elsewhere\\Data\\template.txt")));
}

TEST_F(PrepareRun, ANestedSwitchEndingAStoredLineIsNotFoundAndTheWarningSaysWhy) {
    // Line breaks go only after the expansion, so the nested path runs into the next line.
    tree.write("inner.txt", "/fx.Blur");
    tree.write("outer.txt", at("/loadcmdscript:@inner.txt\r\n").toUtf8());
    const RunPlan plan = prepare(at("/loadcmdscript:@outer.txt /fx.Sharpen"));
    EXPECT_FALSE(plan.line.contains("fx.Blur"));
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(at("file not found: @inner.txt (/loadcmdscript:); its path "
                                          "runs on into the next line")))
        << warnings[0].toStdString();
}
