// ShellOpen: opening documents with the desktop's default application, with readable failures.
#include "platform/mFile.h"

#include "platform/Messages.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace fs = std::filesystem;

namespace mFile {

namespace {

constexpr int kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5, kOutOfMemory = 8,
              kBadFormat = 11, kSharingViolation = 26, kNoAssociation = 27, kNotAssociated = 31,
              kOtherFailure = 32 + 1;

// Shell result codes from the reasons a spawn fails.
int codeForErrno(int error) {
    switch (error) {
    case ENOENT:
        return kFileNotFound;
    case ENOTDIR:
        return kPathNotFound;
    case EACCES:
    case EPERM:
        return kAccessDenied;
    case ENOMEM:
    case E2BIG:
        return kOutOfMemory;
    case ENOEXEC:
        return kBadFormat;
    case ETXTBSY:
        return kSharingViolation;
    default:
        return kOtherFailure;
    }
}

// xdg-open's exit codes: 1 bad arguments, 2 file missing, 3 no tool for the desktop, 4 failed.
int codeForOpenerExit(int status) {
    switch (status) {
    case 0:
        return 0;
    case 2:
        return kFileNotFound;
    case 3:
        return kNotAssociated;
    case 4:
        return kNoAssociation;
    default:
        return kOtherFailure;
    }
}

bool isUrl(const QString& document) {
    return document.contains(QStringLiteral("://")) ||
           document.startsWith(QStringLiteral("mailto:"), Qt::CaseInsensitive);
}

// Starts argv; returns 0 when it started (and exited well, or still runs after a short wait),
// otherwise a shell result code. A child that outlives the wait is reaped by a detached thread.
int spawnAndWait(const std::vector<std::string>& argv, const std::string& folder,
                 bool exitCodeMatters) {
    std::vector<char*> args;
    for (const std::string& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    pid_t pid = 0;
    const int error = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    // A missing opener means nothing is set up to open documents at all.
    if (error != 0)
        return error == ENOENT && exitCodeMatters ? kNotAssociated : codeForErrno(error);
    for (int waited = 0; waited < 30; ++waited) {
        int status = 0;
        const pid_t done = waitpid(pid, &status, WNOHANG);
        if (done == pid) {
            if (!exitCodeMatters) return 0;
            return WIFEXITED(status) ? codeForOpenerExit(WEXITSTATUS(status)) : kOtherFailure;
        }
        if (done < 0) return 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    std::thread([pid] { waitpid(pid, nullptr, 0); }).detach();
    return 0;
}

std::string nativeString(const fs::path& p) {
    return p.string();
}

// Checks a local document before handing it over, so the common failures get exact messages.
int checkLocal(const QString& document) {
    const fs::path native = toDisk(document);
    std::error_code ec;
    if (!fs::exists(native, ec))
        return fs::is_directory(native.parent_path(), ec) || !native.has_parent_path()
                   ? kFileNotFound
                   : kPathNotFound;
    if (access(native.c_str(), R_OK) != 0) return kAccessDenied;
    return 0;
}

} // namespace

ShellError::ShellError(int code, const QString& description)
    : std::runtime_error(description.toStdString()), code(code), description(description),
      source(applicationTitle() + QStringLiteral(".GShell")) {}

QString shellErrorMessage(int code) {
    switch (code) {
    case 0:
    case 8:
        return QStringLiteral("Out of memory");
    case 2:
        return QStringLiteral("File not found");
    case 3:
        return QStringLiteral("Path not found");
    case 5:
        return QStringLiteral("Path/file access error");
    case 11:
        return QStringLiteral("The executable file is invalid or corrupt");
    case 26:
        return QStringLiteral("A sharing violation occurred.");
    case 27:
        return QStringLiteral("This file type does not have a valid file association.");
    case 28:
        return QStringLiteral(
            "The file could not be opened due to time out. Please try again in a moment.");
    case 29:
        return QStringLiteral("The file could not be opened because the DDE transaction failed. "
                              "Please try again in a moment.");
    case 30:
        return QStringLiteral("The file could not be opened because the target application is "
                              "busy. Please try again in a moment.");
    case 31:
        return QStringLiteral("No application is associated with this file type.");
    case 32:
        return QStringLiteral("The specified dynamic-link library was not found.");
    default:
        return QStringLiteral(
            "An error occurred occurred whilst trying to open or print the selected file.");
    }
}

void ShellOpen(const QString& document, const QString& parameters, const QString& workingFolder) {
    if (document.trimmed().isEmpty()) throw ShellError(kFileNotFound, shellErrorMessage(2));
    const bool url = isUrl(document);
    if (!url) {
        if (const int code = checkLocal(document)) throw ShellError(code, shellErrorMessage(code));
    }
    const std::string folder =
        workingFolder.isEmpty() ? std::string() : nativeString(toDisk(workingFolder));
    const std::string target = url ? document.toStdString() : nativeString(toDisk(document));
    int code = 0;
    if (!url && document.toUpper().contains(QStringLiteral(".EXE"))) {
        std::vector<std::string> argv{target};
        for (const QString& p : parameters.split(u' ', Qt::SkipEmptyParts))
            argv.push_back(p.toStdString());
        code = spawnAndWait(argv, folder, false);
    } else {
        code = spawnAndWait({"xdg-open", target}, folder, true);
    }
    if (code != 0) throw ShellError(code, shellErrorMessage(code));
}

} // namespace mFile
