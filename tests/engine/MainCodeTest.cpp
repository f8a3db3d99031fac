// The generated pieces of a batch: ProcessEffects calls from the file switches, the effects body.
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>

using namespace mEngineMain;

namespace {

QString call(const QString& path) {
    return QStringLiteral("ProcessEffects \"") + path + QStringLiteral("\"\r\n");
}

QString mainCode(const QString& line) {
    bool hasSource = false;
    return buildMainCode(line, &hasSource);
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
    EXPECT_EQ(mainCode("/files:" + a + ";b.jpg;" + c + ";b.jpg"),
              call(a) + call(tree.path("p\\b.jpg")) + call(c));
}

TEST(MainCode, MissingAndEmptyEntriesAreDropped) {
    TempTree tree;
    tree.write("p/a.jpg");
    tree.write("p/b.jpg");
    const QString a = tree.path("p\\a.jpg"), b = tree.path("p\\b.jpg");
    EXPECT_EQ(mainCode("/files:" + a + ";;missing.jpg;" + tree.path("x\\gone.jpg") + ";;b.jpg"),
              call(a) + call(b));
    // A missing entry does not change the last folder.
    EXPECT_EQ(mainCode("/files:" + a + ";" + tree.path("zz\\none.jpg") + ";b.jpg"),
              call(a) + call(b));
}

TEST(MainCode, ValueKeepsTheBlankBeforeTheNextItem) {
    TempTree tree;
    tree.write("p/a.jpg");
    const QString a = tree.path("p\\a.jpg");
    // The blank stays in the path, which names the file all the same.
    EXPECT_EQ(mainCode("/files:" + a + " /fx.Blur"), call(a + " "));
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
    const QString line = "/folderall:" + tree.path("two") + " /folder: " + tree.path("one") +
                         " ; " + tree.path("missing") + " /files:" + tree.path("x\\e.jpg");
    EXPECT_EQ(mainCode(line), call(tree.path("x\\e.jpg")) + call(tree.path("one\\a.jpg")) +
                                  call(tree.path("one\\b.png")) + call(tree.path("two\\c.jpg")) +
                                  call(tree.path("two\\deep\\d.gif")));
}

TEST(MainCode, NoSourceLeavesThePlaceholder) {
    TempTree tree;
    tree.mkdir("empty");
    bool hasSource = true;
    EXPECT_EQ(buildMainCode("/fx.Blur /folder:" + tree.path("empty"), &hasSource), QString());
    EXPECT_FALSE(hasSource);
    EXPECT_EQ(buildMainCode("/folder:" + tree.path("missing") + " /exit", &hasSource), QString());
    EXPECT_FALSE(hasSource);
    // A /files: switch counts as a source even when it names nothing that exists.
    EXPECT_EQ(buildMainCode("/files:nothing.jpg", &hasSource), QString());
    EXPECT_TRUE(hasSource);
}

TEST(MainCode, QuotesInPathsAreNotDoubled) {
    TempTree tree;
    tree.write("p/say \"hi\".jpg");
    const QString path = tree.path("p\\say \"hi\".jpg");
    EXPECT_EQ(mainCode("/files:" + path), call(path));
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
