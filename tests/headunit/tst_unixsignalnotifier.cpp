#include "UnixSignalNotifier.h"

#include <QSignalSpy>
#include <QtTest>

#include <csignal>

class TestUnixSignalNotifier : public QObject
{
    Q_OBJECT

private slots:
    void signalBecomesQtSignal();
    void burstOfSignalsIsNotLost();
    void secondNotifierForSameSignalIsInvalid();
    void signalIsFreeAgainAfterDestruction();
    void invalidSignalNumber_data();
    void invalidSignalNumber();
};

void TestUnixSignalNotifier::signalBecomesQtSignal()
{
    UnixSignalNotifier notifier(SIGUSR2);
    QVERIFY(notifier.isValid());
    QSignalSpy spy(&notifier, &UnixSignalNotifier::activated);
    QCOMPARE(::raise(SIGUSR2), 0);
    QTRY_COMPARE(spy.count(), 1);
}

void TestUnixSignalNotifier::burstOfSignalsIsNotLost()
{
    UnixSignalNotifier notifier(SIGUSR2);
    QSignalSpy spy(&notifier, &UnixSignalNotifier::activated);
    for (int i = 0; i < 50; ++i)
        ::raise(SIGUSR2);
    // Coalesced into batches, but at least one reaches the event loop, and
    // a later signal is seen again.
    QTRY_VERIFY(spy.count() >= 1);
    const int seen = spy.count();
    ::raise(SIGUSR2);
    QTRY_COMPARE(spy.count(), seen + 1);
}

void TestUnixSignalNotifier::secondNotifierForSameSignalIsInvalid()
{
    UnixSignalNotifier first(SIGUSR2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("already has a notifier")));
    UnixSignalNotifier second(SIGUSR2);
    QVERIFY(first.isValid());
    QVERIFY(!second.isValid());
    QSignalSpy spy(&first, &UnixSignalNotifier::activated);
    ::raise(SIGUSR2);
    QTRY_COMPARE(spy.count(), 1);
}

void TestUnixSignalNotifier::signalIsFreeAgainAfterDestruction()
{
    {
        UnixSignalNotifier first(SIGUSR2);
        QVERIFY(first.isValid());
    }
    UnixSignalNotifier again(SIGUSR2);
    QVERIFY(again.isValid());
}

void TestUnixSignalNotifier::invalidSignalNumber_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("negative") << -3;
    QTest::newRow("too large") << NSIG;
}

void TestUnixSignalNotifier::invalidSignalNumber()
{
    QFETCH(int, number);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no such signal")));
    UnixSignalNotifier notifier(number);
    QVERIFY(!notifier.isValid());
}

QTEST_MAIN(TestUnixSignalNotifier)
#include "tst_unixsignalnotifier.moc"
