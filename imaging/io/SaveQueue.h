// Saves that run beside the script: the decode, processing and encode of one photo overlap the
// script's work on the next photos. Files take their places in the order the saves were asked
// for, and once a save fails the later ones are dropped, so a batch leaves exactly the files a
// one-at-a-time run would have left.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "imaging/ImagingError.h"

namespace imaging {

// A save that failed in the background, with the ticket its submission returned.
class DeferredSaveFailure : public ImagingError {
public:
    DeferredSaveFailure(uint64_t ticket, const ImagingError& error)
        : ImagingError(error), m_ticket(ticket) {}
    uint64_t ticket() const { return m_ticket; }

private:
    uint64_t m_ticket;
};

class SaveQueue {
public:
    struct Job {
        std::function<void()> write;  // the slow part, on a worker thread; throws ImagingError
        std::function<void()> commit; // puts the written file in place
        std::function<void()> drop;   // removes the job's files when it is not committed
        std::filesystem::path file;   // the file the job writes
    };

    SaveQueue() = default;
    ~SaveQueue();
    SaveQueue(const SaveQueue&) = delete;
    SaveQueue& operator=(const SaveQueue&) = delete;

    // How many saves may be unfinished at once; 1 keeps every save on the caller's thread.
    void setLimit(int inFlight);
    int limit() const { return m_limit; }

    // Starts the job on a worker once fewer than `limit` jobs are unfinished; returns its ticket.
    uint64_t submit(Job job);
    // The first failure of the background saves not yet taken, without waiting.
    std::optional<DeferredSaveFailure> takeFailure();
    // Waits until every submitted job is committed or dropped.
    void drain();
    // Drains, then forgets any failure: the start of a new run.
    void reset();
    // Waits for the unfinished jobs that write this file (a load of a file being saved).
    void waitFor(const std::filesystem::path& file);
    bool busy() const;

private:
    struct Entry;
    void run(Entry& entry);
    void reap(); // joins finished workers; the lock is not held

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::shared_ptr<Entry>> m_entries; // unfinished jobs, oldest first
    std::deque<std::thread> m_finished;           // workers to join
    std::optional<DeferredSaveFailure> m_failure; // the first failure, until taken
    bool m_failed = false;                        // a failure happened: later jobs are dropped
    uint64_t m_next = 1;
    int m_limit = 1;
};

} // namespace imaging
