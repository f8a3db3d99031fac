// The scripting workflow's rules without widgets: steps, questions and lines of the workflow,
// the two splitters' limits, the photo list's filters and array, the preview's run line (the
// preview menu's states: Panes).
#include "QtPrint.h"
#include "RecordingMessages.h"
#include "TempTree.h"
#include "effects/PreviewPaneLogic.h"
#include "views/PhotoList.h"
#include "views/ScriptingWorkflow.h"
#include "views/ToolPaneSplit.h"

#include <gtest/gtest.h>

namespace {

// The workflow over fakes of the editor, the engine and the photo pane.
class Workflow : public testing::Test {
protected:
    Workflow() {
        ScriptingWorkflow::Ports ports;
        ports.commandLine = [this] { return script; };
        ports.appendLine = [this](const QString& line) { script += " /" + line; };
        ports.testRun = [this](const QString& line, const QString& output) {
            testRuns.append(line);
            EXPECT_TRUE(line.contains(output));
            return testError;
        };
        ports.run = [this](const QString& line) {
            runs.append(line);
            return QString();
        };
        ports.files = [this] { return files; };
        ports.clearFiles = [this] { files.clear(); };
        flow = std::make_unique<ScriptingWorkflow>(std::move(ports));
    }
    QStringList titles() const {
        QStringList out;
        for (const RecordedBox& box : recorder.boxes)
            out.append(box.title.isEmpty() ? box.text.section("\r\n", 0, 0) : box.title);
        return out;
    }

    QString script = " /fx.Blur /fx.savefilename = \"x.bmp\"";
    QString testError;
    QStringList files, testRuns, runs;
    RecordingMessages recorder;
    ScopedMessages scope{&recorder};
    std::unique_ptr<ScriptingWorkflow> flow;
};

} // namespace

TEST_F(Workflow, LeavingTheScriptAsksForTheSaveAndTestRunsWhateverTheAnswer) {
    EXPECT_EQ(flow->nextCaption(), QStringLiteral("Next: Select Photos to Process >>"));
    recorder.replies = {MsgAnswer::No};
    flow->next(); // only the name is assigned: asked, answered No, still run and passed
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Save Error"));
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(recorder.boxes[0].text, ScriptingWorkflow::saveErrorText());
    EXPECT_EQ(flow->step(), ScriptingWorkflow::Step::Photos);
    EXPECT_EQ(flow->nextCaption(), QStringLiteral("Run: Process Photos. >>"));
    flow->back();
    EXPECT_EQ(flow->step(), ScriptingWorkflow::Step::Script);

    recorder.replies = {MsgAnswer::Yes}; // the line is added, so the second time nobody asks
    flow->next();
    flow->back();
    flow->next();
    EXPECT_TRUE(script.endsWith(" /fx.savefile"));
    EXPECT_EQ(recorder.boxes.size(), 2);
    EXPECT_EQ(testRuns.size(), 3);
    EXPECT_FALSE(ScriptingWorkflow::hasSaveCommand(" /fx.savefilename = \"a\""));
    EXPECT_TRUE(ScriptingWorkflow::hasSaveCommand(" /FX.SaveFile"));
}

TEST_F(Workflow, TheTestRunNeutralisesSavesAndMessagesAndItsErrorsKeepTheScriptStep) {
    EXPECT_EQ(ScriptingWorkflow::testRunLine(
                  " /fx.savefilename = \"x.bmp\" /fx.savefile /fx.msgdisplay \"hi\"", "E", "O"),
              "/files:E  /errpass = \"x.bmp\" /errpasssave /msghide...\"hi\" "
              "/fx.savefilename = \"O\" /fx.savefile");
    EXPECT_TRUE(ScriptingWorkflow::testOutput().endsWith("example.jpg_output.jpg"));
    script += " /fx.savefile";
    testError = "Error was found: 438: ...";
    flow->next();
    EXPECT_EQ(flow->step(), ScriptingWorkflow::Step::Script);
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].icon, MsgIcon::Critical);
    EXPECT_EQ(recorder.boxes[0].text,
              "Error was found: 438: ...\r\n\r\nCannot Process Script: The where unhandled errors. "
              "Please correct the script before proceeding.");
}

TEST_F(Workflow, RunningConfirmsTheCountRunsFinishesAndClearsTheList) {
    script += " /fx.savefile";
    flow->next();
    flow->next(); // no photos
    EXPECT_EQ(titles(), QStringList{"No files where added..."});
    EXPECT_TRUE(runs.isEmpty());

    files = {"", "\\p\\a.jpg"};
    recorder.replies = {MsgAnswer::No};
    flow->next();
    EXPECT_EQ(recorder.boxes[1].title, QStringLiteral("Are you sure?"));
    EXPECT_TRUE(recorder.boxes[1].text.startsWith("You are about to process '1' photos.\r\n\r\n"));
    EXPECT_EQ(recorder.boxes[2].text, ScriptingWorkflow::abortedText());
    EXPECT_EQ(flow->step(), ScriptingWorkflow::Step::Photos);

    files = {"", "\\p\\a.jpg", "\\p\\b.jpg"};
    recorder.replies = {MsgAnswer::Yes};
    flow->next();
    EXPECT_EQ(runs, QStringList{"/files:;\\p\\a.jpg;\\p\\b.jpg" + script + " "});
    EXPECT_EQ(recorder.boxes.last().title, QStringLiteral("Finished."));
    EXPECT_EQ(recorder.boxes.last().text, ScriptingWorkflow::finishedText());
    EXPECT_TRUE(files.isEmpty());
    EXPECT_EQ(flow->step(), ScriptingWorkflow::Step::Photos);
    // The question's lines as they stand, typos and all.
    const QStringList lines = ScriptingWorkflow::confirmText(2).split("\r\n");
    EXPECT_EQ(lines.size(), 14);
    EXPECT_EQ(lines[9], "FX.SaveFileNameAddPrefix \"new_\"");
    EXPECT_EQ(lines[10],
              "This will cause each file processed to be named: new_{origialfilename} in");
    EXPECT_EQ(lines[13], "Do you wish to continue and run the script as is?");
}

TEST(Splitters, StayWithinTheirMarginsAndToggleBack) {
    using namespace ScriptingSplit;
    // (The left limit, 4000: the scripting view, Panes.)
    EXPECT_EQ(dragPosition(6000, 9000, 15000), 11000);
    EXPECT_EQ(dragPosition(6000, 0, 7000), 3000); // too narrow: the right limit wins
    EXPECT_EQ(dragPosition(6000, 100.7, 15000), 6100);
    EXPECT_EQ(dragStatus(6000, 15000, 15),
              "Setting Scripting Window to 40% (400px) Left, 600px Right.");

    ToolPaneSplit pane(3000);
    EXPECT_EQ(pane.dragPosition(-5000, 9000), 550);
    EXPECT_EQ(pane.dragPosition(0, 1000), 450); // lower than both margins: the bottom one wins
    pane.togglePreview(9000);                   // enlarged and back: the tool pane, Panes
    pane.togglePreview(9000);
    EXPECT_EQ(pane.saved(), 3000);
    pane.togglePreview(9000);
    pane.drop(600); // dragged off the enlarged position: the next double-click enlarges again
    pane.togglePreview(9000);
    EXPECT_EQ(pane.boundary(), 550);
    pane.toggleReference(9000);
    EXPECT_EQ(pane.boundary(), 8450);
    pane.toggleReference(9000);
    EXPECT_EQ(pane.saved(), 550);
}

TEST(PhotoListRules, AddsOnceFiltersByExtensionAndHandsOverWhatExists) {
    TempTree tree;
    for (const char* name : {"a.JPG", "b.jpg", "photo.backup.jpg", "c.png", "sub/d.jpg", "e.txt"})
        tree.write(name);
    PhotoList list;
    EXPECT_EQ(list.addFolder(tree.path(), false), 4);
    EXPECT_EQ(list.addFolder(tree.path(), false), 0);
    EXPECT_FALSE(list.add(tree.path("A.jpg")));
    EXPECT_EQ(list.addFolder(tree.path(), true), 1);
    EXPECT_EQ(list.statusText(), QStringLiteral("5 files."));
    EXPECT_EQ(list.extensions(), (QStringList{"jpg", "png"}));
    list.keepOnlyExtension("jpg");
    EXPECT_EQ(list.count(), 4); // a.JPG and photo.backup.jpg count as jpg
    list.removeWithExtension("JPG");
    EXPECT_EQ(list.count(), 0);

    list.addDialogResult(tree.path("c.png") + ";" + tree.path("b.jpg") + ";" +
                         tree.path("sub\\\\d.jpg"));
    list.keepOnlyExtensions({"png", "jpg"});
    EXPECT_EQ(list.count(), 3);
    list.FixList(); // doubled separators become single
    EXPECT_EQ(list.files()[2], tree.path("sub\\d.jpg"));
    QFile::remove(tree.nativePath("b.jpg"));
    const QStringList array = list.GetAllFilesArray();
    EXPECT_EQ(array, (QStringList{"", tree.path("c.png"), tree.path("sub\\d.jpg")}));
    list.FixList();
    EXPECT_EQ(list.count(), 2);
    list.removeAt({1, 0});
    EXPECT_TRUE(list.GetAllFilesArray().isEmpty());
    EXPECT_EQ(list.addDropped({tree.path("sub"), tree.path("e.txt"), tree.path("c.png")}), 2);
}

TEST(PhotoListRules, ShortensPathsAndNames) {
    const auto upTo = [](int n) { return [n](const QString& s) { return s.size() <= n; }; };
    EXPECT_EQ(PhotoList::displayText("\\home\\ana\\trip\\a.jpg", upTo(40)),
              "\\home\\ana\\trip\\a.jpg");
    EXPECT_EQ(PhotoList::displayText("\\home\\ana\\trip\\a.jpg", upTo(14)), "...\\trip\\a.jpg");
    EXPECT_EQ(PhotoList::displayText("\\home\\ana\\trip\\a.jpg", upTo(2)), "...\\a.jpg");
    EXPECT_EQ(PhotoList::previewCaption("short.jpg"), "short.jpg");
    EXPECT_EQ(PhotoList::previewCaption("a_very_long_photo_name.jpg"), "...ong_photo_name.jpg");
}

TEST(PreviewRules, RunLineCollapsedAndTestTexts) {
    using namespace PreviewPaneLogic;
    EXPECT_EQ(
        runLine(" /fx.Blur /fx.savefilename = x.bmp /fx.savefile", "\\d\\e.jpg", "\\s\\o.jpg"),
        "/files:\\d\\e.jpg  /fx.Blur /errpass = x.bmp /errpasssave /fx.savefilename = "
        "\"\\s\\o.jpg\" /fx.savefile");
    EXPECT_EQ(neutraliseSaves("/fx.SaveFile"), "/fx.SaveFile"); // as written: case-sensitive
    EXPECT_TRUE(isCollapsed(330, 989));
    EXPECT_FALSE(isCollapsed(330, 990));
    EXPECT_FALSE(showsBothPhotos(4980, 330));
    EXPECT_TRUE(showsBothPhotos(4981, 330));
    EXPECT_EQ(noPreviewLines(true).join('|'),
              "Dynamic Preview is not enabled...||Right-Click the Scripting Box (Editor)|and "
              "Select 'Run Preview'.||Optionally Press CTRL+Q");
}
