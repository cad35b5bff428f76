#include "BandPlan.h"

#include <QtTest>

class TestBandPlan : public QObject
{
    Q_OBJECT
private slots:
    void limitsFollowTheRegionTable_data();
    void limitsFollowTheRegionTable();
    void outOfRangeRegionUsesDefault();
    void snap_data();
    void snap();
    void nextWrapsAtEdges_data();
    void nextWrapsAtEdges();
    void distanceAndAdvanceAgree_data();
    void distanceAndAdvanceAgree();
};

void TestBandPlan::limitsFollowTheRegionTable_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<uint>("fmMin");
    QTest::addColumn<uint>("fmMax");
    QTest::addColumn<uint>("fmStep");
    QTest::addColumn<uint>("amMin");
    QTest::addColumn<uint>("amStep");
    QTest::addColumn<int>("fmChannels");
    QTest::newRow("12") << 12 << 8750u << 10800u << 5u << 531u << 9u << 411;
    QTest::newRow("9") << 9 << 6500u << 7400u << 3u << 522u << 9u << 301;
    QTest::newRow("5") << 5 << 7600u << 9000u << 10u << 522u << 9u << 141;
    QTest::newRow("7") << 7 << 8810u << 10790u << 20u << 531u << 9u << 100;
}

void TestBandPlan::limitsFollowTheRegionTable()
{
    QFETCH(int, region);
    QFETCH(uint, fmMin);
    QFETCH(uint, fmMax);
    QFETCH(uint, fmStep);
    QFETCH(uint, amMin);
    QFETCH(uint, amStep);
    QFETCH(int, fmChannels);
    const BandPlan plan(region);
    QCOMPARE(plan.min(true), fmMin);
    QCOMPARE(plan.max(true), fmMax);
    QCOMPARE(plan.step(true), fmStep);
    QCOMPARE(plan.min(false), amMin);
    QCOMPARE(plan.step(false), amStep);
    QCOMPARE(plan.channelCount(true), fmChannels);
}

void TestBandPlan::outOfRangeRegionUsesDefault()
{
    QCOMPARE(BandPlan(24).region(), 12);
    QCOMPARE(BandPlan(-1).region(), 12);
}

void TestBandPlan::snap_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<uint>("value");
    QTest::addColumn<uint>("expected");
    QTest::newRow("on grid") << 12 << 9810u << 9810u;
    QTest::newRow("tie goes down") << 0 << 8800u << 8790u;
    QTest::newRow("nearer up") << 12 << 9809u << 9810u;
    QTest::newRow("nearer down") << 12 << 9811u << 9810u;
    QTest::newRow("r9 30 kHz grid") << 9 << 6504u << 6503u;
    QTest::newRow("AM grid") << 12 << 1000u << 999u;
    QTest::newRow("FM below") << 12 << 8749u << 0u;
    QTest::newRow("FM above") << 12 << 10801u << 0u;
    QTest::newRow("AM above") << 12 << 1999u << 0u;
    QTest::newRow("zero") << 12 << 0u << 0u;
}

void TestBandPlan::snap()
{
    QFETCH(int, region);
    QFETCH(uint, value);
    QFETCH(uint, expected);
    const BandPlan plan(region);
    QCOMPARE(plan.snap(value), expected);
    QCOMPARE(plan.isChannel(value), expected != 0 && value == expected);
}

void TestBandPlan::nextWrapsAtEdges_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<uint>("from");
    QTest::addColumn<int>("direction");
    QTest::addColumn<uint>("expected");
    QTest::newRow("FM up") << 12 << 9810u << 1 << 9815u;
    QTest::newRow("FM top") << 12 << 10800u << 1 << 8750u;
    QTest::newRow("FM bottom") << 12 << 8750u << -1 << 10800u;
    QTest::newRow("AM top") << 0 << 1710u << 1 << 530u;
    QTest::newRow("AM bottom") << 0 << 530u << -1 << 1710u;
}

void TestBandPlan::nextWrapsAtEdges()
{
    QFETCH(int, region);
    QFETCH(uint, from);
    QFETCH(int, direction);
    QFETCH(uint, expected);
    QCOMPARE(BandPlan(region).next(from, direction), expected);
}

void TestBandPlan::distanceAndAdvanceAgree_data()
{
    QTest::addColumn<uint>("from");
    QTest::addColumn<uint>("to");
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("distance");
    QTest::newRow("up") << 8800u << 8900u << 1 << 20;
    QTest::newRow("down") << 8900u << 8800u << -1 << 20;
    QTest::newRow("up through the top") << 10790u << 8760u << 1 << 5;
    QTest::newRow("down through the bottom") << 8760u << 10790u << -1 << 5;
    QTest::newRow("same") << 9000u << 9000u << 1 << 0;
}

void TestBandPlan::distanceAndAdvanceAgree()
{
    QFETCH(uint, from);
    QFETCH(uint, to);
    QFETCH(int, direction);
    QFETCH(int, distance);
    const BandPlan plan(12);
    QCOMPARE(plan.distance(from, to, direction), distance);
    QCOMPARE(plan.advance(from, direction * distance), to);
}

QTEST_GUILESS_MAIN(TestBandPlan)
#include "tst_bandplan.moc"
