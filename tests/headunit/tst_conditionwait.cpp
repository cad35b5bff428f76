#include "ConditionWait.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

class TestConditionWait : public QObject
{
    Q_OBJECT

private slots:
    void trueAtOnceDoesNotWait();
    void returnsWhenConditionTurnsTrue();
    void givesUpAfterTimeout_data();
    void givesUpAfterTimeout();
    void holdKeepsTheEventLoopRunning();
};

void TestConditionWait::trueAtOnceDoesNotWait()
{
    int calls = 0;
    QVERIFY(ConditionWait::until([&]() { return ++calls > 0; }, 10000));
    QCOMPARE(calls, 1);
}

void TestConditionWait::returnsWhenConditionTurnsTrue()
{
    bool flag = false;
    // Only the event loop can set the flag: the wait must run it.
    QTimer::singleShot(50, [&]() { flag = true; });
    QElapsedTimer clock;
    clock.start();
    QVERIFY(ConditionWait::until([&]() { return flag; }, 10000));
    QVERIFY(clock.elapsed() < 10000);
}

void TestConditionWait::givesUpAfterTimeout_data()
{
    QTest::addColumn<int>("timeout");
    QTest::addColumn<int>("poll");
    QTest::newRow("zero poll is clamped") << 100 << 0;
    QTest::newRow("negative timeout") << -5 << 20;
}

void TestConditionWait::givesUpAfterTimeout()
{
    QFETCH(int, timeout);
    QFETCH(int, poll);
    int calls = 0;
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!ConditionWait::until([&]() { ++calls; return false; }, timeout, poll));
    QVERIFY(clock.elapsed() >= qMax(0, timeout));
    // Polled, not spun: far fewer checks than a busy loop would make.
    QVERIFY2(calls < 1000, qPrintable(QString::number(calls)));
}

void TestConditionWait::holdKeepsTheEventLoopRunning()
{
    bool fired = false;
    QTimer::singleShot(10, [&]() { fired = true; });
    QElapsedTimer clock;
    clock.start();
    ConditionWait::hold(100);
    QVERIFY(clock.elapsed() >= 100);
    QVERIFY(fired);
}

QTEST_MAIN(TestConditionWait)
#include "tst_conditionwait.moc"
