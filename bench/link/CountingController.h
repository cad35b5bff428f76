#ifndef COUNTINGCONTROLLER_H
#define COUNTINGCONTROLLER_H

#include "RadioCmdFromMCU.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

// Controller stand-in that only counts hand-overs, so that the benchmark
// measures the link and not the receiver.
class CountingController
{
public:
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg);

    // Clears the count and arms waitForTarget() for n records.
    void expect(uint64_t n);
    // True once the armed number of records has arrived.
    bool waitForTarget(int timeoutMs);
    uint64_t count() const { return m_count; }

private:
    std::atomic<uint64_t> m_count{0};
    std::atomic<uint64_t> m_target{0};
    std::mutex m_lock;
    std::condition_variable m_reached;
};

#endif
