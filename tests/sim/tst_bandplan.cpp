#include "BandPlan.h"

#include <QtTest>

class TestBandPlan : public QObject
{
    Q_OBJECT
private slots:
    void outOfRangeRegionUsesDefault();
    void snap_data();
    void snap();
    void distanceAndAdvanceAgree_data();
    void distanceAndAdvanceAgree();
};

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

void TestBandPlan::distanceAndAdvanceAgree_data()
{
    QTest::addColumn<uint>("from");
    QTest::addColumn<uint>("to");
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("distance");
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
