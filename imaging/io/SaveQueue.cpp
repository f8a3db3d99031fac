// The background saves: one worker thread per unfinished save, commits in submission order.
#include "imaging/io/SaveQueue.h"

#include <algorithm>

namespace imaging {

namespace fs = std::filesystem;

struct SaveQueue::Entry {
    uint64_t ticket = 0;
    Job job;
    std::thread worker;
    bool done = false; // committed or dropped
};

SaveQueue::~SaveQueue() {
    drain();
}

void SaveQueue::setLimit(int inFlight) {
    m_limit = std::max(1, inFlight);
}

uint64_t SaveQueue::submit(Job job) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return int(m_entries.size()) < m_limit; });
    auto entry = std::make_shared<Entry>();
    entry->ticket = m_next++;
    entry->job = std::move(job);
    m_entries.push_back(entry);
    entry->worker = std::thread([this, entry] { run(*entry); });
    const uint64_t ticket = entry->ticket;
    lock.unlock();
    reap();
    return ticket;
}

void SaveQueue::run(Entry& entry) {
    std::optional<ImagingError> error;
    bool written = false;
    {
        std::unique_lock lock(m_mutex);
        const bool skip = m_failed; // an earlier save failed: this one would never have run
        lock.unlock();
        if (!skip) {
            try {
                entry.job.write();
                written = true;
            } catch (const ImagingError& e) {
                error = e;
            } catch (const std::bad_alloc&) {
                error = ImagingError(ErrorCode::ProcessingFailed, "out of memory while saving");
            } catch (const std::exception& e) {
                error = ImagingError(ErrorCode::ProcessingFailed, e.what());
            }
        }
    }
    std::unique_lock lock(m_mutex);
    // Files take their places in order: wait until every earlier job is finished.
    m_changed.wait(lock, [&] { return m_entries.front().get() == &entry; });
    if (error && !m_failed) {
        m_failed = true;
        m_failure.emplace(entry.ticket, *error);
    }
    const bool keep = written && !m_failed;
    lock.unlock();
    try {
        // A job that was not written still made its temporary file when it was submitted.
        if (keep)
            entry.job.commit();
        else
            entry.job.drop();
    } catch (const ImagingError& e) {
        lock.lock();
        if (!m_failed) m_failure.emplace(entry.ticket, e);
        m_failed = true;
        lock.unlock();
    }
    lock.lock();
    entry.done = true;
    m_finished.push_back(std::move(entry.worker));
    m_entries.pop_front();
    m_changed.notify_all();
}

void SaveQueue::reap() {
    std::deque<std::thread> finished;
    {
        std::lock_guard lock(m_mutex);
        finished.swap(m_finished);
    }
    for (std::thread& worker : finished)
        if (worker.joinable()) worker.join();
}

std::optional<DeferredSaveFailure> SaveQueue::takeFailure() {
    std::lock_guard lock(m_mutex);
    std::optional<DeferredSaveFailure> failure;
    failure.swap(m_failure);
    return failure;
}

void SaveQueue::drain() {
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_entries.empty(); });
    }
    reap();
}

void SaveQueue::reset() {
    drain();
    std::lock_guard lock(m_mutex);
    m_failed = false;
    m_failure.reset();
}

void SaveQueue::waitFor(const fs::path& file) {
    std::error_code ec;
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] {
        return std::none_of(m_entries.begin(), m_entries.end(), [&](const auto& e) {
            return fs::equivalent(e->job.file, file, ec) || e->job.file == file;
        });
    });
}

bool SaveQueue::busy() const {
    std::lock_guard lock(m_mutex);
    return !m_entries.empty();
}

} // namespace imaging
