#include "CountingController.h"

#include <chrono>

void CountingController::RecvedTunerMsg(tag_RadioCmdFromMCU)
{
    if (++m_count == m_target) {
        std::lock_guard<std::mutex> guard(m_lock);
        m_reached.notify_all();
    }
}

void CountingController::expect(uint64_t n)
{
    m_count = 0;
    m_target = n;
}

bool CountingController::waitForTarget(int timeoutMs)
{
    std::unique_lock<std::mutex> guard(m_lock);
    return m_reached.wait_for(guard, std::chrono::milliseconds(timeoutMs), [this] { return m_count >= m_target; });
}
