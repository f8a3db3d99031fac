// The interrupt handler and its list of temporary files, kept async-signal-safe.
#include "platform/Interrupt.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <pthread.h>
#include <string>
#include <unistd.h>

namespace Interrupt {

namespace {

// A slot goes Free -> Registering -> Ready -> Free; the handler claims a Ready one as Removing.
// While a thread registers it blocks the signals, so the handler runs on another thread and can
// wait for the few instructions that remain.
enum SlotState : int { Free, Registering, Ready, Removing };

struct Slot {
    std::atomic<int> state{Free};
    char path[PATH_MAX];
};

constexpr int kSlots = 32; // saves run one at a time; a few spare for nested tools
Slot g_slots[kSlots];
std::atomic<bool> g_statusLineOpen{false};

const int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

void writeText(const char* text) {
    ssize_t ignored = ::write(STDERR_FILENO, text, std::strlen(text));
    (void)ignored;
}

bool deferredWhileHeld(int signalNumber); // see HoldOff

extern "C" void onSignal(int signalNumber) {
    if (deferredWhileHeld(signalNumber)) return;
    if (g_statusLineOpen.load()) writeText("\n");
    for (Slot& slot : g_slots) {
        // Bounded: a registering thread is between two stores, or it was itself torn down.
        for (long spin = 0;
             slot.state.load(std::memory_order_acquire) == Registering && spin < 100'000'000;
             ++spin) {
        }
        int expected = Ready;
        if (slot.state.compare_exchange_strong(expected, Removing, std::memory_order_acquire))
            ::unlink(slot.path);
    }
    writeText(signalNumber == SIGINT ? "vantorel: interrupted; unfinished saves removed\n"
                                     : "vantorel: terminated; unfinished saves removed\n");
    ::_exit(exitStatusFor(signalNumber));
}

// Blocks the handled signals on this thread for the lifetime of the object.
class SignalBlock {
public:
    SignalBlock() {
        sigset_t set;
        sigemptyset(&set);
        for (int s : kSignals)
            sigaddset(&set, s);
        pthread_sigmask(SIG_BLOCK, &set, &m_previous);
    }
    ~SignalBlock() {
        const int saved = errno;
        pthread_sigmask(SIG_SETMASK, &m_previous, nullptr);
        errno = saved;
    }

private:
    sigset_t m_previous;
};

Slot* claimSlot() {
    for (Slot& slot : g_slots) {
        int expected = Free;
        if (slot.state.compare_exchange_strong(expected, Registering)) return &slot;
    }
    return nullptr;
}

// mkstemp on a writable buffer; the descriptor is not needed, only the name.
bool makeFile(char* pattern) {
    const int fd = ::mkstemp(pattern);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}

} // namespace

void installHandlers() {
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    for (int s : kSignals)
        sigaddset(&action.sa_mask, s);
    for (int s : kSignals) {
        struct sigaction previous {};
        sigaction(s, nullptr, &previous);
        // A signal ignored by whoever started us (a background job of a script) stays ignored.
        if (previous.sa_handler == SIG_IGN) continue;
        sigaction(s, &action, nullptr);
    }
    // A reader of our messages that goes away (`vantorel ... | head`) must not end a batch in the
    // middle of a save: writes then fail with EPIPE, which the messages ignore.
    ::signal(SIGPIPE, SIG_IGN);
}

std::filesystem::path createTempFile(const std::filesystem::path& folder, std::string_view prefix) {
    std::string pattern = (folder / (std::string(prefix) + "XXXXXX")).string();
    SignalBlock block;
    Slot* slot = pattern.size() < PATH_MAX ? claimSlot() : nullptr;
    if (!slot) {
        // No room to register (or a path too long for a slot): still a usable file.
        return makeFile(pattern.data()) ? std::filesystem::path(pattern) : std::filesystem::path();
    }
    std::memcpy(slot->path, pattern.c_str(), pattern.size() + 1);
    if (!makeFile(slot->path)) {
        const int saved = errno;
        slot->state.store(Free);
        errno = saved;
        return {};
    }
    std::filesystem::path result(slot->path);
    slot->state.store(Ready, std::memory_order_release);
    return result;
}

void releaseTempFile(const std::filesystem::path& path) {
    const std::string text = path.string();
    for (Slot& slot : g_slots) {
        if (slot.state.load(std::memory_order_acquire) != Ready || text != slot.path) continue;
        int expected = Ready;
        slot.state.compare_exchange_strong(expected, Free);
        return;
    }
}

int registeredTempFiles() {
    int count = 0;
    for (const Slot& slot : g_slots)
        if (slot.state.load() == Ready) ++count;
    return count;
}

void setStatusLineOpen(bool open) {
    g_statusLineOpen.store(open);
}

} // namespace Interrupt

namespace Interrupt {

namespace {

std::atomic<int> g_holds{0};
std::atomic<int> g_pending{0};

// The handler records the signal before it looks at the holds, and a hold ends by dropping its
// count before it looks for a recorded signal: one of the two always sees the other, so a signal
// is never lost between them (at worst it is acted on twice, and the first _exit wins).
bool deferredWhileHeld(int signalNumber) {
    g_pending.store(signalNumber);
    return g_holds.load() != 0;
}

} // namespace

HoldOff::HoldOff() {
    sigset_t set;
    sigemptyset(&set);
    for (int s : kSignals)
        sigaddset(&set, s);
    pthread_sigmask(SIG_BLOCK, &set, &m_previous);
    g_holds.fetch_add(1);
}

HoldOff::~HoldOff() {
    const int saved = errno;
    const bool last = g_holds.fetch_sub(1) == 1;
    pthread_sigmask(SIG_SETMASK, &m_previous, nullptr);
    const int pending = last ? g_pending.exchange(0) : 0;
    if (pending != 0) ::raise(pending);
    errno = saved;
}

} // namespace Interrupt
