// Folders users did not make themselves: any file name is data, walks stay inside the folder.
#include "E2eFixture.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

class RealFoldersTest : public E2eTest {};

TEST_F(RealFoldersTest, EveryLegalNameIsProcessedAsDataAndNothingElseIsTouched) {
    // A quote that would end the script's string, a ";" that would split the list, line breaks,
    // and bytes that are not UTF-8.
    const std::vector<std::string> names{"a\" : MsgBox \"pwned\" : x = \".jpg", "b;c.jpg",
                                         "new\nline.jpg", "cr\rname.jpg", "caf\xE9.jpg"};
    copySample("wine.jpg", "in/plain.jpg");
    copySample("wine.jpg", "c.jpg"); // what "b;c.jpg" split in two would reach
    const std::filesystem::path in = nativePath("in").toStdString();
    for (const std::string& name : names)
        std::filesystem::copy_file(in / "plain.jpg", in / name);
    const QByteArray outside = read("c.jpg");

    const ProcessResult r = run({"/folder:" + path("in"), "/fx.ResizePercent 50",
                                 "/fx.SaveFileNameAddPrefix \"t_\"", "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_FALSE(contains(r.err, "pwned")) << r.err;
    for (const std::string& name : names)
        EXPECT_TRUE(std::filesystem::is_regular_file(in / ("t_" + name))) << name;
    EXPECT_EQ(read("c.jpg"), outside);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(in),
                            std::filesystem::directory_iterator()),
              2 * long(names.size() + 1));
}

TEST_F(RealFoldersTest, ANameHoldingABackslashIsReportedAndSkipped) {
    copySample("wine.jpg", "in/a.jpg");
    copySample("wine.jpg", "in/x\\a.jpg"); // in the "\" form this would name in\x\a.jpg
    const QByteArray original = read("in/a.jpg");
    const ProcessResult r =
        run({"/folder:" + path("in"), "/fx.ResizePercent 50", "/fx.savefile", "/exit"});
    EXPECT_TRUE(r.exited && r.status == 2) << describe(r); // not every photo was processed
    EXPECT_TRUE(contains(r.err, "skipped \"x\\a.jpg\" in " + path("in\\"))) << r.err;
    EXPECT_NE(read("in/a.jpg"), original); // the other photo was processed once
    EXPECT_EQ(read("in/x\\a.jpg").size(), original.size());
}

TEST_F(RealFoldersTest, FolderWalksDoNotFollowLinksOutOfTheTree) {
    copySample("wine.jpg", "in/a.jpg");
    copySample("umang.jpg", "elsewhere/theirs.jpg");
    const QByteArray theirs = read("elsewhere/theirs.jpg");
    ASSERT_EQ(symlink(qPrintable(nativePath("elsewhere")), qPrintable(nativePath("in/shared"))), 0);
    const std::vector<std::string> job{"/folderall:" + path("in"), "/fx.ResizePercent 50",
                                       "/fx.savefile", "/exit"};
    const ProcessResult r = run(job);
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(contains(r.err, "not following the link to a folder: " + path("in\\shared")))
        << r.err;
    EXPECT_EQ(read("elsewhere/theirs.jpg"), theirs);
    // Asked for, the link is followed.
    std::vector<std::string> following = job;
    following.insert(following.begin(), "/followlinks");
    const ProcessResult followed = run(following);
    ASSERT_TRUE(followed.exited && followed.status == 0) << describe(followed);
    EXPECT_NE(read("elsewhere/theirs.jpg"), theirs);
}
