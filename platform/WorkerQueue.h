// One worker thread for the workbench's slow work (previews, thumbnails), so that the user
// interface never waits for it.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

// Jobs run one at a time, in the order given. A job submitted on a channel supersedes that
// channel's older work: a pending one is dropped, a running one has its cancel flag raised (it
// stops where it next looks, e.g. at the script engine's next statement). Jobs on channel
// kKeepAll are never superseded.
class WorkerQueue {
public:
    using Job = std::function<void(const std::atomic<bool>& cancel)>;
    static constexpr int kKeepAll = -1;

    WorkerQueue();
    // Cancels the running job, drops the pending ones and waits for the thread.
    ~WorkerQueue();
    WorkerQueue(const WorkerQueue&) = delete;
    WorkerQueue& operator=(const WorkerQueue&) = delete;

    void submit(int channel, Job job);
    // Drops the pending jobs of a channel and cancels its running one.
    void cancel(int channel);

private:
    struct Entry {
        int channel;
        Job job;
        std::shared_ptr<std::atomic<bool>> cancel;
    };
    void loop();
    void supersede(int channel); // with m_mutex held

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<Entry> m_pending;
    int m_runningChannel = kKeepAll;
    std::shared_ptr<std::atomic<bool>> m_runningCancel;
    bool m_stop = false;
    std::thread m_thread;
};
