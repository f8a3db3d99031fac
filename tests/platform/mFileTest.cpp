// File utilities: path pieces, existence tests, reading and writing text, sizes, ShellOpen.
#include "platform/mFile.h"
#include "RecordingMessages.h"
#include "TempTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace mFile;

TEST(mFilePaths, AddBackslash) {
    EXPECT_EQ(AddBackslash("\\home\\ana"), QStringLiteral("\\home\\ana\\"));
    EXPECT_EQ(AddBackslash("\\home\\ana\\"), QStringLiteral("\\home\\ana\\"));
    EXPECT_EQ(AddBackslash(""), QStringLiteral("\\"));
}

TEST(mFilePaths, GetPathPartSplitsAtLastSeparator) {
    EXPECT_EQ(GetPathPart("\\home\\ana\\a.jpg", 1), QStringLiteral("\\home\\ana\\"));
    EXPECT_EQ(GetPathPart("\\home\\ana\\a.jpg", 2), QStringLiteral("a.jpg"));
    EXPECT_EQ(GetPathPart("~\\photos\\", 2), QString());
    EXPECT_EQ(GetPathPart("a.jpg", 1), QString());
    EXPECT_EQ(GetPathPart("a.jpg", 2), QStringLiteral("a.jpg"));
    EXPECT_EQ(GetPathPart("/home/ana/a.jpg", 1), QStringLiteral("/home/ana/"));
}

TEST(mFilePaths, GetPathPartWithBadPartShowsError0026) {
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    EXPECT_EQ(GetPathPart("\\a\\b.jpg", 3), QString());
    EXPECT_EQ(GetPathPart("\\a\\b.jpg", 0), QString());
    ASSERT_EQ(recorder.boxes.size(), 2);
    EXPECT_EQ(
        recorder.boxes[0].text,
        QStringLiteral(
            "There was an error, please contact Kestrane as to reagrad a 0026 error. Thank You"));
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::OkOnly);
}

TEST(mFilePaths, GetExtension) {
    EXPECT_EQ(GetExtension("\\photos\\a.JPG"), QStringLiteral("JPG"));
    EXPECT_EQ(GetExtension("a.tar.gz"), QStringLiteral("gz"));
    EXPECT_EQ(GetExtension("\\my.photos\\readme"), QString()); // the only dot is in a folder
    EXPECT_EQ(GetExtension("/my.photos/readme"), QString());
    EXPECT_EQ(GetExtension("c:readme"), QString());
    EXPECT_EQ(GetExtension("a.jpg:stream"), QString()); // the scan stops at ":"
    EXPECT_EQ(GetExtension("c:\\x\\a."), QString());
    EXPECT_EQ(GetExtension(""), QString());
    EXPECT_EQ(GetExtension(".hidden"), QStringLiteral("hidden"));
}

TEST(mFilePatterns, WildcardsIgnoreCase) {
    EXPECT_TRUE(matchesPattern("A.JPG", "*.jpg"));
    EXPECT_TRUE(matchesPattern("a.jpg", "*.JPG"));
    EXPECT_FALSE(matchesPattern("a.jpeg", "*.jpg"));
    EXPECT_FALSE(matchesPattern("a.jpg.txt", "*.jpg"));
    EXPECT_TRUE(matchesPattern("img01.png", "img??.*"));
    EXPECT_FALSE(matchesPattern("img1.png", "img??.*"));
    EXPECT_TRUE(matchesPattern("README", "*.*"));
    EXPECT_TRUE(matchesPattern(QString::fromUtf8("ÉTÉ.JPG"), QString::fromUtf8("été*")));
    EXPECT_FALSE(matchesPattern("a.jpg", ""));
}

TEST(mFileDisk, ExistenceAcceptsBothSeparatorsAndAnyCase) {
    TempTree tree;
    tree.write("Photos/A.jpg");
    EXPECT_TRUE(FolderExists(tree.path("Photos")));
    EXPECT_TRUE(FolderExists(tree.path("photos") + u'\\'));
    EXPECT_TRUE(FileExists(tree.path("PHOTOS\\a.JPG")));
    EXPECT_TRUE(FileExists(tree.nativePath("Photos/A.jpg")));
    EXPECT_FALSE(FileExists(tree.path("Photos")));          // a folder is not a file
    EXPECT_FALSE(FolderExists(tree.path("Photos\\A.jpg"))); // and a file is not a folder
    EXPECT_FALSE(FileExists(tree.path("Photos\\B.jpg")));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FolderExists(""));
}

TEST(mFileDisk, TrailingBlanksOfNamesAreIgnored) {
    TempTree tree;
    tree.write("p/a.jpg");
    // A command-line value runs up to the next "/", blank included.
    EXPECT_TRUE(FileExists(tree.path("p\\a.jpg ")));
    EXPECT_TRUE(FolderExists(tree.path("p ")));
    EXPECT_EQ(ReadFile(tree.path("p\\a.jpg  ")), QStringLiteral("x"));
    ASSERT_TRUE(writeTextFile(tree.path("p\\new.vt3 "), "fx.Blur"));
    EXPECT_EQ(tree.read("p/new.vt3"), QByteArray("fx.Blur"));
}

TEST(mFileDisk, ReadFileNormalisesTextAndFailsQuietly) {
    TempTree tree;
    tree.write("latin.txt", "caf\xE9");
    tree.mkdir("folder");
    EXPECT_EQ(ReadFile(tree.path("latin.txt")), QString::fromUtf8("café"));
    EXPECT_EQ(ReadFile(tree.path("missing.txt")), QString());
    EXPECT_EQ(ReadFile(tree.path("folder")), QString());
}

TEST(mFileDisk, WriteTextFileUsesCrLfAndReplacesWhole) {
    TempTree tree;
    tree.write("s.vt3", "old contents that are longer");
    ASSERT_TRUE(writeTextFile(tree.path("s.vt3"), QString::fromUtf8("fx.Blur\nfx.Text \"é\"")));
    EXPECT_EQ(tree.read("s.vt3"), QByteArray("fx.Blur\r\nfx.Text \"\xC3\xA9\""));
    EXPECT_FALSE(writeTextFile(tree.path("no\\such\\folder\\s.vt3"), "x"));
}

TEST(mFileSize, UnitsAndGrouping) {
    TempTree tree;
    tree.write("big.bin", QByteArray(1536 * 1024 + 5, 'x')); // 1,572,869 bytes
    const QString big = tree.path("big.bin");
    EXPECT_EQ(FormatFileSize(big, 0, true), QStringLiteral("1,572,869 Bytes"));
    EXPECT_EQ(FormatFileSize(big, 0, false), QStringLiteral("1572869 Bytes"));
    EXPECT_EQ(FormatFileSize(big, 1, true), QStringLiteral("1,536 KB"));
    EXPECT_EQ(FormatFileSize(big, 2, true), QStringLiteral("1.50 MB"));
    EXPECT_EQ(FormatFileSize(big, 3, true), QStringLiteral("0.00 GB"));
    EXPECT_EQ(FormatFileSize(big, 4, true), QStringLiteral("0.00 TB"));
    EXPECT_EQ(FormatFileSize(big, 1, false), QStringLiteral("1536.0048828125 KB"));
    tree.write("half.bin", QByteArray(512, 'x'));
    EXPECT_EQ(FormatFileSize(tree.path("half.bin"), 1, true), QStringLiteral("1 KB")); // rounds up
    // A missing file is 0 of the unit.
    EXPECT_EQ(FormatFileSize(tree.path("none.jpg"), 0, true), QStringLiteral("0 Bytes"));
    EXPECT_EQ(FormatFileSize(tree.path("none.jpg"), 2, true), QStringLiteral("0 MB"));
    EXPECT_EQ(FormatFileSize(tree.path("none.jpg"), 4, false), QStringLiteral("0 TB"));
}

TEST(mFileShell, MessagesOfTheResultCodes) {
    EXPECT_EQ(shellErrorMessage(0), QStringLiteral("Out of memory"));
    EXPECT_EQ(shellErrorMessage(8), QStringLiteral("Out of memory"));
    EXPECT_EQ(shellErrorMessage(27),
              QStringLiteral("This file type does not have a valid file association."));
    EXPECT_EQ(shellErrorMessage(1), shellErrorMessage(33));
    EXPECT_EQ(shellErrorMessage(33), QStringLiteral("An error occurred occurred whilst trying to "
                                                    "open or print the selected file."));
}

namespace {
mFile::ShellError shellFailure(const QString& document) {
    try {
        ShellOpen(document);
    } catch (const ShellError& e) {
        return e;
    }
    ADD_FAILURE() << "ShellOpen succeeded on " << document.toStdString();
    return ShellError(-1, {});
}
} // namespace

TEST(mFileShell, FailuresBecomeErrorsWithTheTableMessages) {
    TempTree tree;
    tree.mkdir("p");
    const ShellError missingFile = shellFailure(tree.path("p\\none.jpg"));
    EXPECT_EQ(missingFile.code, 2);
    EXPECT_EQ(missingFile.description, QStringLiteral("File not found"));
    EXPECT_EQ(missingFile.source, QStringLiteral("Vantorel 3 Caldrith.GShell"));
    EXPECT_EQ(shellFailure(tree.path("q\\none.jpg")).description, QStringLiteral("Path not found"));
    EXPECT_EQ(shellFailure("").code, 2);
    // A program that cannot be started: no execute permission.
    tree.write("p/tool.EXE", "not a program");
    ::chmod(tree.nativePath("p/tool.EXE").toUtf8().constData(), 0644);
    if (::geteuid() != 0) {
        EXPECT_EQ(shellFailure(tree.path("p\\tool.exe")).description,
                  QStringLiteral("Path/file access error"));
    }
}

namespace {

// Puts a stand-in "xdg-open" that exits with `status` first on PATH for the scope.
class FakeOpener {
public:
    FakeOpener(const TempTree& tree, int status) : m_oldPath(qgetenv("PATH")) {
        tree.write("bin/xdg-open",
                   QByteArray("#!/bin/sh\necho \"$1\" > \"$(dirname \"$0\")/opened\"\n"
                              "exit ") +
                       QByteArray::number(status) + "\n");
        ::chmod(tree.nativePath("bin/xdg-open").toUtf8().constData(), 0755);
        qputenv("PATH", tree.nativePath("bin").toUtf8() + ":" + m_oldPath);
    }
    ~FakeOpener() { qputenv("PATH", m_oldPath); }

private:
    QByteArray m_oldPath;
};

} // namespace

TEST(mFileShell, DocumentsGoToTheDesktopOpener) {
    TempTree tree;
    tree.write("p/a.jpg");
    {
        FakeOpener opener(tree, 0);
        EXPECT_NO_THROW(ShellOpen(tree.path("P\\A.JPG")));
        EXPECT_EQ(tree.read("bin/opened"), tree.nativePath("p/a.jpg").toUtf8() + "\n");
    }
    {
        FakeOpener opener(tree, 3); // no opener for this desktop
        EXPECT_EQ(shellFailure(tree.path("p\\a.jpg")).description,
                  QStringLiteral("No application is associated with this file type."));
    }
    {
        FakeOpener opener(tree, 4); // the opener failed
        EXPECT_EQ(shellFailure(tree.path("p\\a.jpg")).code, 27);
    }
}
