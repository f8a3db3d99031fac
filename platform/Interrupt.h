// Ctrl+C and SIGTERM: end the process at once, removing the temporary files of unfinished saves.
#pragma once

#include <csignal>
#include <filesystem>
#include <string_view>

// Qt-free (target `interrupt`), so the imaging library can register its save files.
//
// An interrupted batch must leave no half-written file behind. Saves write a temporary file
// beside the target and rename it over the target when it is complete; the handler installed
// here removes every temporary file still registered and ends the process with 128 + the signal
// number (130 for Ctrl+C). Nothing else is unwound: a script looping for ever in Main stops
// just as promptly as one waiting in a save.
namespace Interrupt {

// Installs the SIGINT, SIGTERM and SIGHUP handlers and ignores SIGPIPE (the process's start-up
// does this once).
void installHandlers();

// Creates a new empty file "<folder>/<prefix>XXXXXX" (as mkstemp does, mode 0600) and registers
// it for removal on an interrupt. Returns its path, or an empty path with errno set when it
// cannot be created. Safe to call from any thread; the handler never sees a half-registered file.
std::filesystem::path createTempFile(const std::filesystem::path& folder, std::string_view prefix);

// Forgets a file from createTempFile once it was renamed into place or removed.
void releaseTempFile(const std::filesystem::path& path);

// How many temporary files are registered now (tests).
int registeredTempFiles();

// The console's transient status line is open: the handler ends it before its own message.
void setStatusLineOpen(bool open);

// The exit status of a process ended by this signal: 128 + its number.
constexpr int exitStatusFor(int signalNumber) {
    return 128 + signalNumber;
}

} // namespace Interrupt

namespace Interrupt {

// Holds SIGINT, SIGTERM and SIGHUP off for its lifetime, for work that must not stop half-way
// (rewriting a file in place): they are blocked on this thread, the handler running on any other
// thread defers, and a signal that came meanwhile takes effect when the last hold ends.
class HoldOff {
public:
    HoldOff();
    ~HoldOff();
    HoldOff(const HoldOff&) = delete;
    HoldOff& operator=(const HoldOff&) = delete;

private:
    sigset_t m_previous;
};

} // namespace Interrupt
