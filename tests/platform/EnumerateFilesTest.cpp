// EnumerateFiles on a real folder tree: pattern groups, duplicates, depth-first order.
#include "TempTree.h"
#include "platform/mFile.h"

#include <gtest/gtest.h>

using namespace mFile;

namespace {

// The listed paths relative to the tree's root, "\"-separated.
QStringList relative(const TempTree& tree, const QStringList& paths) {
    QStringList out;
    const QString root = tree.path() + u'\\';
    for (const QString& p : paths) {
        EXPECT_TRUE(p.startsWith(root)) << p.toStdString();
        out.append(p.mid(root.size()));
    }
    return out;
}

} // namespace

TEST(EnumerateFiles, GroupsByPatternAndKeepsDuplicates) {
    TempTree tree;
    for (const char* name : {"b.jpg", "a.PNG", "c.jpg", "d.txt", "A.JPEG"})
        tree.write(name);
    const QStringList found = EnumerateFiles(tree.path(), "*.png;*.jpg;*.JP*", false);
    EXPECT_EQ(relative(tree, found),
              (QStringList{"a.PNG", "b.jpg", "c.jpg", "A.JPEG", "b.jpg", "c.jpg"}));
}

TEST(EnumerateFiles, FolderFilesComeBeforeSubfoldersDepthFirst) {
    TempTree tree;
    tree.write("z.jpg");
    tree.write("a/1.jpg");
    tree.write("a/deep/2.jpg");
    tree.write("a/deep/x.png");
    tree.write("a/3.png");
    tree.write("b/4.jpg");
    tree.mkdir("c-empty");
    tree.write(".hidden/5.jpg");
    tree.write(".6.jpg");
    const QString base = tree.path() + u'\\'; // a trailing "\" is accepted as well
    EXPECT_EQ(relative(tree, EnumerateFiles(base, "*.jpg;*.png", true)),
              (QStringList{"z.jpg", "a\\1.jpg", "a\\3.png", "a\\deep\\2.jpg", "a\\deep\\x.png",
                           "b\\4.jpg"}));
    EXPECT_EQ(relative(tree, EnumerateFiles(base, "*.jpg;*.png", false)), QStringList{"z.jpg"});
}

TEST(EnumerateFiles, NoMatchesGiveAnEmptyList) {
    TempTree tree;
    tree.write("notes.txt");
    tree.mkdir("sub");
    EXPECT_TRUE(EnumerateFiles(tree.path(), "*.jpg", true).isEmpty());
    EXPECT_TRUE(EnumerateFiles(tree.path("sub"), "*.jpg;*.png", false).isEmpty());
    EXPECT_TRUE(EnumerateFiles(tree.path(), "", true).isEmpty());
}

TEST(EnumerateFiles, FolderNamedInAnotherCaseIsFound) {
    TempTree tree;
    tree.write("Photos/Sub/a.jpg");
    const QStringList found = EnumerateFiles(tree.path("PHOTOS"), "*.jpg", true);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0], tree.path("PHOTOS\\Sub\\a.jpg")); // the caller's spelling is kept
    EXPECT_TRUE(FileExists(found[0]));
}

TEST(EnumerateFiles, LinkCyclesEnd) {
    TempTree tree;
    tree.write("a/1.jpg");
    ASSERT_TRUE(QFile::link(tree.nativePath("a"), tree.nativePath("a/loop")));
    EXPECT_EQ(relative(tree, EnumerateFiles(tree.path(), "*.jpg", true)), QStringList{"a\\1.jpg"});
}
