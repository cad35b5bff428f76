#include "TunerHandle.h"

TunerHandle m_pTuner;

bool TunerHandle::deliver(const tag_RadioCmdFromMCU& msg)
{
    std::lock_guard<std::mutex> guard(m_lock);
    void* obj = m_obj.load(std::memory_order_relaxed);
    if (!obj)
        return false;
    m_fn(obj, msg);
    return true;
}

void TunerHandle::waitForDelivery()
{
    std::lock_guard<std::mutex> guard(m_lock);
}

void TunerHandle::set(void* obj, DeliverFn fn)
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_fn = fn;
    m_obj.store(obj, std::memory_order_release);
    std::lock_guard<std::mutex> queueGuard(m_queueLock);
    m_queueOwner = obj;
    m_queued = 0;
    m_room.notify_all();
}

bool TunerHandle::waitForRoom(const std::atomic<int>& running)
{
    std::unique_lock<std::mutex> guard(m_queueLock);
    m_room.wait(guard, [&] { return !running || !m_queueOwner || m_queued < MaxQueued; });
    return running != 0;
}

void TunerHandle::wakeWaiting()
{
    std::lock_guard<std::mutex> guard(m_queueLock);
    m_room.notify_all();
}

void TunerHandle::recordQueued(const void* tuner)
{
    std::lock_guard<std::mutex> guard(m_queueLock);
    if (tuner == m_queueOwner)
        ++m_queued;
}

void TunerHandle::recordHandled(const void* tuner)
{
    std::lock_guard<std::mutex> guard(m_queueLock);
    if (tuner != m_queueOwner || m_queued == 0)
        return;
    // The reader resumes once half the queue is free and then reads a
    // batch, instead of waking for every record.
    if (--m_queued == MaxQueued / 2)
        m_room.notify_all();
}

int TunerHandle::queuedCount() const
{
    std::lock_guard<std::mutex> guard(m_queueLock);
    return m_queued;
}
