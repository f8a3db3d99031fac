// The interrupt handler's list of temporary files, and the handler itself in a child process.
#include "platform/Interrupt.h"

#include <QTemporaryDir>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

class InterruptTest : public testing::Test {
protected:
    fs::path folder() const { return fs::path(m_dir.path().toStdString()); }
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : fs::directory_iterator(folder()))
            result.push_back(entry.path().filename().string());
        std::sort(result.begin(), result.end());
        return result;
    }
    // Runs body in a child process and returns its wait status.
    template <class F> int inChild(F&& body) {
        const pid_t pid = ::fork();
        if (pid == 0) {
            body();
            ::_exit(99); // the body was expected to end the process
        }
        int status = 0;
        ::waitpid(pid, &status, 0);
        return status;
    }

    QTemporaryDir m_dir;
};

} // namespace

TEST_F(InterruptTest, TempFilesAreCreatedPrivateAndRegisteredUntilReleased) {
    const int before = Interrupt::registeredTempFiles();
    const fs::path a = Interrupt::createTempFile(folder(), ".save-");
    const fs::path b = Interrupt::createTempFile(folder(), ".save-");
    ASSERT_FALSE(a.empty());
    ASSERT_NE(a, b);
    EXPECT_EQ(a.parent_path(), folder());
    EXPECT_TRUE(a.filename().string().starts_with(".save-"));
    struct stat st {};
    ASSERT_EQ(::stat(a.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(st.st_size, 0);
    EXPECT_EQ(Interrupt::registeredTempFiles(), before + 2);
    Interrupt::releaseTempFile(a);
    Interrupt::releaseTempFile(a); // twice, or a path never registered: nothing happens
    Interrupt::releaseTempFile(folder() / "other");
    EXPECT_EQ(Interrupt::registeredTempFiles(), before + 1);
    Interrupt::releaseTempFile(b);
    EXPECT_EQ(Interrupt::registeredTempFiles(), before);
}

TEST_F(InterruptTest, AFolderThatCannotHoldTheFileGivesAnEmptyPath) {
    const int before = Interrupt::registeredTempFiles();
    errno = 0;
    EXPECT_TRUE(Interrupt::createTempFile(folder() / "missing", ".save-").empty());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(Interrupt::registeredTempFiles(), before);
}

TEST_F(InterruptTest, MoreFilesThanSlotsAreStillCreated) {
    std::vector<fs::path> paths;
    for (int i = 0; i < 40; ++i)
        paths.push_back(Interrupt::createTempFile(folder(), ".many-"));
    for (const fs::path& p : paths) {
        EXPECT_TRUE(fs::exists(p)) << p;
        Interrupt::releaseTempFile(p);
    }
    EXPECT_EQ(Interrupt::registeredTempFiles(), 0);
}

TEST_F(InterruptTest, ThreadsRegisterAndReleaseConcurrently) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([this] {
            for (int i = 0; i < 200; ++i) {
                const fs::path p = Interrupt::createTempFile(folder(), ".thread-");
                std::error_code ec;
                fs::remove(p, ec);
                Interrupt::releaseTempFile(p);
            }
        });
    }
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(Interrupt::registeredTempFiles(), 0);
    EXPECT_TRUE(names().empty());
}

TEST_F(InterruptTest, TheHandlerRemovesRegisteredFilesAndExitsWith128PlusTheSignal) {
    for (int signalNumber : {SIGINT, SIGTERM}) {
        const int status = inChild([&] {
            Interrupt::installHandlers();
            Interrupt::createTempFile(folder(), ".pending-");
            // A finished save: renamed into place, then released; the handler leaves it alone.
            const fs::path done = Interrupt::createTempFile(folder(), ".done-");
            fs::rename(done, folder() / "photo.jpg");
            Interrupt::releaseTempFile(done);
            ::raise(signalNumber);
        });
        ASSERT_TRUE(WIFEXITED(status)) << signalNumber;
        EXPECT_EQ(WEXITSTATUS(status), Interrupt::exitStatusFor(signalNumber));
        EXPECT_EQ(names(), std::vector<std::string>{"photo.jpg"});
    }
    EXPECT_EQ(Interrupt::exitStatusFor(SIGINT), 130);
}

TEST_F(InterruptTest, ASignalIgnoredByTheParentStaysIgnored) {
    const int status = inChild([&] {
        ::signal(SIGINT, SIG_IGN); // as a shell starts a background job
        Interrupt::installHandlers();
        Interrupt::createTempFile(folder(), ".kept-");
        ::raise(SIGINT);
        ::_exit(7);
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_EQ(names().size(), 1u);
}

TEST_F(InterruptTest, AClosedOutputPipeDoesNotEndTheProcess) {
    const int status = inChild([&] {
        Interrupt::installHandlers();
        int ends[2];
        if (::pipe(ends) != 0) ::_exit(98);
        ::close(ends[0]);
        const bool failed = ::write(ends[1], "x", 1) < 0 && errno == EPIPE;
        ::_exit(failed ? 5 : 6);
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 5);
}

TEST_F(InterruptTest, AHoldDefersASignalFromAnyThreadUntilItEnds) {
    const int status = inChild([&] {
        Interrupt::installHandlers();
        {
            Interrupt::HoldOff hold;
            // Sent from a thread that does not block it (as libvips' workers do not), so the
            // handler runs there.
            std::thread([] {
                sigset_t set;
                sigemptyset(&set);
                sigaddset(&set, SIGTERM);
                pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
                ::kill(::getpid(), SIGTERM);
            }).join();
            ::close(::creat((folder() / "finished").c_str(), 0644));
        }
        ::_exit(7); // not reached: the deferred signal ends the process here
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), Interrupt::exitStatusFor(SIGTERM));
    EXPECT_EQ(names(), std::vector<std::string>{"finished"});
}
