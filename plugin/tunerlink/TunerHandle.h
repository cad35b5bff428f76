#ifndef TUNERHANDLE_H
#define TUNERHANDLE_H

#include "RadioCmdFromMCU.h"

#include <atomic>
#include <cstddef>
#include <mutex>

// The live controller as the link's reader thread sees it.
//
// The GUI thread stores the controller (`m_pTuner = this`) and clears it
// (`m_pTuner = nullptr`); the reader thread hands records over with
// deliver(). Clearing waits until a delivery in progress has returned, so a
// controller is never destroyed while the reader is inside its
// RecvedTunerMsg. Any class with a RecvedTunerMsg(tag_RadioCmdFromMCU)
// member can be stored, which lets tests stand in for the controller.
class TunerHandle
{
public:
    TunerHandle() = default;
    TunerHandle(const TunerHandle&) = delete;
    TunerHandle& operator=(const TunerHandle&) = delete;

    template <class T>
    TunerHandle& operator=(T* tuner)
    {
        set(tuner, tuner ? &deliverTo<T> : nullptr);
        return *this;
    }
    TunerHandle& operator=(std::nullptr_t)
    {
        set(nullptr, nullptr);
        return *this;
    }

    void* get() const { return m_obj.load(std::memory_order_acquire); }
    explicit operator bool() const { return get() != nullptr; }
    bool operator==(const void* p) const { return get() == p; }
    bool operator!=(const void* p) const { return get() != p; }

    // Reader thread: passes the record to the stored controller, if any.
    // Returns false when no controller was set.
    bool deliver(const tag_RadioCmdFromMCU& msg);

private:
    using DeliverFn = void (*)(void*, const tag_RadioCmdFromMCU&);

    template <class T>
    static void deliverTo(void* obj, const tag_RadioCmdFromMCU& msg)
    {
        static_cast<T*>(obj)->RecvedTunerMsg(msg);
    }
    void set(void* obj, DeliverFn fn);

    std::mutex m_lock;
    std::atomic<void*> m_obj{nullptr};
    DeliverFn m_fn = nullptr;
};

// The live controller, null when none exists.
extern TunerHandle m_pTuner;

#endif
