#ifndef RECORDINGCONTROLLER_H
#define RECORDINGCONTROLLER_H

#include "RadioCmdFromMCU.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

// Stands in for the controller behind m_pTuner: keeps every record the
// link's reader hands over.
class RecordingController
{
public:
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_records.push_back(msg);
        m_arrived.notify_all();
    }
    // The records so far, once there are `count` of them or the time is up.
    std::vector<tag_RadioCmdFromMCU> waitFor(size_t count, int timeoutMs = 5000) const
    {
        std::unique_lock<std::mutex> guard(m_lock);
        m_arrived.wait_for(guard, std::chrono::milliseconds(timeoutMs), [&] { return m_records.size() >= count; });
        return m_records;
    }

private:
    mutable std::mutex m_lock;
    mutable std::condition_variable m_arrived;
    std::vector<tag_RadioCmdFromMCU> m_records;
};

#endif
