// Test helper: runs the real executable, with pipes or under a pseudo-terminal, and a deadline.
#pragma once

#include <csignal>
#include <string>
#include <utility>
#include <vector>

struct ProcessResult {
    bool exited = false; // ended by exit(); `status` is then its exit status
    int status = -1;
    int signal = 0;           // the signal that ended it, when it did not exit
    bool timedOut = false;    // killed at the deadline
    double seconds = 0;       // from start to end
    double signalSentAt = -1; // seconds from the start, when a signal was sent
    std::string out;          // stdout (under a terminal: everything the terminal showed)
    std::string err;          // stderr (empty under a terminal)
};

struct ProcessOptions {
    // Removed from the environment: by default the display, so no run can reach a window.
    std::vector<std::string> unsetEnv = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    std::vector<std::pair<std::string, std::string>> setEnv;
    double timeoutSeconds = 30;
    // When >= 0, `signalNumber` is sent this many seconds after the start, or after the output
    // first shows `signalAfterText` when that is set.
    double signalAfterSeconds = -1;
    std::string signalAfterText;
    int signalNumber = SIGINT;
};

// Runs program with args; stdin is /dev/null, stdout and stderr are captured apart. The child
// starts with default signal dispositions and no blocked signals, whatever the test runner has.
ProcessResult runProgram(const std::string& program, const std::vector<std::string>& args,
                         const ProcessOptions& options = {});

// Whether this machine offers pseudo-terminals (some containers do not).
bool terminalsAvailable();

// Runs it with stdin, stdout and stderr on one pseudo-terminal. Each time the output so far
// ends in a prompt ("? " after the last line break), the next of `answers` is typed with Enter.
ProcessResult runInTerminal(const std::string& program, const std::vector<std::string>& args,
                            std::vector<std::string> answers, const ProcessOptions& options = {});
