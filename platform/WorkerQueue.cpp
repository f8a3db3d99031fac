// The worker thread and its superseding queue.
#include "platform/WorkerQueue.h"

WorkerQueue::WorkerQueue() : m_thread([this] { loop(); }) {}

WorkerQueue::~WorkerQueue() {
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
        m_pending.clear();
        if (m_runningCancel) m_runningCancel->store(true);
    }
    m_wake.notify_all();
    m_thread.join();
}

void WorkerQueue::supersede(int channel) {
    if (channel == kKeepAll) return;
    std::erase_if(m_pending, [channel](const Entry& e) { return e.channel == channel; });
    if (m_runningCancel && m_runningChannel == channel) m_runningCancel->store(true);
}

void WorkerQueue::submit(int channel, Job job) {
    {
        std::lock_guard lock(m_mutex);
        supersede(channel);
        m_pending.push_back({channel, std::move(job), std::make_shared<std::atomic<bool>>(false)});
    }
    m_wake.notify_all();
}

void WorkerQueue::cancel(int channel) {
    std::lock_guard lock(m_mutex);
    supersede(channel);
}

void WorkerQueue::loop() {
    for (;;) {
        Entry entry;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stop || !m_pending.empty(); });
            if (m_stop) return;
            entry = std::move(m_pending.front());
            m_pending.pop_front();
            m_runningChannel = entry.channel;
            m_runningCancel = entry.cancel;
        }
        entry.job(*entry.cancel);
        std::lock_guard lock(m_mutex);
        m_runningCancel.reset();
        m_runningChannel = kKeepAll;
    }
}
