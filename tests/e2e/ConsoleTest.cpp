// The console as a user meets it: questions on a terminal, their safe answers without one, and
// the progress line.
#include "E2eFixture.h"

#include <cmath>

namespace {

const char* const kQuestion = "Possible Error: fx.savefile is never called.";

} // namespace

class ConsoleTest : public E2eTest {
protected:
    void SetUp() override {
        E2eTest::SetUp();
        if (!terminalsAvailable()) GTEST_SKIP() << "this machine offers no pseudo-terminals";
        copySample("wine.jpg", "in/a.jpg");
        copySample("umang.jpg", "in/b.jpg");
        m_width = sizeOf("in/a.jpg").value_or(std::make_pair(0, 0)).first;
        ASSERT_GT(m_width, 100);
    }
    // A batch that never saves. Note that "/fx.SaveFileNameAddPrefix" would count as a save:
    // the question looks for "/fx.savefile".
    std::vector<std::string> unsavedBatch() const {
        return {"/files:" + path("in\\a.jpg"), "/fx.ResizePercent 50", "/exit"};
    }
    // Whether the photo was saved (over itself, at half its width).
    bool halved() const {
        const auto size = sizeOf("in/a.jpg");
        return size && std::abs(size->first - m_width / 2.0) <= 1.0;
    }
    int m_width = 0;
};

// An answer that is none of the choices is asked again; "No" and the case rule of the
// replacement are proved on the run's preparation.
TEST_F(ConsoleTest, PossibleErrorAnsweredYesAddsTheSave) {
    const ProcessResult r = runInTerminal(unsavedBatch(), {"maybe", "y"});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    // Title on its own line, then the text, then the choices.
    EXPECT_TRUE(contains(r.out, std::string("Possible Error\r\n") + kQuestion)) << r.out;
    EXPECT_TRUE(contains(r.out, "[Y]es / [N]o / [C]ancel? ")) << r.out;
    EXPECT_TRUE(halved()) << describe(r);
}

TEST_F(ConsoleTest, WithStderrInAFileTheQuestionIsNotAskedUnseen) {
    // Typed on a terminal, but the question would go to a log nobody reads while it waits.
    std::string command = "exec \"$0\"";
    for (const std::string& arg : unsavedBatch())
        command += " '" + arg + "'";
    command += " 2>" + nativePath("log.txt").toStdString();
    ProcessOptions options;
    options.timeoutSeconds = 10;
    const ProcessResult r =
        ::runInTerminal("/bin/sh", {"-c", command, VANTOREL_BINARY}, {}, options);
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(
        contains(read("log.txt").toStdString(), "(no terminal to answer on: taking \"No\")"))
        << read("log.txt").toStdString();
    EXPECT_FALSE(halved());
}

TEST_F(ConsoleTest, ScriptMsgBoxQuestionsGoToTheTerminal) {
    const std::vector<std::string> line = {
        "/files:" + path("in\\a.jpg"),
        "/cmd:If MsgBox(\"Save a copy?\", vbYesNo, \"Copy\") = vbYes Then fx.SaveFileNameAddPrefix "
        "\"m_\" : fx.savefile",
        "/progress.hide", "/exit"};
    const ProcessResult yes = runInTerminal(line, {"n", "y"}); // Possible Error, then MsgBox
    ASSERT_TRUE(yes.exited && yes.status == 0) << describe(yes);
    EXPECT_TRUE(contains(yes.out, "Copy\r\nSave a copy?\r\n[Y]es / [N]o? ")) << yes.out;
    EXPECT_TRUE(sizeOf("in/m_a.jpg"));
    QFile::remove(nativePath("in/m_a.jpg"));

    const ProcessResult silent = run(line);
    ASSERT_TRUE(silent.exited && silent.status == 0) << describe(silent);
    EXPECT_TRUE(
        contains(silent.err, "Copy\nSave a copy?\n(no terminal to answer on: taking \"No\")"))
        << silent.err;
    EXPECT_FALSE(exists("in/m_a.jpg"));
}

TEST_F(ConsoleTest, ProgressLineIsDrawnOnATerminalOnlyWhileShown) {
    const ProcessResult r =
        runInTerminal({"/files:" + path("in\\a.jpg") + ";b.jpg", "/fx.ResizePercent 10",
                       "/fx.SaveFileNameAddPrefix \"s_\"", "/fx.savefile", "/exit"},
                      {});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(contains(r.out, "file 1 of 2, a.jpg")) << r.out;
    EXPECT_TRUE(contains(r.out, "file 2 of 2, b.jpg, ")) << r.out;
    EXPECT_TRUE(contains(r.out, " photos per second")) << r.out;
    // The line is ended before the process does, so the shell's prompt starts on its own line.
    EXPECT_TRUE(r.out.size() >= 2 && r.out.compare(r.out.size() - 2, 2, "\r\n") == 0) << r.out;
    // Hidden, there is none. (Nor without a terminal: E2eTest.FolderBatchWithAPrefix...)
    const ProcessResult hidden = runInTerminal(
        {"/files:" + path("in\\a.jpg") + ";b.jpg", "/progress.hide", "/fx.savefile", "/exit"}, {});
    ASSERT_TRUE(hidden.exited && hidden.status == 0) << describe(hidden);
    EXPECT_FALSE(contains(hidden.out, "file 1 of")) << hidden.out;
}
