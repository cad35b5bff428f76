#include "HeadUnitOptions.h"

#include <QtTest>

class TestHeadUnitOptions : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void values();
    void badCommandLines_data();
    void badCommandLines();
    void regionRange_data();
    void regionRange();
};

void TestHeadUnitOptions::defaults()
{
    HeadUnitOptions options;
    QString error;
    QVERIFY2(options.parse({QStringLiteral("radio-headunit")}, &error), qPrintable(error));
    QCOMPARE(options.pluginDir, QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("activities")));
    QVERIFY(options.settingsFile.endsWith(QLatin1String("/headunit/settings.ini")));
    QVERIFY(options.dumpFile.isEmpty());
    QVERIFY(options.tourDir.isEmpty());
    QVERIFY(!options.controlStdin);
    QVERIFY(!options.frameless);
    QVERIFY(!options.fullscreen);
    QCOMPARE(options.region, -1);
    QVERIFY(!options.helpRequested);
}

void TestHeadUnitOptions::values()
{
    HeadUnitOptions options;
    QString error;
    QVERIFY2(options.parse({"radio-headunit", "--plugins", "/p", "--settings", "/s.ini", "--dump", "/d.json", "--tour",
                            "/t", "--control-stdin", "--frameless", "--region", "5", "--help"},
                           &error),
             qPrintable(error));
    QCOMPARE(options.pluginDir, QStringLiteral("/p"));
    QCOMPARE(options.settingsFile, QStringLiteral("/s.ini"));
    QCOMPARE(options.dumpFile, QStringLiteral("/d.json"));
    QCOMPARE(options.tourDir, QStringLiteral("/t"));
    QVERIFY(options.controlStdin);
    QVERIFY(options.frameless);
    QCOMPARE(options.region, 5);
    QVERIFY(options.helpRequested);
}

void TestHeadUnitOptions::badCommandLines_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown option") << QStringList{"--colour"} << "Unknown option 'colour'.";
    QTest::newRow("missing value") << QStringList{"--dump"} << "Missing value after '--dump'.";
    QTest::newRow("empty value") << QStringList{"--tour="} << "--tour needs a folder";
    QTest::newRow("stray argument") << QStringList{"extra"} << "unexpected argument: extra";
    QTest::newRow("both window modes") << QStringList{"--frameless", "--fullscreen"}
                                       << "--frameless and --fullscreen exclude each other";
}

void TestHeadUnitOptions::badCommandLines()
{
    QFETCH(QStringList, args);
    QFETCH(QString, error);
    HeadUnitOptions options;
    QString why;
    QVERIFY(!options.parse(QStringList{"radio-headunit"} + args, &why));
    QCOMPARE(why, error);
}

void TestHeadUnitOptions::regionRange_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("region");
    QTest::newRow("first") << "0" << 0;
    QTest::newRow("last") << "23" << 23;
    QTest::newRow("one past") << "24" << -2;
    QTest::newRow("negative") << "-1" << -2;
    QTest::newRow("not a number") << "twelve" << -2;
}

void TestHeadUnitOptions::regionRange()
{
    QFETCH(QString, value);
    QFETCH(int, region);
    HeadUnitOptions options;
    QString error;
    const bool parsed = options.parse({"radio-headunit", "--region", value}, &error);
    QCOMPARE(parsed, region >= 0);
    if (parsed)
        QCOMPARE(options.region, region);
    else
        QVERIFY(error.startsWith(QLatin1String("--region takes a number from 0 to 23")));
}

QTEST_MAIN(TestHeadUnitOptions)
#include "tst_headunitoptions.moc"
