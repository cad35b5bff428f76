#ifndef TUNERHANDLE_H
#define TUNERHANDLE_H

#include "RadioCmdFromMCU.h"

#include <atomic>
#include <condition_variable>
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
//
// Backpressure: a controller that hands records on to another thread
// reports each one with recordQueued() when it queues it and with
// recordHandled() when it takes it up; the reader waits in waitForRoom()
// while MaxQueued of them are outstanding, so the socket fills instead of
// the GUI thread's queue. Storing a controller (or null) forgets the count:
// the records a destroyed controller left queued are never handled.
class TunerHandle
{
public:
    static const int MaxQueued = 64;

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

    // Reader thread: returns once the stored controller has fewer than
    // MaxQueued records outstanding, none is stored any more, or running
    // is 0 (then false). Never called with the delivery lock held, so
    // clearing the controller always releases a waiting reader.
    bool waitForRoom(const std::atomic<int>& running);
    // Makes waiting readers look at their running flag again.
    void wakeWaiting();

    // Returns once a delivery in progress has returned. A controller that
    // queues records through Qt calls it before reading one: Qt copies the
    // record inside the delivery and hands the copy over under a lock of
    // its own, which ThreadSanitizer cannot see; this one it can. Never
    // from inside RecvedTunerMsg.
    void waitForDelivery();

    // Called by the stored controller: from inside its RecvedTunerMsg, and
    // on its own thread. Calls from a controller not stored are ignored.
    void recordQueued(const void* tuner);
    void recordHandled(const void* tuner);
    // Records queued and not yet handled by the stored controller.
    int queuedCount() const;

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

    // Lock order: m_lock before m_queueLock.
    mutable std::mutex m_queueLock;
    std::condition_variable m_room;
    const void* m_queueOwner = nullptr;
    int m_queued = 0;
};

// The live controller, null when none exists.
extern TunerHandle m_pTuner;

#endif
