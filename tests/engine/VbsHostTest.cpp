// The script host with the real VBScript engine: template, progress object, MsgBox, error lines.
#include "HostFixture.h"
#include "engine/VbsScriptEngine.h"

#include <QFile>

using namespace mEngineMain;

namespace {

// A Cancel button pressed while the first photo is being converted.
struct CancellingBackend : NullBackend {
    void processEvents() override {
        if (cancel) cancel();
    }
    void setCancelHandler(std::function<void()> handler) override { cancel = std::move(handler); }
    std::function<void()> cancel;
};

// A template without fx, so that these runs need no imaging.
const QByteArray kTemplate = "Sub Main()\r\n"
                             "'{MainCode}'\r\n"
                             "End Sub\r\n"
                             "Sub ProcessEffects(path)\r\n"
                             "    progress.Label1.Caption = \"Now Converting: \" & path\r\n"
                             "    progress.DoXEvents\r\n"
                             "'{EffectsScript}'\r\n"
                             "End Sub\r\n";

class VbsHostTest : public HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        scriptHostServices().createEngine = &createVbsScriptEngine;
        scriptHostServices().createEffects = {};
        tree.write("bin/data/template.txt", kTemplate);
        tree.write("p/a.jpg");
        tree.write("p/b.jpg");
    }
};

} // namespace

TEST_F(VbsHostTest, EachPhotoPassesThroughProcessEffects) {
    const QString line =
        "/folder:" + tree.path("p") + "/cmd:MsgBox progress.Label1 /progress.hide /exit";
    recorder.replies = {MsgAnswer::No}; // the "Possible Error" question
    const RunOutcome outcome = runCommandLine(line, false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Succeeded);
    EXPECT_EQ(exitStatus, 0);
    ASSERT_EQ(recorder.boxes.size(), 3);
    EXPECT_EQ(recorder.boxes[1].text, "Now Converting: " + tree.path("p\\a.jpg"));
    EXPECT_EQ(recorder.boxes[2].text, "Now Converting: " + tree.path("p\\b.jpg"));
    EXPECT_EQ(loadProgressWindow().state().fileNumber, 2);
    EXPECT_FALSE(loadProgressWindow().Visible());
}

TEST_F(VbsHostTest, SyntaxErrorInARealRunShowsTheBox) {
    const RunOutcome outcome =
        runCommandLine("/files:" + tree.path("p\\a.jpg") + "/cmd:If Then", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Failed);
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Script Runtime Error"));
    // Main (lines 1-4: the call, then the blank line it ends with), ProcessEffects from line 5.
    EXPECT_TRUE(recorder.boxes[0].text.contains("1002: Syntax error at line 8\r\n"))
        << recorder.boxes[0].text.toStdString();
}

TEST_F(VbsHostTest, ShippedTemplateCompilesAndItsHelpersWork) {
    QFile file(QStringLiteral(VANTOREL_SOURCE_DIR "/data/template.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString helpers = QStringLiteral(
        "\r\nSub TestHelpers()\r\n"
        "MsgBox NoExtension(\"\\p\\a.jpg\") & \"|\" & NoExtension(\"\\my.p\\a\") & \"|\" & "
        "Extension(\"a.JPG\") & \"|\" & Extension(\"\\my.p\\a\") & \"|\" & "
        "FileName(\"\\p\\a.jpg\") "
        "& \"|\" & FolderName(\"\\p\\a.jpg\") & \"|\" & FolderName(\"a.jpg\") & \"|\" & "
        "WithBackslash(\"\\o\") & \"|\" & WithBackslash(\"\\o\\\")\r\n"
        "End Sub\r\n");
    const QByteArray bytes = file.readAll();
    // CR LF only, as the generated script's line numbers count them; its placeholders and the
    // photo loaded before the effects are proved by every batch through it (FxBatchTest, e2e).
    EXPECT_EQ(bytes.count("\n"), bytes.count("\r\n"));
    EXPECT_EQ(bytes.count("\r"), bytes.count("\r\n"));
    EXPECT_TRUE(bytes.contains("progress.DoXEvents"));
    std::unique_ptr<ScriptEngine> engine = createVbsScriptEngine();
    engine->setLanguage("VBScript");
    ASSERT_TRUE(engine->addCode(QString::fromUtf8(bytes) + helpers))
        << engine->error().description.toStdString() << " line " << engine->error().line;
    QString result;
    ASSERT_TRUE(engine->run("TestHelpers", &result)) << engine->error().description.toStdString();
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].text,
              QStringLiteral("\\p\\a|\\my.p\\a|JPG||a.jpg|\\p||\\o\\|\\o\\"));
}

TEST_F(VbsHostTest, TemplateWithoutPlaceholdersRunsMainAsWritten) {
    tree.write("bin/data/template.txt", "Sub Main()\r\n    MsgBox \"as written\"\r\nEnd Sub\r\n");
    const RunOutcome outcome =
        runCommandLine("/files:" + tree.path("p\\a.jpg") + "/fx.Blur /exit", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Succeeded);
    ASSERT_EQ(recorder.boxes.size(), 1); // no "Possible Error" question without the effects marker
    EXPECT_EQ(recorder.boxes[0].text, QStringLiteral("as written"));
}

TEST_F(VbsHostTest, WithoutFilesMainRunsAndProcessesNothing) {
    const RunOutcome outcome = runCommandLine("/cmd:MsgBox 1 /progress.hide", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Succeeded);
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(VbsHostTest, MissingTemplateRunsNoCodeAndReportsTheMissingMain) {
    options.programFolder = tree.path("nowhere");
    const RunOutcome outcome = runCommandLine("/fx.Blur", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Failed);
    ASSERT_EQ(recorder.boxes.size(), 1); // no question: the empty template has no effects marker
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Script Runtime Error"));
    // A run that ends the process does not start without its template.
    recorder.boxes.clear();
    EXPECT_EQ(runCommandLine("/fx.Blur /exit", false, options).status, ScriptStatus::Refused);
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(VbsHostTest, CancelStopsBeforeTheNextPhotoWithoutAnErrorBox) {
    loadProgressWindow().setBackend(std::make_unique<CancellingBackend>());
    const QString line =
        "/folder:" + tree.path("p") +
        " /cmd:On Error Resume Next /cmd:MsgBox progress.Label1 /fx.savefile /exit";
    const RunOutcome outcome = runCommandLine(line, false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Cancelled);
    EXPECT_EQ(exitStatus, 130);
    ASSERT_EQ(recorder.boxes.size(), 1); // the first photo's statements ran; the second never began
    EXPECT_EQ(recorder.boxes[0].text, "Now Converting: " + tree.path("p\\a.jpg"));
    // The next run starts afresh.
    loadProgressWindow().setBackend(std::make_unique<NullBackend>());
    EXPECT_EQ(
        runCommandLine("/folder:" + tree.path("p") + " /cmd:x = 1", false, options).status,
        ScriptStatus::Succeeded);
}
