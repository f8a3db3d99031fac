// Spawning the executable for end-to-end tests: pipes or a pseudo-terminal, deadline, signals.
#include "Process.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<std::string> environmentFor(const ProcessOptions& options) {
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e) {
        const std::string entry = *e;
        const std::string name = entry.substr(0, entry.find('='));
        bool drop = false;
        for (const std::string& unset : options.unsetEnv)
            drop = drop || name == unset;
        for (const auto& [key, value] : options.setEnv)
            drop = drop || name == key;
        if (!drop) env.push_back(entry);
    }
    for (const auto& [key, value] : options.setEnv)
        env.push_back(key + "=" + value);
    return env;
}

std::vector<char*> pointers(std::vector<std::string>& strings) {
    std::vector<char*> result;
    for (std::string& s : strings)
        result.push_back(s.data());
    result.push_back(nullptr);
    return result;
}

// Waits for the child while the reader drains its output; sends the signal and kills at the
// deadline as the options say. `drain(timeoutMs)` returns false once all outputs are closed.
template <class Drain>
void superviseChild(pid_t pid, const ProcessOptions& options, ProcessResult& result,
                    Drain&& drain) {
    const Clock::time_point start = Clock::now();
    std::optional<Clock::time_point> signalFrom;
    if (options.signalAfterText.empty()) signalFrom = start;
    bool signalled = false;
    bool open = true;
    int waitStatus = 0;
    for (;;) {
        const double elapsed = secondsSince(start);
        if (!signalFrom && (result.out.find(options.signalAfterText) != std::string::npos ||
                            result.err.find(options.signalAfterText) != std::string::npos))
            signalFrom = Clock::now();
        if (!signalled && options.signalAfterSeconds >= 0 && signalFrom &&
            secondsSince(*signalFrom) >= options.signalAfterSeconds) {
            ::kill(pid, options.signalNumber);
            signalled = true;
            result.signalSentAt = elapsed;
        }
        if (!result.timedOut && elapsed >= options.timeoutSeconds) {
            ::kill(pid, SIGKILL);
            result.timedOut = true;
        }
        if (open) open = drain(20);
        const pid_t done = ::waitpid(pid, &waitStatus, open ? WNOHANG : 0);
        if (done == pid) break;
        if (!open && done == 0) ::usleep(10'000);
    }
    while (open)
        open = drain(0);
    result.seconds = secondsSince(start);
    result.exited = WIFEXITED(waitStatus);
    result.status = result.exited ? WEXITSTATUS(waitStatus) : -1;
    result.signal = WIFSIGNALED(waitStatus) ? WTERMSIG(waitStatus) : 0;
}

// Reads what is there on the descriptors, waiting up to timeoutMs; closes those at their end.
bool readSome(std::vector<std::pair<int, std::string*>>& sources, int timeoutMs) {
    std::vector<pollfd> fds;
    for (const auto& [fd, sink] : sources)
        fds.push_back({fd, POLLIN, 0});
    if (fds.empty()) return false;
    if (::poll(fds.data(), fds.size(), timeoutMs) <= 0) return true;
    for (size_t i = fds.size(); i-- > 0;) {
        if (!fds[i].revents) continue;
        char buffer[4096];
        const ssize_t n = ::read(fds[i].fd, buffer, sizeof buffer);
        if (n > 0) {
            sources[i].second->append(buffer, size_t(n));
        } else if (n == 0 || errno != EINTR) {
            ::close(fds[i].fd); // end of output (a terminal reports EIO once the child is gone)
            sources.erase(sources.begin() + long(i));
        }
    }
    return !sources.empty();
}

void resetSignals() {
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int s : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        ::signal(s, SIG_DFL);
}

} // namespace

ProcessResult runProgram(const std::string& program, const std::vector<std::string>& args,
                         const ProcessOptions& options) {
    ProcessResult result;
    int outPipe[2], errPipe[2];
    if (::pipe2(outPipe, O_CLOEXEC) != 0 || ::pipe2(errPipe, O_CLOEXEC) != 0) return result;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, outPipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errPipe[1], STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    std::vector<std::string> argv{program};
    argv.insert(argv.end(), args.begin(), args.end());
    std::vector<std::string> env = environmentFor(options);
    pid_t pid = 0;
    const int spawned = ::posix_spawn(&pid, program.c_str(), &actions, &attributes,
                                      pointers(argv).data(), pointers(env).data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    ::close(outPipe[1]);
    ::close(errPipe[1]);
    if (spawned != 0) {
        ::close(outPipe[0]);
        ::close(errPipe[0]);
        result.err = std::string("cannot start ") + program + ": " + std::strerror(spawned);
        return result;
    }
    std::vector<std::pair<int, std::string*>> sources{{outPipe[0], &result.out},
                                                      {errPipe[0], &result.err}};
    superviseChild(pid, options, result, [&](int ms) { return readSome(sources, ms); });
    return result;
}

namespace {

bool endsInPrompt(const std::string& text, size_t from) {
    const size_t lineStart = text.find_last_of('\n');
    const size_t start = lineStart == std::string::npos ? 0 : lineStart + 1;
    return start >= from && text.size() >= 2 && text.compare(text.size() - 2, 2, "? ") == 0;
}

} // namespace

bool terminalsAvailable() {
    const int fd = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}

ProcessResult runInTerminal(const std::string& program, const std::vector<std::string>& args,
                            std::vector<std::string> answers, const ProcessOptions& options) {
    ProcessResult result;
    std::vector<std::string> argv{program};
    argv.insert(argv.end(), args.begin(), args.end());
    std::vector<std::string> env = environmentFor(options);
    std::vector<char*> argvPointers = pointers(argv);
    std::vector<char*> envPointers = pointers(env);
    int master = -1;
    const pid_t pid = ::forkpty(&master, nullptr, nullptr, nullptr);
    if (pid < 0) return result;
    if (pid == 0) {
        resetSignals();
        ::execve(program.c_str(), argvPointers.data(), envPointers.data());
        ::_exit(127);
    }
    std::vector<std::pair<int, std::string*>> sources{{master, &result.out}};
    size_t answeredUpTo = 0; // a prompt is answered once: only text after this counts
    superviseChild(pid, options, result, [&](int ms) {
        const bool open = readSome(sources, ms);
        if (open && !answers.empty() && endsInPrompt(result.out, answeredUpTo)) {
            const std::string line = answers.front() + "\n";
            answers.erase(answers.begin());
            ssize_t written = ::write(master, line.data(), line.size());
            (void)written;
            answeredUpTo = result.out.size();
        }
        return open;
    });
    return result;
}
