#include "RdsLog.h"
#include "RdsPlayer.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

// PS "LOOPING " sent once: a decoder needs it twice, so only a player
// that starts the log over produces it.
QVector<RdsGroup> onePsCycle()
{
    RdsLog log;
    log.parse("4321 0400 0000 4C4F\n4321 0401 0000 4F50\n4321 0402 0000 494E\n4321 0403 0000 4720\n");
    return log.groups();
}

} // namespace

class TestRdsPlayer : public QObject
{
    Q_OBJECT
private slots:
    void startsOverAtTheEnd();
    void stopHalts();
    void speedSetsPace_data();
    void speedSetsPace();
    void emptyLogDoesNotRun();
};

void TestRdsPlayer::startsOverAtTheEnd()
{
    RdsPlayer player;
    player.setSpeed(20);
    QSignalSpy ps(player.decoder(), &RdsDecoder::psChanged);
    player.start(onePsCycle());
    QVERIFY(player.isRunning());
    QVERIFY(ps.wait(5000));
    QCOMPARE(ps.first().first().toByteArray(), QByteArray("LOOPING "));
}

void TestRdsPlayer::stopHalts()
{
    RdsPlayer player;
    player.setSpeed(20);
    player.start(onePsCycle());
    QTRY_VERIFY(player.position() > 0);
    player.stop();
    QVERIFY(!player.isRunning());
    const int at = player.position();
    QSignalSpy ps(player.decoder(), &RdsDecoder::psChanged);
    QVERIFY(!ps.wait(100));
    QCOMPARE(player.position(), at);
}

void TestRdsPlayer::speedSetsPace_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<int>("groupsPerTick");
    QTest::newRow("real time") << 1.0 << 1;
    QTest::newRow("fast") << 50.0 << 1;
    QTest::newRow("faster than a millisecond") << 1000.0 << 12;
    QTest::newRow("nonsense speed") << -3.0 << 1;
}

// Beyond one group per millisecond the player decodes several per tick
// rather than running a zero-interval timer.
void TestRdsPlayer::speedSetsPace()
{
    QFETCH(double, speed);
    QFETCH(int, groupsPerTick);
    RdsPlayer player;
    player.setSpeed(speed);
    QVERIFY(player.speed() > 0);
    QVector<RdsGroup> groups;
    for (int i = 0; i < 100; ++i)
        groups += onePsCycle();
    player.start(groups);
    QTRY_VERIFY(player.position() > 0);
    QCOMPARE(player.position() % groupsPerTick, 0);
    if (groupsPerTick > 1)
        QVERIFY(player.position() >= groupsPerTick);
}

void TestRdsPlayer::emptyLogDoesNotRun()
{
    RdsPlayer player;
    player.start({});
    QVERIFY(!player.isRunning());
}

QTEST_GUILESS_MAIN(TestRdsPlayer)
#include "tst_rdsplayer.moc"
