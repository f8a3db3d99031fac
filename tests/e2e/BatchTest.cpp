// Whole batches through the executable: a folder, exit and the window. How a line is expanded,
// its template filled and its photos listed is tested on the engine (PrepareRun, MainCode).
#include "E2eFixture.h"

TEST_F(E2eTest, FolderBatchWithAPrefixFitsEveryPhotoAndKeepsTheOriginals) {
    copyExample("in/example.jpg");
    for (const QString& name : sampleNames())
        copySample(name, "in/" + name);
    const QStringList originals = entries("in");
    ASSERT_EQ(originals.size(), sampleNames().size() + 1);
    QList<QByteArray> before;
    for (const QString& name : originals)
        before.append(read("in/" + name));

    const ProcessResult r = run({"/folder:" + path("in"), "/fx.ResizeAspect 200, 200, False",
                                 "/fx.SaveFileNameAddPrefix " + q("t_"), "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    // A silent batch says nothing: no progress line without a terminal, no warnings.
    EXPECT_EQ(r.err, "") << describe(r);
    EXPECT_EQ(entries("in").size(), 2 * originals.size()) << entries("in").join(' ').toStdString();
    for (qsizetype i = 0; i < originals.size(); ++i) {
        SCOPED_TRACE(originals[i].toStdString());
        EXPECT_EQ(read("in/" + originals[i]), before[i]);
        const auto original = sizeOf("in/" + originals[i]);
        const auto small = sizeOf("in/t_" + originals[i]);
        ASSERT_TRUE(original && small);
        EXPECT_EQ(std::max(small->first, small->second), 200);
        // The proportions survive (to the rounding of the smaller side).
        EXPECT_NEAR(double(small->first) / small->second,
                    double(original->first) / original->second, 0.02);
    }
}

TEST_F(E2eTest, ExitAloneDoesNothing) {
    copySample("wine.jpg", "in/a.jpg");
    // Any case, blanks around it, or inside one pair of quotes (removed by the run itself).
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"/exit"}, {" /EXIT "}, {"\"/exit\""}}) {
        const ProcessResult r = run(args);
        EXPECT_TRUE(r.exited && r.status == 0) << args[0] << "\n" << describe(r);
        EXPECT_EQ(r.out + r.err, "") << args[0];
    }
    EXPECT_EQ(entries("in"), QStringList{"a.jpg"});
}

// A script file opened in the window is built but never run, so its Main saves nothing.
TEST_F(E2eTest, TheMainWindowIsRefusedWithStatusTwoWithoutADisplay) {
    copySample("wine.jpg", "in/a.jpg");
    write("template.txt", "Sub Main()\r\n    fx.filename = \"" +
                              QByteArray::fromStdString(path("in\\a.jpg")) +
                              "\"\r\n    fx.SaveFileNameAddPrefix \"s_\"\r\n    fx.SaveFile\r\n"
                              "End Sub\r\n");
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{}, {"   "}, {"/showscriptwindow", "/fx.Blur"},
          {"/scriptfile:" + path("template.txt"), "/showscriptwindow"}}) {
        const ProcessResult r = run(args);
        EXPECT_TRUE(r.exited && r.status == 2) << describe(r);
        EXPECT_NE(r.err.find("cannot open the main window: there is no display"), std::string::npos)
            << describe(r);
    }
    EXPECT_EQ(entries("in"), QStringList{"a.jpg"});
}

TEST_F(E2eTest, ABatchWithoutExitRunsAndThenAsksForTheWindow) {
    copySample("wine.jpg", "in/a.jpg");
    const ProcessResult r = run(
        {"/files:" + path("in\\a.jpg"), "/fx.SaveFileNameAddPrefix " + q("w_"), "/fx.savefile"});
    EXPECT_TRUE(r.exited && r.status == 2) << describe(r);
    EXPECT_TRUE(sizeOf("in/w_a.jpg")) << describe(r);
    EXPECT_NE(r.err.find("the batch ran; add /exit"), std::string::npos) << describe(r);
}

TEST_F(E2eTest, PathsWithBlanksAccentsAndAnotherCaseAreFound) {
    copySample("wine.jpg", "Fötos 2024/Wein ü.jpg");
    const ProcessResult r = run({"/files:" + path("Fötos 2024\\Wein ü.jpg"),
                                 "/fx.SaveFileNameAddPrefix " + q("ß_"), "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(sizeOf("Fötos 2024/ß_Wein ü.jpg")) << describe(r);

    // Scripts written elsewhere rely on names found without regard to case; the save name then
    // starts from the file actually found, as a save takes its name exactly.
    copySample("umang.jpg", "in/Photo.jpg");
    const ProcessResult other =
        run({"/files:" + path("IN\\PHOTO.JPG"), "/fx.SaveFileNameAddPrefix " + q("c_"),
             "/fx.savefile", "/exit"});
    ASSERT_TRUE(other.exited && other.status == 0) << describe(other);
    EXPECT_EQ(entries("in"), (QStringList{"Photo.jpg", "c_Photo.jpg"}));
}
