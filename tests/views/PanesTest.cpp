// The preview pane, the tool pane and the scripting view as widgets, offscreen: what the user
// sees of previews, enlarging, the photo list and the two steps.
#include "ViewsFixture.h"
#include "controls/uCaptionBar.h"
#include "editor/uScriptingWindow.h"
#include "effects/PreviewPaneLogic.h"
#include "effects/PreviewRender.h"
#include "effects/uPreview.h"
#include "platform/ScratchFolder.h"
#include "platform/mFile.h"
#include "views/panePhotoSelect.h"
#include "views/paneTools.h"
#include "views/srcScripting.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class Panes : public ViewsTest {
protected:
    // Copies a sample photo into the tree; its "\" form.
    QString sample(const QString& name, const QString& as) const {
        const QString from = mFile::AddBackslash(mFile::programFolder()) + "data\\samples\\" + name;
        tree.write(as, QByteArray());
        QFile::remove(tree.nativePath(as));
        EXPECT_TRUE(
            QFile::copy(QString::fromStdString(mFile::toDisk(from).string()), tree.nativePath(as)));
        return tree.path(as);
    }
};

} // namespace

TEST_F(Panes, PreviewPaneRendersOffTheUiThreadAndPrintsWhatReplacesIt) {
    uPreview pane;
    QSignalSpy shown(&pane, &uPreview::PreviewShown);
    pane.resize(400, 40); // collapsed: nothing runs
    pane.show();
    pane.DoPreview(" /fx.Blur");
    EXPECT_EQ(pane.printedText().first(), "No Preview Available...");
    EXPECT_FALSE(pane.previewPhotoShown());
    EXPECT_EQ(pane.findChild<QLabel*>("lblInfo")->text(),
              "(Double-Click Caption to Maximize Preview Pane.)");

    pane.resize(400, 600); // room again: the last request is rendered
    QTRY_VERIFY(pane.previewPhotoShown());
    EXPECT_EQ(shown.count(), 1);
    EXPECT_FALSE(pane.previewImage().isNull());
    EXPECT_FALSE(pane.originalImage().isNull());
    EXPECT_TRUE(pane.findChild<QWidget*>("ixP")->toolTip().startsWith("File Size: "));

    pane.DoPreview("none");
    EXPECT_EQ(pane.printedText().first(), "Dynamic Preview is not enabled...");
    // An endless script is stopped by the newer request; an error is printed in its place.
    pane.DoPreview(" /cmd:Do : Loop");
    pane.DoPreview(" /fx.NoSuchMember");
    QTRY_COMPARE(shown.count(), 2);
    EXPECT_TRUE(shown.last().first().toString().startsWith("Error was found: 438"));
    EXPECT_FALSE(pane.previewPhotoShown());
    EXPECT_TRUE(pane.printedText().first().startsWith("Error was found: 438"));
}

TEST_F(Panes, PreviewMenuChoosesMakesDefaultAndRestoresTheExample) {
    uPreview pane;
    QMenu* menu = pane.popupMenu();
    auto* makeDefault = menu->findChild<QAction*>("mnuMakeDefault");
    auto* restore = menu->findChild<QAction*>("mnuRestore");
    EXPECT_FALSE(makeDefault->isEnabled());
    EXPECT_FALSE(restore->isVisible());
    const QString wine = sample("wine.jpg", "photos/wine.jpg");
    pane.chooseFile = [&](const QString&) { return wine; };
    menu->findChild<QAction*>("mnuSelectPreviewImage")->trigger();
    EXPECT_EQ(pane.examplePhoto(), wine);
    EXPECT_EQ(stored("PreviewExampleImage"), mFile::GetPathPart(wine, 1));
    EXPECT_EQ(makeDefault->text(), "Make 'wine.jpg' the Default Example");
    makeDefault->trigger();
    EXPECT_EQ(stored("ExamplePhoto"), wine);
    EXPECT_FALSE(makeDefault->isEnabled());
    EXPECT_TRUE(restore->isVisible());
    restore->trigger();
    EXPECT_EQ(stored("ExamplePhoto"), PreviewPaneLogic::builtInExample());
    EXPECT_FALSE(restore->isVisible());
    QString missing = tree.path("gone.jpg");
    pane.SetPreviewImage(missing);
    EXPECT_EQ(missing, PreviewPaneLogic::builtInExample());
}

TEST_F(Panes, ALargeExampleIsPreviewedOnAShrunkenCopyInTheScratchFolder) {
    QImage big(2048, 1536, QImage::Format_RGB888);
    big.fill(Qt::darkCyan);
    tree.mkdir("photos");
    ASSERT_TRUE(big.save(tree.nativePath("photos/big.jpg"), "JPG"));
    const QString photo = tree.path("photos\\big.jpg");
    const QString source = PreviewRender::sourceFor(photo);
    EXPECT_TRUE(source.startsWith(ScratchFolder::path())) << source.toStdString();
    EXPECT_TRUE(source.endsWith("\\big.jpg"));
    EXPECT_EQ(QImage(QString::fromStdString(mFile::toDisk(source).string())).size(),
              QSize(1024, 768));
    EXPECT_EQ(PreviewRender::sourceFor(photo), source);
    const QString small = sample("wine.jpg", "photos/wine.jpg");
    EXPECT_EQ(PreviewRender::sourceFor(small), small);
}

TEST_F(Panes, ToolPaneEnlargesByCaptionDoubleClickAndKeepsTheBoundary) {
    paneTools pane;
    pane.resize(400, 600);
    pane.show();
    const int before = pane.split().boundary();
    QTest::mouseDClick(pane.GetPreview()->findChild<uCaptionBar*>("uCap"), Qt::LeftButton);
    EXPECT_EQ(pane.split().boundary(), 550);
    EXPECT_EQ(stored("paneToolsSplitter"), "550");
    QTest::mouseDClick(pane.GetPreview()->findChild<uCaptionBar*>("uCap"), Qt::LeftButton);
    EXPECT_EQ(pane.split().boundary(), before);
    // Dragged far down, the bar stops 550 twips above the bottom.
    QWidget* bar = pane.findChild<QWidget*>("pSplit");
    mouse(bar, QEvent::MouseButtonPress, {5, 1});
    mouse(bar, QEvent::MouseMove, {5, 5000});
    mouse(bar, QEvent::MouseButtonRelease, {5, 5000});
    EXPECT_EQ(pane.split().boundary(), pane.heightTwips() - 550);
    EXPECT_EQ(stored("paneToolsSplitter"), QString::number(pane.heightTwips() - 550));
}

TEST_F(Panes, PhotoListTakesDropsFilterMenusAndKeys) {
    panePhotoSelect pane;
    pane.resize(440, 500);
    pane.show();
    sample("wine.jpg", "in/a.jpg");
    tree.write("in/sub/b.png");
    tree.write("in/notes.txt");
    QMimeData dragged; // a folder from the file manager: its photos, subfolders included
    dragged.setUrls({QUrl::fromLocalFile(tree.nativePath("in"))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(pane.shownList()->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(pane.shownList()->viewport(), &drop);
    EXPECT_EQ(pane.status(), "2 files.");

    QTest::mouseClick(pane.findChild<QLabel*>("lblExtension"), Qt::LeftButton);
    QAction* keepJpg = nullptr;
    for (QAction* a : pane.filterMenu()->findChildren<QAction*>("mnuFileTypeArrB"))
        if (a->data() == "jpg") keepJpg = a;
    ASSERT_TRUE(keepJpg);
    EXPECT_EQ(keepJpg->text(), "JPG Extension.");
    pane.filterMenu()->close();
    keepJpg->trigger();
    EXPECT_EQ(pane.status(), "1 files.");

    QTest::keyClick(pane.shownList(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(pane.shownList()->selectedItems().size(), 1);
    QTest::keyClick(pane.shownList(), Qt::Key_Delete);
    EXPECT_EQ(pane.status(), "0 files.");
}

TEST_F(Panes, ScriptingViewTestRunsPicksPhotosRunsAndClears) {
    srcScripting view;
    view.resize(1000, 700);
    view.show();
    QStringList ran;
    view.setRunner([&](const QString& line) {
        ran.append(line);
        return QString();
    });
    view.editor()->LoadCommandLine(
        "/fx.ResizePercent 50 /fx.SaveFileNameAddPrefix \"s_\" /fx.savefile");
    auto* next = view.findChild<QPushButton*>("cmdSelectPhotos");
    next->click(); // the real test run on the example photo
    ASSERT_TRUE(recorder.boxes.isEmpty()) << recorder.boxes.first().text.toStdString();
    EXPECT_TRUE(view.photos()->isVisible());
    EXPECT_TRUE(view.findChild<QPushButton*>("cmdConfig")->isVisible());
    EXPECT_EQ(next->text(), "Run: Process Photos. >>");

    panePhotoSelect* photos = view.photos();
    const QStringList chosen{sample("wine.jpg", "in/wine.jpg"),
                             sample("umang.jpg", "in/UMANG.JPG")};
    photos->chooseFiles = [&](const QString&) { return chosen; };
    photos->addFiles();
    EXPECT_EQ(photos->status(), "2 files.");
    EXPECT_EQ(stored("AddFilesDirectory"), mFile::GetPathPart(chosen[0], 1));
    // The thumbnails arrive in place of the empty squares.
    QTRY_VERIFY(
        photos->shownList()->item(1)->icon().pixmap(40).toImage().pixelColor(20, 20).alpha());
    photos->shownList()->setCurrentRow(0);
    EXPECT_EQ(photos->previewCaption(), "wine.jpg");

    recorder.replies = {MsgAnswer::Yes};
    next->click();
    ASSERT_EQ(ran.size(), 1);
    EXPECT_TRUE(ran[0].startsWith("/files:;" + chosen.join(';') + " /fx.ResizePercent 50"));
    EXPECT_EQ(recorder.boxes.last().title, "Finished.");
    EXPECT_EQ(photos->status(), "0 files.");

    // The splitter: dragged far left it stops at 4000 twips, and says so while dragging.
    QWidget* bar = view.findChild<QWidget*>("pSplit");
    mouse(bar, QEvent::MouseButtonPress, {2, 10});
    mouse(bar, QEvent::MouseMove, {-2000, 10});
    EXPECT_TRUE(view.statusText().startsWith("Setting Scripting Window to "));
    mouse(bar, QEvent::MouseButtonRelease, {-2000, 10});
    EXPECT_EQ(view.splitTwips(), 4000);
    EXPECT_EQ(stored("ScriptingSplitter"), "4000");
    EXPECT_TRUE(view.statusText().isEmpty());
}
