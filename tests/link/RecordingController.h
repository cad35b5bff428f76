#ifndef RECORDINGCONTROLLER_H
#define RECORDINGCONTROLLER_H

#include "RadioCmdFromMCU.h"

#include <QList>

#include <atomic>
#include <condition_variable>
#include <mutex>

// Controller stand-in for the link's m_pTuner seam: keeps every record the
// reader thread hands over.
//
// After detach() (called once the test has cleared m_pTuner) any further
// hand-over is counted as a late delivery, which the link must never make.
// setHold(true) keeps the reader thread inside the hand-over until
// setHold(false), so a test can act while the reader is busy.
class RecordingController
{
public:
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg);

    int count() const;
    QList<tag_RadioCmdFromMCU> records() const;

    void detach();
    int lateDeliveries() const;

    void setHold(bool hold);
    // True while a hand-over is held.
    bool isHolding() const;

private:
    mutable std::mutex m_lock;
    std::condition_variable m_released;
    QList<tag_RadioCmdFromMCU> m_records;
    bool m_hold = false;
    bool m_holding = false;
    std::atomic<bool> m_detached{false};
    std::atomic<int> m_late{0};
};

#endif
