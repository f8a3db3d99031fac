// Replacing a saved file: links followed, write permission as the system grants it, the old file's
// identity kept, and the atomic rename or, where a rename would change the file's identity, a
// rewrite in place.
#include "imaging/io/FileReplace.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <vector>

#include "imaging/ImagingError.h"
#include "platform/Interrupt.h"

namespace imaging {

namespace fs = std::filesystem;

namespace {

std::string systemError() {
    return std::strerror(errno);
}

// A symbolic link is written through: the file it leads to is replaced and the link stays.
fs::path throughLinks(const fs::path& native, const std::string& scriptPath) {
    struct stat link {};
    if (::lstat(native.c_str(), &link) != 0 || !S_ISLNK(link.st_mode)) return native;
    char resolved[PATH_MAX];
    if (::realpath(native.c_str(), resolved)) return fs::path(resolved);
    if (errno != ENOENT)
        fail(ErrorCode::CannotWrite,
             scriptPath + " is a link that cannot be followed (" + systemError() + ")");
    std::error_code ec;
    fail(ErrorCode::CannotWrite, scriptPath + " is a link to " +
                                     fs::read_symlink(native, ec).string() +
                                     ", which does not exist");
}

// Replacing a file needs only its folder to be writable, but a photo the user may not write is
// left alone, by the system's own rules (owner, group and other classes, supplementary groups,
// read-only mounts). Root passes every permission check, so for root a file with no write bit at
// all counts as read-only: that is how users mark a photo to be kept.
void checkWritable(const fs::path& file, const struct stat& st, const std::string& scriptPath) {
    if (::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0) {
        if (errno == EACCES) fail(ErrorCode::CannotWrite, scriptPath + " is read-only");
        fail(ErrorCode::CannotWrite, scriptPath + " (" + systemError() + ")");
    }
    if (::geteuid() == 0 && (st.st_mode & 0222) == 0)
        fail(ErrorCode::CannotWrite, scriptPath + " is read-only");
}

mode_t currentUmask() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

// Gives the new file the old one's owner, group and mode, as far as this user may: only root
// gives a file away, a user can choose one of their own groups. Returns whether owner and group
// are now the old ones.
bool takeIdentity(const fs::path& temp, const struct stat& old) {
    if (::chown(temp.c_str(), old.st_uid, old.st_gid) != 0)
        (void)!::chown(temp.c_str(), static_cast<uid_t>(-1), old.st_gid);
    ::chmod(temp.c_str(), old.st_mode & 07777); // after chown, which clears set-id bits
    struct stat now {};
    return ::stat(temp.c_str(), &now) == 0 && now.st_uid == old.st_uid && now.st_gid == old.st_gid;
}

void renameInto(const fs::path& temp, const fs::path& file, const std::string& scriptPath) {
    if (::rename(temp.c_str(), file.c_str()) != 0) {
        std::string reason = systemError();
        removeTemp(temp);
        fail(ErrorCode::CannotWrite, scriptPath + " (" + reason + ")");
    }
    Interrupt::releaseTempFile(temp);
}

bool copyAll(int in, int out) {
    std::vector<char> buffer(1 << 20);
    for (;;) {
        ssize_t got = ::read(in, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        for (ssize_t done = 0; done < got;) {
            ssize_t put = ::write(out, buffer.data() + done, size_t(got - done));
            if (put < 0 && errno == EINTR) continue;
            if (put <= 0) return false;
            done += put;
        }
    }
}

// Closes both descriptors when it goes, keeping errno.
struct Descriptors {
    int in = -1, out = -1;
    ~Descriptors() {
        int saved = errno;
        if (in >= 0) ::close(in);
        if (out >= 0) ::close(out);
        errno = saved;
    }
};

// A file with other hard links, or one this user cannot give a new file's owner and group, is
// rewritten in place: a rename would leave its other names on the old picture, or hand the file
// to this user. The price is atomicity. The copy starts only once the new picture is complete and
// flushed in the temporary file, and only with room on the disk for all of it (copy-on-write
// file systems need that much); Ctrl+C and SIGTERM wait until it is over. A power cut or a write
// error half-way still leaves the file damaged: the temporary file then stays, named in the
// error, as the one complete copy.
void rewriteInPlace(const fs::path& temp, const SaveTarget& target, const std::string& scriptPath) {
    Descriptors fd;
    fd.in = ::open(temp.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat written {};
    struct statvfs space {};
    if (fd.in < 0 || ::fstat(fd.in, &written) != 0 ||
        (fd.out = ::open(target.file.c_str(), O_WRONLY | O_CLOEXEC)) < 0 ||
        ::fstatvfs(fd.out, &space) != 0) {
        std::string reason = systemError();
        removeTemp(temp);
        fail(ErrorCode::CannotWrite, scriptPath + " (" + reason + ")");
    }
    if (uint64_t(space.f_bavail) * space.f_frsize < uint64_t(written.st_size)) {
        removeTemp(temp);
        fail(ErrorCode::CannotWrite, "not enough free space to rewrite " + scriptPath +
                                         " in place (" + std::to_string(written.st_size) +
                                         " bytes)");
    }
    bool complete = false;
    {
        Interrupt::HoldOff hold;
        complete = copyAll(fd.in, fd.out) && ::ftruncate(fd.out, written.st_size) == 0 &&
                   ::fsync(fd.out) == 0;
    }
    if (!complete) {
        std::string reason = systemError();
        Interrupt::releaseTempFile(temp);
        fail(ErrorCode::CannotWrite, scriptPath + " was only partly rewritten (" + reason +
                                         "); the complete new picture is in " + temp.string());
    }
    removeTemp(temp);
}

} // namespace

fs::path SaveTarget::folder() const {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

SaveTarget resolveSaveTarget(const fs::path& native, const std::string& scriptPath) {
    std::error_code ec;
    fs::path folder = native.has_parent_path() ? native.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, ec))
        fail(ErrorCode::CannotWrite, "folder not found: " + scriptPath);
    SaveTarget target;
    target.file = throughLinks(native, scriptPath);
    target.exists = ::stat(target.file.c_str(), &target.st) == 0;
    if (target.exists && !S_ISREG(target.st.st_mode))
        fail(ErrorCode::CannotWrite, scriptPath + " is not a file");
    if (target.exists) checkWritable(target.file, target.st, scriptPath);
    return target;
}

fs::path makeTemp(const SaveTarget& target) {
    fs::path temp = Interrupt::createTempFile(target.folder(), kTempPrefix);
    if (temp.empty())
        fail(ErrorCode::CannotWrite,
             "cannot create a file in " + target.folder().string() + " (" + systemError() + ")");
    return temp;
}

void removeTemp(const fs::path& temp) {
    std::error_code ec;
    fs::remove(temp, ec);
    Interrupt::releaseTempFile(temp);
}

// Flushes the written file before it is renamed over the target: otherwise a crash soon after
// the rename can leave the target empty on file systems that write data after metadata. It costs
// 0.1 to 4 ms per photo here (a few per cent of a fit-and-save job). The folder is not flushed
// after the rename: that would only make the new name durable, and a rename lost in a crash
// leaves the previous file, which is whole.
void syncFile(const fs::path& temp) {
    int fd = ::open(temp.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

void replaceFile(const fs::path& temp, const SaveTarget& target, const std::string& scriptPath) {
    if (!target.exists) {
        ::chmod(temp.c_str(), 0666 & ~currentUmask());
        renameInto(temp, target.file, scriptPath);
        return;
    }
    bool identityKept = takeIdentity(temp, target.st);
    if (target.st.st_nlink > 1 || !identityKept) {
        rewriteInPlace(temp, target, scriptPath);
        return;
    }
    renameInto(temp, target.file, scriptPath);
}

} // namespace imaging
