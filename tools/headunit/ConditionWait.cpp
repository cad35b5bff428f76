#include "ConditionWait.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

bool ConditionWait::until(const std::function<bool()>& condition, int timeoutMs, int pollMs)
{
    if (condition())
        return true;
    QEventLoop loop;
    QElapsedTimer clock;
    clock.start();
    bool met = false;
    QTimer poll;
    poll.setInterval(qMax(1, pollMs));
    QObject::connect(&poll, &QTimer::timeout, &loop, [&]() {
        met = condition();
        if (met || clock.elapsed() >= timeoutMs)
            loop.quit();
    });
    poll.start();
    loop.exec();
    return met;
}

void ConditionWait::hold(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(qMax(0, ms), &loop, &QEventLoop::quit);
    loop.exec();
}
