// Runs of the preview pane and the test run: private objects, errors as text, nothing written
// but the output, and a stop from another thread.
#include "engine/PreviewRun.h"
#include "RecordingMessages.h"
#include "TempTree.h"

#include <QFile>
#include <gtest/gtest.h>
#include <thread>

using namespace mEngineMain;

namespace {

class PreviewRunTest : public testing::Test {
protected:
    void SetUp() override {
        QFile photo(QStringLiteral(VANTOREL_SOURCE_DIR "/data/example.jpg"));
        ASSERT_TRUE(photo.open(QIODevice::ReadOnly));
        original = photo.readAll();
        tree.write("photos/example.jpg", original);
        options.programFolder = QStringLiteral(VANTOREL_SOURCE_DIR);
        options.output = tree.path("scratch\\out.jpg");
        tree.mkdir("scratch");
    }
    QString line(const QString& script) const {
        return "/files:" + tree.path("photos\\example.jpg") + " " + script +
               " /fx.savefilename = \"" + options.output + "\" /fx.savefile";
    }

    RecordingMessages recorder; // must stay silent: previews show no boxes
    ScopedMessages scope{&recorder};
    TempTree tree;
    QByteArray original;
    PreviewRunOptions options;
};

} // namespace

TEST_F(PreviewRunTest, WritesOnlyTheOutput) {
    // A save under the photo's own name (the capitals escape the textual neutralising) and a box.
    const PreviewRunResult ok = runPreviewLine(
        line("/fx.Negate /fx.SaveFile /cmd:MsgBox \"hi\" /fx.SaveFileNameExtension \"png\" "
             "/fx.SaveFile"),
        options);
    EXPECT_EQ(ok.errorText, QString());
    EXPECT_FALSE(ok.cancelled);
    EXPECT_EQ(tree.read("photos/example.jpg"), original);
    EXPECT_FALSE(QFile::exists(tree.nativePath("photos/example.png")));
    EXPECT_TRUE(QFile::exists(tree.nativePath("scratch/out.jpg")));
    EXPECT_TRUE(QFile::exists(tree.nativePath("scratch/out_discard.png")));
    EXPECT_TRUE(recorder.boxes.isEmpty());
    // Errors come back as the preview's text (FxBatchTest.PreviewModeReturnsTheErrorText...).
}

TEST_F(PreviewRunTest, ANewerRequestStopsARunningScript) {
    std::atomic<bool> cancel{false};
    options.cancel = &cancel;
    std::thread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        cancel = true;
    });
    const PreviewRunResult r = runPreviewLine(line("/cmd:Do : Loop"), options);
    stopper.join();
    EXPECT_TRUE(r.cancelled);
}
