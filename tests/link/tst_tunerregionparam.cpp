#include "OutputCapture.h"
#include "TunerRegionParam.h"

#include <QtTest>

#include <climits>

class tst_TunerRegionParam : public QObject
{
    Q_OBJECT

private slots:
    void row_data();
    void row();
    void outOfRangeFallsBackToRegion12_data();
    void outOfRangeFallsBackToRegion12();
};

void tst_TunerRegionParam::row_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<uint>("fmMin");
    QTest::addColumn<uint>("fmMax");
    QTest::addColumn<uint>("fmStep");
    QTest::addColumn<uint>("amMin");
    QTest::addColumn<uint>("amMax");
    QTest::addColumn<uint>("amStep");

    const uint rows[24][6] = {
        {8790, 10790, 20, 530, 1710, 10}, {8750, 10790, 20, 530, 1710, 10}, {8750, 10800, 5, 531, 1602, 9},
        {8750, 10800, 5, 531, 1602, 9},   {7600, 10800, 10, 522, 1629, 9},  {7600, 9000, 10, 522, 1629, 9},
        {8750, 10800, 10, 531, 1629, 9},  {8810, 10790, 20, 531, 1611, 9},  {8790, 10790, 20, 530, 1710, 10},
        {6500, 7400, 3, 522, 1629, 9},    {8750, 10800, 10, 531, 1602, 9},  {8750, 10790, 20, 530, 1710, 10},
        {8750, 10800, 5, 531, 1629, 9},   {8750, 10800, 5, 522, 1611, 9},   {8750, 10800, 10, 522, 1620, 9},
        {7600, 10800, 10, 530, 1710, 10}, {8750, 10800, 10, 530, 1710, 10}, {8750, 10800, 10, 522, 1629, 9},
        {8750, 10800, 5, 522, 1620, 9},   {8750, 10800, 10, 520, 1620, 10}, {8750, 10800, 5, 522, 1629, 9},
        {7610, 10800, 10, 530, 1710, 10}, {8750, 10800, 5, 531, 1629, 9},   {8750, 10800, 10, 531, 1602, 9},
    };
    for (int region = 0; region < 24; ++region) {
        const uint* r = rows[region];
        QTest::addRow("region %d", region) << region << r[0] << r[1] << r[2] << r[3] << r[4] << r[5];
    }
}

// The exported table, the row lookup and the unpacked lookup all agree with
// the region's row.
void tst_TunerRegionParam::row()
{
    QFETCH(int, region);
    QFETCH(uint, fmMin);
    QFETCH(uint, fmMax);
    QFETCH(uint, fmStep);
    QFETCH(uint, amMin);
    QFETCH(uint, amMax);
    QFETCH(uint, amStep);

    const uint expected[6] = {fmMin, fmMax, fmStep, amMin, amMax, amStep};
    QVERIFY(isValidTunerRegion(region));
    const uint32_t* row = tunerRegionRow(region);
    QCOMPARE(row, TunerRegionParam[region]);
    for (int column = 0; column < 6; ++column)
        QCOMPARE(uint(TunerRegionParam[region][column]), expected[column]);

    const TunerRegion unpacked = tunerRegion(region);
    QCOMPARE(uint(unpacked.fmMin), fmMin);
    QCOMPARE(uint(unpacked.fmMax), fmMax);
    QCOMPARE(uint(unpacked.fmStep), fmStep);
    QCOMPARE(uint(unpacked.amMin), amMin);
    QCOMPARE(uint(unpacked.amMax), amMax);
    QCOMPARE(uint(unpacked.amStep), amStep);
}

void tst_TunerRegionParam::outOfRangeFallsBackToRegion12_data()
{
    QTest::addColumn<int>("region");

    QTest::newRow("-1") << -1;
    QTest::newRow("24") << 24;
    QTest::newRow("255") << 255;
    QTest::newRow("INT_MIN") << INT_MIN;
    QTest::newRow("INT_MAX") << INT_MAX;
}

// A region the table does not have is never used as an index: the lookup
// logs it and answers with region 12 (FM 8750-10800 step 5, AM 531-1629
// step 9).
void tst_TunerRegionParam::outOfRangeFallsBackToRegion12()
{
    QFETCH(int, region);

    QVERIFY(!isValidTunerRegion(region));
    OutputCapture err(2);
    QVERIFY(err.isActive());
    const uint32_t* row = tunerRegionRow(region);
    const TunerRegion unpacked = tunerRegion(region);

    QCOMPARE(row, TunerRegionParam[12]);
    QCOMPARE(uint(unpacked.fmMin), 8750u);
    QCOMPARE(uint(unpacked.fmMax), 10800u);
    QCOMPARE(uint(unpacked.fmStep), 5u);
    QCOMPARE(uint(unpacked.amMin), 531u);
    QCOMPARE(uint(unpacked.amMax), 1629u);
    QCOMPARE(uint(unpacked.amStep), 9u);
    const QString line = QStringLiteral("Tuner region %1 out of range, using region 12").arg(region);
    QCOMPARE(err.lines(), (QStringList{line, line}));
}

QTEST_GUILESS_MAIN(tst_TunerRegionParam)
#include "tst_tunerregionparam.moc"
