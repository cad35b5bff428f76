#include "SimOptions.h"

#include <QtTest>

class TestSimOptions : public QObject
{
    Q_OBJECT
private slots:
    void defaults();
    void accepted();
    void refused_data();
    void refused();
    void help();
};

void TestSimOptions::defaults()
{
    SimOptions o;
    QVERIFY(o.parse({QStringLiteral("radio-tunersim")}));
    QCOMPARE(o.name, QStringLiteral("kestrelhub"));
    QCOMPARE(o.region, 12);
    QCOMPARE(o.seed, 1u);
    QVERIFY(!o.trace);
    QCOMPARE(o.timeScale, 1.0);
    QCOMPARE(o.rdsSpeed, 1.0);
    QVERIFY(o.rdsLogs.isEmpty());
}

void TestSimOptions::accepted()
{
    SimOptions o;
    QVERIFY2(o.parse({QStringLiteral("radio-tunersim"), QStringLiteral("--name"), QStringLiteral("other"),
                      QStringLiteral("--region"), QStringLiteral("9"), QStringLiteral("--seed"), QStringLiteral("42"),
                      QStringLiteral("--lineup"), QStringLiteral("a.csv"), QStringLiteral("--rds"),
                      QStringLiteral("96.7=a.spy"), QStringLiteral("--rds"), QStringLiteral("9400=b=c.rds"),
                      QStringLiteral("--rds-speed"), QStringLiteral("4"), QStringLiteral("--time-scale"),
                      QStringLiteral("0.5"), QStringLiteral("--trace")}),
             qPrintable(o.errorText()));
    QCOMPARE(o.name, QStringLiteral("other"));
    QCOMPARE(o.region, 9);
    QCOMPARE(o.seed, 42u);
    QCOMPARE(o.lineupFile, QStringLiteral("a.csv"));
    QCOMPARE(o.rdsLogs.size(), 2);
    QCOMPARE(o.rdsLogs.at(0).first, QStringLiteral("96.7"));
    QCOMPARE(o.rdsLogs.at(1).second, QStringLiteral("b=c.rds"));
    QCOMPARE(o.rdsSpeed, 4.0);
    QCOMPARE(o.timeScale, 0.5);
    QVERIFY(o.trace);
}

void TestSimOptions::refused_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown") << QStringList{QStringLiteral("--loud")} << QStringLiteral("unknown option --loud");
    QTest::newRow("missing value") << QStringList{QStringLiteral("--region")} << QStringLiteral("--region needs a value");
    QTest::newRow("region 24") << QStringList{QStringLiteral("--region"), QStringLiteral("24")} << QStringLiteral("--region must be 0-23");
    QTest::newRow("region word") << QStringList{QStringLiteral("--region"), QStringLiteral("eu")} << QStringLiteral("--region must be 0-23");
    QTest::newRow("seed negative") << QStringList{QStringLiteral("--seed"), QStringLiteral("-1")} << QStringLiteral("--seed must be");
    QTest::newRow("rds without =") << QStringList{QStringLiteral("--rds"), QStringLiteral("a.spy")} << QStringLiteral("FREQ=FILE");
    QTest::newRow("rds no file") << QStringList{QStringLiteral("--rds"), QStringLiteral("96.7=")} << QStringLiteral("FREQ=FILE");
    QTest::newRow("speed zero") << QStringList{QStringLiteral("--rds-speed"), QStringLiteral("0")} << QStringLiteral("--rds-speed must be");
    QTest::newRow("scale nan") << QStringList{QStringLiteral("--time-scale"), QStringLiteral("nan")} << QStringLiteral("--time-scale must be");
    QTest::newRow("scale inf") << QStringList{QStringLiteral("--time-scale"), QStringLiteral("inf")} << QStringLiteral("--time-scale must be");
    QTest::newRow("empty name") << QStringList{QStringLiteral("--name"), QString()} << QStringLiteral("--name must be");
    QTest::newRow("long name") << QStringList{QStringLiteral("--name"), QString(108, QLatin1Char('n'))} << QStringLiteral("--name must be");
}

void TestSimOptions::refused()
{
    QFETCH(QStringList, args);
    QFETCH(QString, error);
    SimOptions o;
    args.prepend(QStringLiteral("radio-tunersim"));
    QVERIFY(!o.parse(args));
    QVERIFY2(o.errorText().contains(error), qPrintable(o.errorText()));
}

void TestSimOptions::help()
{
    SimOptions o;
    QVERIFY(o.parse({QStringLiteral("radio-tunersim"), QStringLiteral("--help"), QStringLiteral("--bogus")}));
    QVERIFY(o.helpRequested());
    for (const char* option : {"--name", "--region", "--seed", "--lineup", "--rds ", "--rds-speed", "--time-scale", "--trace"})
        QVERIFY2(SimOptions::helpText().contains(QLatin1String(option)), option);
}

QTEST_GUILESS_MAIN(TestSimOptions)
#include "tst_simoptions.moc"
