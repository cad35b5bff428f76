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

    const char* rows[24] = {
        "8790 10790 20 530 1710 10", "8750 10790 20 530 1710 10", "8750 10800 5 531 1602 9",
        "8750 10800 5 531 1602 9",   "7600 10800 10 522 1629 9",  "7600 9000 10 522 1629 9",
        "8750 10800 10 531 1629 9",  "8810 10790 20 531 1611 9",  "8790 10790 20 530 1710 10",
        "6500 7400 3 522 1629 9",    "8750 10800 10 531 1602 9",  "8750 10790 20 530 1710 10",
        "8750 10800 5 531 1629 9",   "8750 10800 5 522 1611 9",   "8750 10800 10 522 1620 9",
        "7600 10800 10 530 1710 10", "8750 10800 10 530 1710 10", "8750 10800 10 522 1629 9",
        "8750 10800 5 522 1620 9",   "8750 10800 10 520 1620 10", "8750 10800 5 522 1629 9",
        "7610 10800 10 530 1710 10", "8750 10800 5 531 1629 9",   "8750 10800 10 531 1602 9",
    };
    for (int region = 0; region < 24; ++region)
        QTest::addRow("region %d", region) << region << rows[region] << false;
    // A region the table does not have is never used as an index: it is
    // logged and answered with the starting region's row.
    for (int region : {-1, 24, 255, INT_MIN, INT_MAX})
        QTest::addRow("out of range %d", region) << region << rows[12] << true;
}

void tst_TunerRegionParam::lookup()
{
    QFETCH(int, region);
    QFETCH(QString, row);
    QFETCH(bool, logged);

    OutputCapture err(2);
    const TunerRegion r = tunerRegion(region);
    QCOMPARE(QString::asprintf("%u %u %u %u %u %u", r.fmMin, r.fmMax, r.fmStep, r.amMin, r.amMax, r.amStep), row);
    QCOMPARE(tunerRegionRow(region), TunerRegionParam[logged ? 12 : region]);
    QCOMPARE(err.lines().size(), logged ? 2 : 0);
}

QTEST_GUILESS_MAIN(tst_TunerRegionParam)
#include "tst_tunerregionparam.moc"
