#ifndef CONDITIONWAIT_H
#define CONDITIONWAIT_H

#include <functional>

// Waits that keep the event loop running, so the tuner's answers, timers
// and repaints go on while the caller waits.
class ConditionWait
{
public:
    // Runs the event loop until condition() holds or timeoutMs has passed,
    // checking every pollMs. Returns the last result of condition().
    static bool until(const std::function<bool()>& condition, int timeoutMs, int pollMs = 20);
    // Runs the event loop for ms milliseconds (holding a touch down).
    static void hold(int ms);
};

#endif
