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

void TunerHandle::set(void* obj, DeliverFn fn)
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_fn = fn;
    m_obj.store(obj, std::memory_order_release);
}
