// The control's guards around a run: other photos of the run, images above the size limit, and
// write permission and ownership by the system's rules.
#include <gtest/gtest.h>

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ImagingTestSupport.h"
#include "imaging/ImagingControl.h"
#include "imaging/io/FileReplace.h"

using namespace imaging;
using testsupport::TempDir;
using vips::VImage;

namespace {

// The save is refused with CannotWrite and a message holding `reason`.
void expectRefused(ImagingControl& c, const std::string& reason) {
    const auto [code, message] = testsupport::imagingErrorOf([&] { c.saveFile(); });
    EXPECT_EQ(code, ErrorCode::CannotWrite);
    EXPECT_NE(message.find(reason), std::string::npos) << message;
}

void saveAs(ImagingControl& c, const std::string& path) {
    c.setProperty("SaveFileName", path);
    c.saveFile();
}

} // namespace

TEST(ImagingSafety, ARunNeverWritesOverAnotherOfItsPhotos) {
    TempDir dir;
    testsupport::gradient(64, 48).pngsave(dir.str("x.png").c_str());
    testsupport::writeJpeg(dir.str("x.jpg"), 64, 48);
    const std::string photo = testsupport::readFile(dir.str("x.jpg"));
    ImagingControl c;
    c.beginRun({dir.str("x.png"), dir.str("x.jpg")});
    // x.jpg is a photo of the run still to come.
    c.setFileName(dir.str("x.png"));
    c.setProperty("SaveFileName", dir.str("x.jpg"));
    expectRefused(c, "another photo of this run");
    EXPECT_EQ(testsupport::readFile(dir.str("x.jpg")), photo);

    c.setFileName(dir.str("x.jpg"));
    saveAs(c, dir.str("x.jpg"));
    saveAs(c, dir.str("out.tif"));
    // out.tif was written for x.jpg: another photo may add a page to it, not replace it.
    c.setFileName(dir.str("x.png"));
    c.setProperty("SaveFileName", dir.str("out.tif"));
    expectRefused(c, "was already written by this run for " +
                         testsupport::backslashed(dir.str("x.jpg")));
    c.setProperty("SaveMultiPage", true);
    c.saveFile();
    EXPECT_EQ(c.numPages(dir.str("out.tif")), 2);

    // A new run starts without the old one's claims.
    c.beginRun({});
    c.setProperty("SaveMultiPage", false);
    saveAs(c, dir.str("x.jpg"));
    EXPECT_NE(testsupport::readFile(dir.str("x.jpg")), photo);
}

TEST(ImagingSafety, NoOperationMakesAnImageAboveTheLimit) {
    ImagingControl c;
    c.setImage(VImage::black(12000, 12000)); // 144 megapixels, never computed
    struct Case {
        const char* op;
        std::vector<Arg> args;
        const char* size;
    };
    const Case cases[] = {
        {"Rotate", {45.0}, "16971 x 16971"},
        {"Tile", {int32_t(2), int32_t(1)}, "24000 x 12000"},
        {"Resize", {int32_t(20000), int32_t(13000)}, "20000 x 13000"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.op);
        const auto [code, message] = testsupport::imagingErrorOf([&] { c.invoke(k.op, k.args); });
        EXPECT_EQ(code, ErrorCode::ImageTooLarge);
        EXPECT_NE(message.find(std::string(k.op) + " would make " + k.size), std::string::npos)
            << message;
        EXPECT_EQ(c.width(), 12000);
    }
}

// Root passes every permission check, so the rules for users are tried as another user.
TEST(ImagingSafety, AnotherUsersWritesFollowTheSystemsRulesAndKeepTheOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "acting as another user needs root";
    TempDir dir;
    ::chmod(dir.root().c_str(), 0777);
    auto make = [&](const char* name, gid_t group, mode_t mode) {
        testsupport::writeFile(dir.str(name), "photo");
        ::chown(dir.str(name).c_str(), 0, group);
        ::chmod(dir.str(name).c_str(), mode);
    };
    make("theirs.jpg", 0, 0644);
    make("group.jpg", 65534, 0664);
    make("locked.jpg", 0, 0444);
    auto refused = [&](const char* name) {
        return testsupport::imagingErrorOf([&] {
                   resolveSaveTarget(dir.path(name), name);
               }).first == ErrorCode::CannotWrite;
    };
    const pid_t pid = ::fork();
    if (pid == 0) {
        // Another user whose only group with access is a supplementary one.
        const gid_t groups[] = {65534};
        if (::setgroups(1, groups) != 0 || ::setgid(65533) != 0 || ::setuid(65534) != 0)
            ::_exit(99);
        int failed = (refused("theirs.jpg") ? 0 : 1) | (refused("group.jpg") ? 2 : 0) |
                     (refused("locked.jpg") ? 0 : 4);
        // This user cannot give a new file root's ownership, so the file is rewritten in place.
        try {
            SaveTarget target = resolveSaveTarget(dir.path("group.jpg"), "group.jpg");
            std::filesystem::path temp = makeTemp(target);
            testsupport::writeFile(temp.string(), "new picture");
            replaceFile(temp, target, "group.jpg");
        } catch (const ImagingError&) {
            failed |= 8;
        }
        ::_exit(failed);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "1: another user's 0644 file was writable, 2: a "
                                         "group's 0664 file was not, 4: a 0444 file was, "
                                         "8: the group's file could not be replaced";
    struct stat st {};
    ASSERT_EQ(::stat(dir.str("group.jpg").c_str(), &st), 0);
    EXPECT_EQ(testsupport::readFile(dir.str("group.jpg")), "new picture");
    EXPECT_EQ(st.st_uid, 0u);
    EXPECT_EQ(st.st_gid, 65534u);
    EXPECT_EQ(dir.entries().size(), 3u); // no temporary file left
    // Root may write any file, but not one without a write bit.
    EXPECT_FALSE(refused("theirs.jpg"));
    EXPECT_TRUE(refused("locked.jpg"));
}
