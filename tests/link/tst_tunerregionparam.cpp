#include "OutputCapture.h"
#include "TunerRegionParam.h"

#include <QtTest>

#include <climits>

class tst_TunerRegionParam : public QObject
{
    Q_OBJECT

private slots:
    void lookup_data();
    void lookup();
};

void tst_TunerRegionParam::lookup_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("logged");

    // Region 12's row, the only one restated here: the keypad trails, the
    // scale rows and the simulator's band plans read the others.
    const char* const row12 = "8750 10800 5 531 1629 9";
    for (int region : {0, 12, 23})
        QTest::addRow("region %d", region) << region << QString::fromLatin1(region == 12 ? row12 : "") << false;
    // A region the table does not have is never used as an index: it is
    // logged and answered with the starting region's row.
    for (int region : {-1, 24, 255, INT_MIN, INT_MAX})
        QTest::addRow("out of range %d", region) << region << QString::fromLatin1(row12) << true;
}

void tst_TunerRegionParam::lookup()
{
    QFETCH(int, region);
    QFETCH(QString, row);
    QFETCH(bool, logged);

    OutputCapture err(2);
    const TunerRegion r = tunerRegion(region);
    if (!row.isEmpty())
        QCOMPARE(QString::asprintf("%u %u %u %u %u %u", r.fmMin, r.fmMax, r.fmStep, r.amMin, r.amMax, r.amStep), row);
    QCOMPARE(tunerRegionRow(region), TunerRegionParam[logged ? 12 : region]);
    QCOMPARE(err.lines().size(), logged ? 2 : 0);
}

QTEST_GUILESS_MAIN(tst_TunerRegionParam)
#include "tst_tunerregionparam.moc"
