// The progress object: counting photos from the label, visibility, and the console line.
#include "QtPrint.h"
#include "engine/frmConvProgress.h"

#include <QList>
#include <gtest/gtest.h>

namespace {

struct RecordingBackend : ProgressBackend {
    explicit RecordingBackend(QList<ProgressState>* out, int* events) : out(out), events(events) {}
    void render(const ProgressState& state) override { out->append(state); }
    void processEvents() override { ++*events; }
    QList<ProgressState>* out;
    int* events;
};

} // namespace

TEST(frmConvProgress, StartsHiddenAndCountsPhotosByLabelEvenBeforeItIsShown) {
    QList<ProgressState> frames;
    int events = 0;
    frmConvProgress progress(std::make_unique<RecordingBackend>(&frames, &events));
    EXPECT_FALSE(progress.Visible());
    EXPECT_EQ(progress.Caption(), QStringLiteral("Vantorel 3 - Converting"));
    EXPECT_EQ(progress.labelCaption(), QStringLiteral("Now Converting:"));
    EXPECT_TRUE(frames.isEmpty()); // loading draws nothing
    progress.beginRun(3);
    // The default batch: the label is set, then the effects body shows the window.
    progress.setLabelCaption("Now Converting: a.jpg");
    progress.DoXEvents();
    progress.Show();
    progress.setLabelCaption("Now Converting: b.jpg");
    progress.DoXEvents();
    ASSERT_FALSE(frames.isEmpty());
    const ProgressState last = frames.last();
    EXPECT_TRUE(last.visible);
    EXPECT_EQ(last.fileNumber, 2);
    EXPECT_EQ(last.fileCount, 3);
    EXPECT_EQ(last.currentName(), QStringLiteral("b.jpg"));
    EXPECT_EQ(events, 2);
    progress.Hide();
    EXPECT_FALSE(frames.last().visible);
    progress.beginRun(0); // a new run counts from the start
    progress.setLabelCaption("x");
    EXPECT_EQ(frames.last().fileNumber, 1);
    EXPECT_EQ(frames.last().fileCount, 0);
}

TEST(ConsoleProgressBackend, LineNamesFileCountAndRate) {
    ProgressState state;
    state.visible = true;
    state.fileNumber = 3;
    state.fileCount = 31;
    state.label = "Now Converting: IMG_0001.JPG";
    state.photosPerSecond = 2.345;
    EXPECT_EQ(ConsoleProgressBackend::progressLine(state),
              QStringLiteral("file 3 of 31, IMG_0001.JPG, 2.3 photos per second"));
    state.fileCount = 2; // the label was set more often than there are photos
    EXPECT_EQ(ConsoleProgressBackend::progressLine(state),
              QStringLiteral("file 3, IMG_0001.JPG, 2.3 photos per second"));
    state.fileCount = 0;
    state.photosPerSecond = 0;
    state.label = "own text";
    EXPECT_EQ(ConsoleProgressBackend::progressLine(state), QStringLiteral("file 3, own text"));
}
