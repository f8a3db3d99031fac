// Whole batches through the host with the real script engine and the real fx object.
#include "HostFixture.h"
#include "engine/EffectsFactory.h"
#include "engine/VbsScriptEngine.h"

#include <QFile>

using namespace mEngineMain;

namespace {

class FxBatchTest : public HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        scriptHostServices().createEngine = &createVbsScriptEngine;
        scriptHostServices().createEffects = &createEffectsObject;
        QFile photo(QStringLiteral(VANTOREL_SOURCE_DIR "/data/example.jpg"));
        ASSERT_TRUE(photo.open(QIODevice::ReadOnly));
        tree.write("in/Photo One.jpg", photo.readAll());
        options.programFolder = QStringLiteral(VANTOREL_SOURCE_DIR); // the shipped template
    }
};

} // namespace

TEST_F(FxBatchTest, ResizeAndSaveUnderANewName) {
    const QString line =
        "/files:" + tree.path("in\\Photo One.jpg") +
        " /cmd:w = fx.ImagWidth /fx.ResizePercent 50"
        " /cmd:MsgBox w & \" \" & fx.ImagWidth /fx.SaveFileNameAddPrefix \"small_\""
        " /fx.savefile /exit";
    const RunOutcome outcome = runCommandLine(line, false, options);
    ASSERT_EQ(outcome.status, ScriptStatus::Succeeded)
        << (recorder.boxes.isEmpty() ? std::string() : recorder.boxes.last().text.toStdString());
    EXPECT_EQ(exitStatus, 0);
    EXPECT_FALSE(windowText); // /exit: the process ends, no window
    ASSERT_EQ(recorder.boxes.size(), 1);
    const QStringList widths = recorder.boxes[0].text.split(u' ');
    ASSERT_EQ(widths.size(), 2);
    EXPECT_NEAR(widths[1].toDouble(), widths[0].toDouble() / 2, 1.0);
    EXPECT_GT(tree.read("in/small_Photo One.jpg").size(), 1000);
    EXPECT_EQ(loadProgressWindow().state().currentName(), QStringLiteral("Photo One.jpg"));
}

TEST_F(FxBatchTest, PreviewModeReturnsTheErrorTextAndShowsNoBox) {
    // RunCommandLine is the entry the preview pane and the test run use.
    const QString photo = tree.path("in\\Photo One.jpg");
    const QString syntax = RunCommandLine(
        "/files:" + photo + " /fx.ResizePercent 50 /cmd:If Then /progress.hide", true);
    EXPECT_EQ(syntax, QStringLiteral("Error was found: 1002: Syntax error\r\n\r\n"
                                     "Please correct the below line:\r\n\r\n   If Then"));
    const QString runtime =
        RunCommandLine("/files:" + photo + " /fx.ResizePercent 50 /fx.NoSuchMember 1", true);
    EXPECT_EQ(runtime,
              QStringLiteral("Error was found: 438: Object doesn't support this property "
                             "or method: 'NoSuchMember'\r\n\r\n"
                             "Please correct the below line:\r\n\r\n   fx.NoSuchMember 1"));
    EXPECT_TRUE(recorder.boxes.isEmpty());
    // A preview run that succeeds returns nothing; nothing was saved by these runs.
    EXPECT_EQ(RunCommandLine("/files:" + photo + " /fx.ResizePercent 50", true), QString());
    EXPECT_EQ(tree.read("in/Photo One.jpg").size(),
              QFile(QStringLiteral(VANTOREL_SOURCE_DIR "/data/example.jpg")).size());
}

TEST_F(FxBatchTest, AFailingPhotoStopsTheBatchAtThatPhoto) {
    tree.write("in/Broken.jpg", tree.read("in/Photo One.jpg").left(2000));
    tree.write("in/Last.jpg", tree.read("in/Photo One.jpg"));
    const QString line = "/files:" + tree.path("in\\Photo One.jpg") +
                         ";Broken.jpg;Last.jpg /fx.SaveFileNameAddPrefix \"s_\" /fx.savefile /exit";
    const RunOutcome outcome = runCommandLine(line, false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Failed);
    EXPECT_EQ(exitStatus, 1); // reported, and the process still ends
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Script Runtime Error"));
    EXPECT_TRUE(recorder.boxes[0].text.contains(tree.path("in\\Broken.jpg")));
    EXPECT_FALSE(tree.read("in/s_Photo One.jpg").isEmpty());
    EXPECT_TRUE(tree.read("in/s_Broken.jpg").isEmpty());
    EXPECT_TRUE(tree.read("in/s_Last.jpg").isEmpty());
}

TEST_F(FxBatchTest, TheImagingControlOutlivesEachRun) {
    // Each run gets a new fx object and script engine, but both work on the progress window's
    // control, so a setting made by one run is seen by the next.
    const QString photo = tree.path("in\\Photo One.jpg");
    ASSERT_EQ(runCommandLine("/files:" + photo + " /fx.SaveJPGLumFactor = 37 /progress.hide", false,
                             options)
                  .status,
              ScriptStatus::Succeeded);
    const auto control = loadProgressWindow().engine_IX;
    ASSERT_TRUE(control);
    ASSERT_EQ(runCommandLine("/files:" + photo + " /cmd:MsgBox fx.SaveJPGLumFactor /progress.hide",
                             false, options)
                  .status,
              ScriptStatus::Succeeded);
    EXPECT_EQ(loadProgressWindow().engine_IX, control);
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].text, QStringLiteral("37"));
}
