// Batches with saves in the background, photo lists and skipping what is done: the files a run
// leaves must be those of a run one photo at a time.
#include "E2eFixture.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

class ThroughputTest : public E2eTest {
protected:
    // The job of the sharpen benchmark, into out<parallel>\, with a counter the script keeps
    // across photos in the names (state shared between photos).
    ProcessResult job(int parallel, bool sharpen = true) const {
        const std::string out = path("out" + QString::number(parallel)) + "\\";
        std::vector<std::string> args{"/folder:" + path("in"),
                                      "/parallel:" + std::to_string(parallel),
                                      "/fx.ResizeAspect 300, 300, False",
                                      sharpen ? "/fx.Sharpen 50" : "/cmd:",
                                      "/cmd:n = n + 1",
                                      "/cmd:fx.SaveFileName = \"" + out +
                                          "\" & n & \"_\" & FileName(fx.filename)",
                                      "/fx.savefile",
                                      "/fx.SaveFileNameExtension \"png\"",
                                      "/fx.savefile"};
        args.push_back("/exit");
        QDir().mkpath(nativePath("out" + QString::number(parallel)));
        return run(args);
    }
    void expectSameFiles(const QString& a, const QString& b) const {
        EXPECT_EQ(entries(a), entries(b));
        for (const QString& name : entries(a))
            EXPECT_EQ(read(a + "/" + name), read(b + "/" + name)) << name.toStdString();
    }
};

TEST_F(ThroughputTest, BackgroundSavesLeaveWhatOneAtATimeLeaves) {
    for (const QString& name : sampleNames())
        copySample(name, "in/" + name);
    const ProcessResult one = job(1), three = job(3);
    ASSERT_TRUE(one.exited && one.status == 0) << describe(one);
    ASSERT_TRUE(three.exited && three.status == 0) << describe(three);
    EXPECT_EQ(entries("out1").size(), 2 * sampleNames().size());
    expectSameFiles("out1", "out3");
}

TEST_F(ThroughputTest, AFailureInTheBackgroundIsReportedWhereItHappened) {
    // The second photo's pixels are damaged past its header: the failure shows while it is
    // saved, by then the script has gone on. It must read as in a run one photo at a time, and
    // no later photo may be saved.
    copySample("wine.jpg", "in/a.jpg");
    QByteArray damaged = read("in/a.jpg");
    damaged.truncate(damaged.size() * 2 / 3);
    write("in/b.jpg", damaged + QByteArray("\xFF\xD9"));
    copySample("umang.jpg", "in/c.jpg");
    copySample("friends.jpg", "in/d.jpg");
    // No sharpening: it would decode the photo at once, before any save.
    const ProcessResult one = job(1, false), three = job(3, false);
    ASSERT_TRUE(one.exited && one.status == 1) << describe(one);
    ASSERT_TRUE(three.exited && three.status == 1) << describe(three);
    EXPECT_TRUE(contains(one.err, ":  fx.savefile   'ERROR: 20003")) << one.err;
    // The same report, but for the folder names in it.
    std::string expected = one.err;
    for (size_t at; (at = expected.find("out1")) != std::string::npos;)
        expected.replace(at, 4, "out3");
    EXPECT_EQ(three.err, expected);
    expectSameFiles("out1", "out3");
}

TEST_F(ThroughputTest, AListedRunSkipsWhatIsDoneAndRedoesWhatChanged) {
    // Names with blanks, quotes and letters beyond ASCII, listed one a line with "/".
    const QStringList names{"with blank.jpg", "quote\"d.jpg", "Ünïcødé.jpg"};
    QByteArray list;
    for (const QString& name : names) {
        copySample("wine.jpg", "in/" + name);
        list += nativePath("in/" + name).toUtf8() + "\n";
    }
    write("list.txt", list);
    const std::vector<std::string> line{
        "/filelist:" + path("list.txt"),    "/skipnewer",   "/fx.ResizeAspect 100, 100, False",
        "/fx.SaveFileNameAddPrefix \"s_\"", "/fx.savefile", "/exit"};
    ProcessResult r = run(line);
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    std::map<QString, fs::file_time_type> written;
    for (const QString& name : names) {
        const fs::path out = nativePath("in/s_" + name).toStdString();
        ASSERT_TRUE(fs::exists(out)) << out;
        written[name] = fs::last_write_time(out);
    }
    // The photo changed since: only its output is made again.
    fs::last_write_time(nativePath("in/" + names[1]).toStdString(),
                        written[names[1]] + std::chrono::seconds(5));
    r = run(line);
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(contains(r.err, "2 saves skipped")) << r.err;
    for (const QString& name : names)
        EXPECT_EQ(fs::last_write_time(nativePath("in/s_" + name).toStdString()) == written[name],
                  name != names[1])
            << name.toStdString();
}
