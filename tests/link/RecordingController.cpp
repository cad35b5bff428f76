#include "RecordingController.h"

void RecordingController::RecvedTunerMsg(tag_RadioCmdFromMCU msg)
{
    if (m_detached)
        ++m_late;
    std::unique_lock<std::mutex> guard(m_lock);
    m_records.append(msg);
    m_holding = m_hold;
    m_released.wait(guard, [this] { return !m_hold; });
    m_holding = false;
}

int RecordingController::count() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_records.size();
}

QList<tag_RadioCmdFromMCU> RecordingController::records() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_records;
}

void RecordingController::detach()
{
    m_detached = true;
}

int RecordingController::lateDeliveries() const
{
    return m_late;
}

void RecordingController::setHold(bool hold)
{
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_hold = hold;
    }
    m_released.notify_all();
}

bool RecordingController::isHolding() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_holding;
}
