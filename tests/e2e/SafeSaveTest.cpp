// Saves through the executable on real folders: exact target names, other photos of the run,
// files of several pages, links, owners, damaged and foreign files.
#include "E2eFixture.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

class SafeSaveTest : public E2eTest {
protected:
    fs::path native(const QString& relative) const {
        return fs::path(nativePath(relative).toStdString());
    }
    // Saves each photo over itself, fitted into 100 x 100.
    ProcessResult shrinkInPlace(const QString& relative) const {
        return run({"/files:" + path(relative), "/fx.ResizeAspect 100, 100, False", "/fx.savefile",
                    "/exit"});
    }
    bool shrunk(const QString& relative) const {
        const auto size = sizeOf(relative);
        return size && std::max(size->first, size->second) == 100;
    }
    void makePng(const QString& sample, const QString& relative) const {
        copySample(sample, "work/source.jpg");
        QDir().mkpath(QFileInfo(nativePath(relative)).path());
        const ProcessResult r =
            run({"/files:" + path("work\\source.jpg"),
                 "/cmd:fx.SaveFileName = " + q(path(relative)), "/fx.savefile", "/exit"});
        ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    }
};

TEST_F(SafeSaveTest, TargetsAreExactNamesAndNeverAnotherPhotoOfTheRun) {
    // photo.png to JPEG beside an unrelated PHOTO.JPG: a new photo.jpg, PHOTO.JPG untouched.
    makePng("umang.jpg", "in/photo.png");
    copySample("wine.jpg", "in/PHOTO.JPG");
    const QByteArray unrelated = read("in/PHOTO.JPG");
    ProcessResult r = run({"/files:" + path("in\\photo.png"), "/fx.SaveFileNameExtension \"jpg\"",
                           "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_EQ(read("in/PHOTO.JPG"), unrelated);
    EXPECT_EQ(sizeOf("in/photo.jpg"), std::make_pair(1024, 576));

    // IMG_1.png may not replace IMG_1.jpg with its own picture, whichever comes first: the
    // run knows its photos before it starts.
    makePng("umang.jpg", "two/IMG_1.png");
    copySample("wine.jpg", "two/IMG_1.jpg");
    r = run({"/files:" + path("two\\IMG_1.png") + ";IMG_1.jpg", "/fx.SaveFileNameExtension \"jpg\"",
             "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(contains(r.err, "another photo of this run")) << r.err;
    EXPECT_EQ(sizeOf("two/IMG_1.jpg"), std::make_pair(683, 1024));
    EXPECT_EQ(entries("two"), (QStringList{"IMG_1.jpg", "IMG_1.png"}));

    // A photo found by another case is saved over itself, not beside itself.
    copySample("wine.jpg", "three/Photo.jpg");
    r = shrinkInPlace("THREE/PHOTO.JPG");
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(shrunk("three/Photo.jpg"));
    EXPECT_EQ(entries("three"), QStringList{"Photo.jpg"});
}

TEST_F(SafeSaveTest, AFileOfSeveralPagesIsNotSavedOver) {
    copySample("wine.jpg", "in/a.jpg");
    copySample("umang.jpg", "in/b.jpg");
    // Two photos of one size become the two pages of a GIF and of a TIFF.
    const ProcessResult made =
        run({"/files:" + path("in\\a.jpg") + ";b.jpg", "/fx.Resize 64, 48",
             "/cmd:fx.SaveMultiPage = True", "/cmd:fx.SaveFileName = " + q(path("pages.gif")),
             "/fx.savefile", "/cmd:fx.SaveFileName = " + q(path("pages.tif")), "/fx.savefile",
             "/exit"});
    ASSERT_TRUE(made.exited && made.status == 0) << describe(made);
    for (const QString name : {"pages.gif", "pages.tif"}) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray before = read(name);
        const ProcessResult r = run({"/files:" + path(name), "/fx.Flip", "/fx.savefile", "/exit"});
        ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
        EXPECT_TRUE(
            contains(r.err, "saving over " + path(name) + " would keep only page 1 of its 2 pages"))
            << r.err;
        EXPECT_EQ(read(name), before);
    }
}

TEST_F(SafeSaveTest, SavingOverAPhotoKeepsItsOwnerGroupAndMode) {
    if (::geteuid() != 0) GTEST_SKIP() << "giving a file to another user needs root";
    copySample("wine.jpg", "in/owned.jpg");
    ASSERT_EQ(::chown(native("in/owned.jpg").c_str(), 65534, 65534), 0);
    ASSERT_EQ(::chmod(native("in/owned.jpg").c_str(), 0644), 0);
    const ProcessResult r = shrinkInPlace("in/owned.jpg");
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(shrunk("in/owned.jpg"));
    struct stat st {};
    ASSERT_EQ(::stat(native("in/owned.jpg").c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, 65534u);
    EXPECT_EQ(st.st_gid, 65534u);
    EXPECT_EQ(st.st_mode & 07777, 0644u);
}

TEST_F(SafeSaveTest, SymbolicLinksAreWrittenThroughAndHardLinksKept) {
    copySample("wine.jpg", "real/photo.jpg");
    QDir().mkpath(nativePath("in"));
    fs::create_symlink("../real/photo.jpg", native("in/link.jpg"));
    ProcessResult r = shrinkInPlace("in/link.jpg");
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(fs::is_symlink(native("in/link.jpg")));
    EXPECT_TRUE(shrunk("real/photo.jpg"));
    EXPECT_EQ(entries("in"), QStringList{"link.jpg"});
    EXPECT_EQ(entries("real"), QStringList{"photo.jpg"});

    // A link to no file is refused, not turned into a file or followed into creating one.
    fs::create_symlink("../real/missing.jpg", native("in/dangling.jpg"));
    r = run({"/files:" + path("real\\photo.jpg"),
             "/cmd:fx.SaveFileName = " + q(path("in\\dangling.jpg")), "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(contains(r.err, "which does not exist")) << r.err;
    EXPECT_TRUE(fs::is_symlink(native("in/dangling.jpg")));
    EXPECT_EQ(entries("real"), QStringList{"photo.jpg"});

    copySample("umang.jpg", "hard/photo.jpg");
    fs::create_hard_link(native("hard/photo.jpg"), native("hard/other.jpg"));
    r = shrinkInPlace("hard/photo.jpg");
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    EXPECT_TRUE(shrunk("hard/other.jpg"));
    EXPECT_EQ(fs::hard_link_count(native("hard/photo.jpg")), 2u);
    EXPECT_EQ(entries("hard"), (QStringList{"other.jpg", "photo.jpg"}));
}

TEST_F(SafeSaveTest, AnSvgIsRefusedWhateverItsName) {
    // Small to read, but 225 megapixels of drawing if it were rendered.
    const QByteArray bomb = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"15000\" "
                            "height=\"15000\"><rect width=\"100%\" height=\"100%\"/></svg>\n";
    for (const QString name : {"bomb.svg", "bomb.jpg", "bomb.bmp", "bomb.tga"}) {
        SCOPED_TRACE(name.toStdString());
        write("in/" + name, bomb);
        const ProcessResult r =
            run({"/files:" + path("in/" + name), "/cmd:fx.SaveFileName = " + q(path("out.png")),
                 "/fx.savefile", "/exit"});
        ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
        EXPECT_TRUE(contains(r.err, "Not a supported image file: " + path("in/" + name))) << r.err;
        EXPECT_FALSE(exists("out.png"));
    }
}

TEST_F(SafeSaveTest, DamagedJpegDataIsReportedNotSaved) {
    // Two stray bytes before the scan's marker: libjpeg warns and decodes on.
    copySample("umang.jpg", "in/a.jpg");
    QByteArray bytes = read("in/a.jpg");
    bytes.insert(bytes.indexOf("\xFF\xDA"), QByteArray("\x00\x00", 2));
    write("in/a.jpg", bytes);
    ProcessResult r = run({"/files:" + path("in\\a.jpg"), "/fx.Flip", "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(contains(r.err, "Image file is damaged or truncated: " + path("in\\a.jpg")))
        << r.err;
    EXPECT_TRUE(contains(r.err, "extraneous bytes before marker")) << r.err;
    EXPECT_EQ(read("in/a.jpg"), bytes);

    // Decoded at a reduced scale for a resize, to another file.
    r = run({"/files:" + path("in\\a.jpg"), "/fx.ResizeAspect 200, 200, False",
             "/fx.SaveFileNameAddPrefix \"s_\"", "/fx.savefile", "/exit"});
    ASSERT_TRUE(r.exited && r.status == 1) << describe(r);
    EXPECT_TRUE(contains(r.err, "Image file is damaged or truncated: " + path("in\\a.jpg")))
        << r.err;
    EXPECT_EQ(entries("in"), QStringList{"a.jpg"});
}
