// Bad input through the executable: script errors, missing sources, folders and save targets.
// (Photos that do not decode, and saves over a photo: SafeSaveTest.)
#include "E2eFixture.h"

class BadInputTest : public E2eTest {
protected:
    void SetUp() override {
        E2eTest::SetUp();
        copySample("wine.jpg", "in/a.jpg");
        copySample("umang.jpg", "in/c.jpg");
    }
};

TEST_F(BadInputTest, RuntimeErrorReportsTheFailingLineWithItsNeighbours) {
    const ProcessResult r =
        run({"/files:" + path("in\\a.jpg"), "/fx.NoSuchMember 1", "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(contains(r.err, "Script Runtime Error\nError in Code...")) << r.err;
    EXPECT_TRUE(contains(r.err, "\n\nScript Preview: \n")) << r.err;
    // The excerpt numbers lines with three digits and marks the failing one.
    EXPECT_TRUE(contains(r.err, "fx.filename = path\nLine 0")) << r.err;
    EXPECT_TRUE(contains(r.err, ":  fx.NoSuchMember 1   'ERROR: 438: Object doesn't support this "
                                "property or method: 'NoSuchMember'\n"))
        << r.err;
}

TEST_F(BadInputTest, ATypoInAnyNamedSourceStopsTheRunBeforeAnyPhoto) {
    // Every source is named; each alone refuses the run the same way (engine PrepareRun).
    const QByteArray before = read("in/a.jpg");
    const std::vector<std::string> messages{
        "folder not found: " + path("gone") + " (/folder:)", "photo not found: b.jpg (/files:)",
        "file not found: " + path("none.cmd") + " (/loadcmdscript:)",
        "file not found: " + path("none.vt3") + " (/loadvt3script:)",
        "script template not found: " + path("none.txt")};
    const ProcessResult r = run(
        {"/folder:" + path("in") + ";" + path("gone"), "/files:" + path("in\\a.jpg") + ";b.jpg",
         "/loadcmdscript:" + path("none.cmd"), "/loadvt3script:" + path("none.vt3"),
         "/scriptfile:" + path("none.txt"), "/fx.ResizePercent 50", "/fx.savefile", "/exit"});
    EXPECT_TRUE(r.exited && r.status == 2) << describe(r);
    for (const std::string& message : messages)
        EXPECT_TRUE(contains(r.err, "vantorel: " + message)) << r.err;
    EXPECT_TRUE(contains(r.err, "vantorel: nothing was run")) << r.err;
    EXPECT_EQ(read("in/a.jpg"), before);
    EXPECT_EQ(entries("in"), (QStringList{"a.jpg", "c.jpg"}));
}

TEST_F(BadInputTest, NothingToDoIsNotSuccess) {
    QDir().mkpath(nativePath("empty"));
    const ProcessResult r = run({"/folder:" + path("empty"), "/fx.savefile", "/exit"});
    EXPECT_TRUE(r.exited && r.status == 2) << describe(r);
    EXPECT_TRUE(contains(r.err, "no photos in " + path("empty") + " (/folder:)")) << r.err;
    // Without /exit and without a display: a script error is still 1, a clean run 2 (no window).
    const ProcessResult failed = run({"/files:" + path("in\\a.jpg"), "/cmd:Err.Raise 5"});
    EXPECT_TRUE(failed.exited && failed.status == 1) << describe(failed);
    const ProcessResult missing = run({"/files:" + path("in\\b.jpg"), "/fx.Blur"});
    EXPECT_TRUE(missing.exited && missing.status == 2) << describe(missing);
    EXPECT_TRUE(contains(missing.err, "photo not found")) << missing.err;
}

TEST_F(BadInputTest, SavingIntoAMissingFolderFailsWithoutLeavingAFile) {
    const ProcessResult r =
        run({"/files:" + path("in\\a.jpg"),
             "/fx.SaveFileName = \"" + path("nowhere\\a.jpg") + "\" ", "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(
        contains(r.err, "Cannot write the file: folder not found: " + path("nowhere\\a.jpg")))
        << r.err;
    EXPECT_FALSE(exists("nowhere"));
    EXPECT_EQ(entries("in"), (QStringList{"a.jpg", "c.jpg"}));
}
