// The generated pieces of a batch: ProcessEffects calls from the file switches, the effects body.
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace mEngineMain;

namespace {

// The photos a line names, with every report in order, "problem: " or "note: " in front.
QStringList filesOf(const QString& line, QStringList* reports = nullptr, bool followLinks = false) {
    QStringList ignored;
    QStringList& out = reports ? *reports : ignored;
    const FileList list = collectFiles(line,
                                       {[&](const QString& t) { out.append("problem: " + t); },
                                        [&](const QString& t) { out.append("note: " + t); }},
                                       followLinks);
    return list.files;
}

} // namespace

TEST(SwitchValue, RunsToTheNextSlashAndIgnoresCase) {
    bool present = false;
    EXPECT_EQ(switchValue("/fx.Blur /FILES:a.jpg;b.jpg /exit", "/files:", &present),
              QStringLiteral("a.jpg;b.jpg "));
    EXPECT_TRUE(present);
    EXPECT_EQ(switchValue("/files:x", "/files:"), QStringLiteral("x"));
    EXPECT_EQ(switchValue("/exit", "/files:", &present), QString());
    EXPECT_FALSE(present);
    // "/folder:" does not find "/folderall:".
    EXPECT_EQ(switchValue("/folderall:\\a", "/folder:", &present), QString());
    EXPECT_FALSE(present);
}

TEST(MainCode, BareNamesAreTakenFromTheFolderOfTheEntryBefore) {
    TempTree tree;
    tree.write("p/a.jpg");
    tree.write("p/b.jpg");
    tree.write("q/c.jpg");
    const QString a = tree.path("p\\a.jpg"), c = tree.path("q\\c.jpg");
    EXPECT_EQ(filesOf("/files:" + a + ";b.jpg;" + c + ";b.jpg"),
              (QStringList{a, tree.path("p\\b.jpg"), c}));
}

TEST(MainCode, MissingEntriesAreProblemsAndEmptyOnesAreSkipped) {
    TempTree tree;
    tree.write("p/a.jpg");
    tree.write("p/b.jpg");
    const QString a = tree.path("p\\a.jpg"), b = tree.path("p\\b.jpg");
    QStringList reports;
    // A missing entry does not change the last folder.
    EXPECT_EQ(filesOf("/files:" + a + ";;missing.jpg;" + tree.path("x\\gone.jpg") + ";; ;b.jpg",
                      &reports),
              (QStringList{a, b}));
    EXPECT_EQ(reports, (QStringList{"problem: photo not found: missing.jpg (/files:)",
                                    "problem: photo not found: " + tree.path("x\\gone.jpg") +
                                        " (/files:)"}));
}

TEST(MainCode, ValueKeepsTheBlankBeforeTheNextItem) {
    TempTree tree;
    tree.write("p/a.jpg");
    const QString a = tree.path("p\\a.jpg");
    // The blank stays in the path, which names the file all the same.
    EXPECT_EQ(filesOf("/files:" + a + " /fx.Blur"), QStringList{a + " "});
}

TEST(MainCode, FilesFirstThenFolderThenFolderAll) {
    TempTree tree;
    tree.write("one/b.png");
    tree.write("one/a.jpg");
    tree.write("one/sub/skip.jpg");
    tree.write("one/notes.txt");
    tree.write("two/c.jpg");
    tree.write("two/deep/d.gif");
    tree.write("x/e.jpg");
    tree.mkdir("empty");
    QStringList reports;
    const QString line = "/folderall:" + tree.path("two") + " /folder: " + tree.path("one") +
                         " ; " + tree.path("missing") + ";" + tree.path("empty") +
                         " /files:" + tree.path("x\\e.jpg");
    EXPECT_EQ(filesOf(line, &reports),
              (QStringList{tree.path("x\\e.jpg"), tree.path("one\\a.jpg"), tree.path("one\\b.png"),
                           tree.path("two\\c.jpg"), tree.path("two\\deep\\d.gif")}));
    EXPECT_EQ(reports,
              (QStringList{"problem: folder not found: " + tree.path("missing") + " (/folder:)",
                           "problem: no photos in " + tree.path("empty") + " (/folder:)"}));
}

TEST(MainCode, NoSourceSwitchMeansNoList) {
    TempTree tree;
    const FileList none = collectFiles("/fx.Blur /folder:" + tree.path("missing"), {});
    EXPECT_FALSE(none.hasSource);
    // A /files: switch counts as a source even when it names nothing that exists.
    QStringList reports;
    EXPECT_TRUE(filesOf("/files:nothing.jpg", &reports).isEmpty());
    EXPECT_EQ(reports.last(), QStringLiteral("problem: no photo to process"));
    EXPECT_TRUE(collectFiles("/files:nothing.jpg", {}).hasSource);
}

TEST(MainCode, FolderWalksStayInsideAndLeaveOutWhatCannotBeNamed) {
    TempTree tree;
    tree.write("in/a.jpg");
    tree.write("in/back\\slash.jpg");
    tree.write("in/back\\slash.txt"); // not a photo: nothing to tell
    tree.write("outside/o.jpg");
    tree.write("in/loop/l.jpg");
    ASSERT_EQ(
        symlink(qPrintable(tree.nativePath("outside")), qPrintable(tree.nativePath("in/link"))), 0);
    ASSERT_EQ(symlink(qPrintable(tree.nativePath("in")), qPrintable(tree.nativePath("in/loop/up"))),
              0);
    ASSERT_EQ(symlink(qPrintable(tree.nativePath("outside/o.jpg")),
                      qPrintable(tree.nativePath("in/file-link.jpg"))),
              0);
    ASSERT_EQ(mkfifo(qPrintable(tree.nativePath("in/pipe.jpg")), 0600), 0);
    QStringList reports;
    const QString in = tree.path("in\\");
    EXPECT_EQ(filesOf("/folderall:" + tree.path("in"), &reports),
              (QStringList{in + "a.jpg", in + "file-link.jpg", in + "loop\\l.jpg"}));
    EXPECT_EQ(reports, (QStringList{"note: not following the link to a folder: " + in +
                                        "link (add /followlinks to follow links)",
                                    "note: not following the link to a folder: " + in +
                                        "loop\\up (add /followlinks to follow links)",
                                    "note: skipped \"back\\slash.jpg\" in " + in +
                                        ": a name holding \"\\\" cannot be written as a path "
                                        "here; rename it to process it"}));
    // Followed on request; the loop back to the top is listed once.
    EXPECT_EQ(
        filesOf("/folderall:" + tree.path("in"), nullptr, true),
        (QStringList{in + "a.jpg", in + "file-link.jpg", in + "link\\o.jpg", in + "loop\\l.jpg"}));
}

TEST(MainCode, PathsBecomeStringExpressionsThatCannotEndTheLiteral) {
    EXPECT_EQ(mainCodeFor({"\\p\\a.jpg", "\\p\\say \"hi\" & x.jpg"}),
              QStringLiteral("ProcessEffects \"\\p\\a.jpg\"\r\n"
                             "ProcessEffects \"\\p\\say \"\"hi\"\" & x.jpg\"\r\n"));
    EXPECT_EQ(scriptStringExpression("a\r\nb\"\n"),
              QStringLiteral("(\"a\" & vbCr) & (vbLf & (\"b\"\"\" & vbLf))"));
    EXPECT_EQ(scriptStringExpression(""), QStringLiteral("\"\""));
}

TEST(EffectsBody, StatementItemsInOrder) {
    EXPECT_EQ(buildEffectsBody("/files:a.jpg /Fx.Resize 30, 30 /progress.hide /cmd:x = 1 /exit"),
              QStringLiteral("Fx.Resize 30, 30 \r\nprogress.hide \r\nx = 1 \r\n"));
    EXPECT_EQ(buildEffectsBody("/cmd:progress.hide"), QStringLiteral("progress.hide\r\n"));
    EXPECT_EQ(buildEffectsBody("/CMD:fx.Blur"), QStringLiteral("fx.Blur\r\n"));
}

TEST(EffectsBody, OtherItemsProduceNothing) {
    EXPECT_EQ(buildEffectsBody("stray /func.A /showscriptwindow /folder:x /exit /fxBlur /fx"),
              QString());
    // A "/" inside an argument splits the item.
    EXPECT_EQ(buildEffectsBody("/fx.Resize 10/2, 5"), QStringLiteral("fx.Resize 10\r\n"));
}
