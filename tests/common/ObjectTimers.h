#pragma once
// Drives an object's own timers (QObject::startTimer) without waiting for
// them: the event dispatcher lists each object's timers with their
// intervals, so a test finds the one it means by interval and delivers its
// QTimerEvent. The product keeps its real intervals; a wrong interval is a
// timer the test cannot find.
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>

namespace ObjectTimers {

inline int timerId(QObject* object, int intervalMs)
{
    auto* dispatcher = QAbstractEventDispatcher::instance(object->thread());
    if (!dispatcher)
        return -1;
    for (const auto& info : dispatcher->registeredTimers(object)) {
        if (info.interval == intervalMs)
            return info.timerId;
    }
    return -1;
}

inline bool isRunning(QObject* object, int intervalMs)
{
    return timerId(object, intervalMs) >= 0;
}

// Fires the object's timer of that interval once; false when it has none.
inline bool fire(QObject* object, int intervalMs)
{
    const int id = timerId(object, intervalMs);
    if (id < 0)
        return false;
    QTimerEvent event(id);
    QCoreApplication::sendEvent(object, &event);
    return true;
}

} // namespace ObjectTimers
