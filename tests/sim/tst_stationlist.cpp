#include "RadioCmdFromMCU.h"
#include "StationList.h"

#include <QFile>
#include <QtTest>

class TestStationList : public QObject
{
    Q_OBJECT
private slots:
    void builtInFitsEveryRegion_data();
    void builtInFitsEveryRegion();
    void parseFrequency_data();
    void parseFrequency();
    void csvPositional();
    void csvHeaderSelectsColumns();
    void csvBadLines_data();
    void csvBadLines();
    void csvRadioTextEscapes_data();
    void csvRadioTextEscapes();
    void csvSharedLineup();
    void attachRdsLogCreatesStation();
    void attachRdsLogRefusesAm();
};

void TestStationList::builtInFitsEveryRegion_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<quint32>("seed");
    for (int region = 0; region < 24; ++region)
        for (quint32 seed : {1u, 2u, 12345u})
            QTest::addRow("region %d seed %u", region, seed) << region << seed;
}

// Every region's line-up lies on its own grid, fills its presets, and has
// stations for DX only as well as strong ones.
void TestStationList::builtInFitsEveryRegion()
{
    QFETCH(int, region);
    QFETCH(quint32, seed);
    const StationList list = StationList::builtIn(region, seed);
    const BandPlan plan(region);
    int fm = 0, am = 0, weak = 0, strong = 0;
    uint32_t previous = 0;
    for (const Station& s : list.stations()) {
        QVERIFY2(plan.isChannel(s.freq), qPrintable(QString::number(s.freq)));
        QVERIFY(s.freq > previous);
        previous = s.freq;
        QCOMPARE(s.ps.size(), 8);
        QVERIFY(s.radioText.size() <= 64);
        QVERIFY(s.pty <= 31);
        if (isFmFrequency(s.freq)) {
            ++fm;
            QVERIFY(s.ps.trimmed().size() > 0);
        } else {
            ++am;
            QCOMPARE(s.ps, QByteArray(8, ' '));
        }
        weak += s.signal >= 25 && s.signal < 100;
        strong += s.signal >= 100;
    }
    QVERIFY2(fm >= 8, qPrintable(QString::number(fm)));
    QVERIFY2(am >= 4, qPrintable(QString::number(am)));
    QVERIFY(weak >= 1);
    QVERIFY(strong >= 1);
}

void TestStationList::parseFrequency_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<uint>("expected");
    QTest::newRow("MHz") << QByteArray("96.7") << 9670u;
    QTest::newRow("MHz two decimals") << QByteArray(" 101.15 ") << 10115u;
    QTest::newRow("FM units") << QByteArray("9670") << 9670u;
    QTest::newRow("empty") << QByteArray("") << 0u;
    QTest::newRow("negative") << QByteArray("-96.7") << 0u;
    QTest::newRow("too big") << QByteArray("70000") << 0u;
}

void TestStationList::parseFrequency()
{
    QFETCH(QByteArray, text);
    QFETCH(uint, expected);
    QCOMPARE(StationList::parseFrequency(text), expected);
}

void TestStationList::csvPositional()
{
    StationList list(12);
    QStringList warnings;
    list.loadCsvText("96.7,Radio Z ,1,1,\"News, weather, sport\",180\n"
                     "999,,0,0,,90\n"
                     "\n# comment\n"
                     "8800,\"QUOTE\"\"D\",10,0,\"Say \"\"hi\"\"\",70\n",
                     1, &warnings);
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join('\n')));
    QCOMPARE(list.count(), 3);
    const Station* z = list.at(9670);
    QVERIFY(z);
    QCOMPARE(z->ps, QByteArray("Radio Z "));
    QCOMPARE(int(z->pty), 1);
    QVERIFY(z->tp);
    QCOMPARE(z->radioText, QByteArray("News, weather, sport"));
    QCOMPARE(int(z->signal), 180);
    QCOMPARE(list.at(999)->ps, QByteArray(8, ' '));
    QCOMPARE(list.at(8800)->ps, QByteArray("QUOTE\"D "));
    QCOMPARE(list.at(8800)->radioText, QByteArray("Say \"hi\""));
}

void TestStationList::csvHeaderSelectsColumns()
{
    StationList list(12);
    QStringList warnings;
    list.loadCsvText("signal,rt,ps,unused,freq_mhz\n"
                     "200,Hello,HELLO,x,100.0\n"
                     ",No signal given,QUIET,x,101.0\n",
                     7, &warnings);
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join('\n')));
    QCOMPARE(list.count(), 2);
    QCOMPARE(int(list.at(10000)->signal), 200);
    QCOMPARE(list.at(10000)->radioText, QByteArray("Hello"));
    QCOMPARE(int(list.at(10000)->pty), 0);
    // Missing signals come from the seed: same seed, same level.
    StationList again(12);
    again.loadCsvText("signal,rt,ps,unused,freq_mhz\n,x,QUIET,x,101.0\n", 7, nullptr);
    QCOMPARE(again.at(10100)->signal, list.at(10100)->signal);
    QVERIFY(list.at(10100)->signal >= 60);
}

void TestStationList::csvBadLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("stations");
    QTest::addColumn<QString>("warning");
    QTest::newRow("outside band plan") << QByteArray("110.0,X,0,0,,100") << 0 << QStringLiteral("outside the band plan");
    QTest::newRow("AM outside") << QByteArray("1700,X,0,0,,100") << 0 << QStringLiteral("outside the band plan");
    QTest::newRow("no frequency") << QByteArray("96.7x,X,0,0,,100") << 0 << QStringLiteral("no frequency");
    QTest::newRow("unterminated quote") << QByteArray("96.7,\"X,0,0,,100") << 0 << QStringLiteral("unterminated quote");
    QTest::newRow("off grid is moved") << QByteArray("96.72,X,0,0,,100") << 1 << QStringLiteral("moved to the channel 96.70 MHz");
    QTest::newRow("bad pty kept as 0") << QByteArray("96.7,X,40,0,,100") << 1 << QStringLiteral("PTY \"40\"");
    QTest::newRow("bad tp") << QByteArray("96.7,X,1,maybe,,100") << 1 << QStringLiteral("TP \"maybe\"");
    QTest::newRow("bad signal") << QByteArray("96.7,X,1,0,,300") << 1 << QStringLiteral("signal \"300\"");
}

void TestStationList::csvBadLines()
{
    QFETCH(QByteArray, line);
    QFETCH(int, stations);
    QFETCH(QString, warning);
    StationList list(12);
    QStringList warnings;
    // A valid first line, so that the line under test is no header.
    list.loadCsvText("88.0,FIRST,0,0,,100\n" + line + "\n", 1, &warnings);
    QCOMPARE(list.count(), 1 + stations);
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().startsWith(QStringLiteral("line 2: ")), qPrintable(warnings.first()));
    QVERIFY2(warnings.first().contains(warning), qPrintable(warnings.first()));
}

void TestStationList::csvRadioTextEscapes_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("expected");
    QTest::newRow("RDS code escape") << QByteArray("Iltap\\x91iv\\x91") << QString::fromUtf8("Iltapäivä");
    QTest::newRow("carriage return ends") << QByteArray("Radio<0D>garbage") << QStringLiteral("Radio");
    QTest::newRow("other controls dropped") << QByteArray("A<1D>B<04>") << QStringLiteral("AB");
    QTest::newRow("plain UTF-8 kept") << QByteArray("Grüße") << QString::fromUtf8("Grüße");
    QTest::newRow("cut to 64 bytes") << QByteArray(70, 'x') << QString(64, QLatin1Char('x'));
}

void TestStationList::csvRadioTextEscapes()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, expected);
    StationList list(12);
    list.loadCsvText("96.7,X,0,0," + field + ",100\n", 1, nullptr);
    QVERIFY(list.at(9670));
    QCOMPARE(QString::fromUtf8(list.at(9670)->radioText), expected);
}

// The line-up table built from the recorded stations loads as it is.
void TestStationList::csvSharedLineup()
{
    const QByteArray root = qgetenv("RADIO_SHARED_DATA");
    const QString path = QString::fromLocal8Bit(root) + QStringLiteral("/rds/lineups.csv");
    if (root.isEmpty() || !QFile::exists(path))
        QSKIP("lineups.csv not present under RADIO_SHARED_DATA");
    StationList list(12);
    QStringList warnings;
    QString error;
    QVERIFY(list.loadCsv(path, 1, &warnings, &error));
    // 27 rows; Radiozurnal 89.7 and BBC Radio 2 89.7 share a channel.
    QCOMPARE(list.count(), 26);
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.first().contains(QStringLiteral("replaces")));
    QCOMPARE(list.at(9670)->ps, QByteArray("Radio Z "));
    QCOMPARE(int(list.at(9670)->pty), 1);
    QCOMPARE(QString::fromUtf8(list.at(9400)->radioText), QString::fromUtf8("Radio Suomen Iltapäivä: Helsinki"));
    QCOMPARE(list.at(9620)->radioText, QByteArray("Radio, ktere zije s Vami"));
    QVERIFY(!list.at(10230)->tp);
}

void TestStationList::attachRdsLogCreatesStation()
{
    QByteArray text;
    for (int i = 0; i < 2; ++i)
        text += "2A2A 0548 E344 5659\n2A2A 054D 5325 534F\n2A2A 054A E344 4349\n2A2A 054F 5325 4E41\n";
    auto log = QSharedPointer<RdsLog>::create();
    log->parse(text);
    StationList list(12);
    QVERIFY(list.attachRdsLog(9431, log));   // snapped to 94.30
    const Station* s = list.at(9430);
    QVERIFY(s);
    QCOMPARE(s->ps, QByteArray("VYSOCINA"));
    QCOMPARE(int(s->pty), 10);
    QVERIFY(s->tp);
    QCOMPARE(s->rdsLog, QSharedPointer<const RdsLog>(log));
    // An existing station keeps its data and gets the log.
    StationList other(12);
    other.loadCsvText("94.3,OLD,3,0,,120\n", 1, nullptr);
    QVERIFY(other.attachRdsLog(9430, log));
    QCOMPARE(other.at(9430)->ps, QByteArray("OLD     "));
    QVERIFY(other.at(9430)->rdsLog);
}

void TestStationList::attachRdsLogRefusesAm()
{
    StationList list(12);
    auto log = QSharedPointer<RdsLog>::create();
    QVERIFY(!list.attachRdsLog(999, log));
    QVERIFY(!list.attachRdsLog(11000, log));
    QCOMPARE(list.count(), 0);
}

QTEST_GUILESS_MAIN(TestStationList)
#include "tst_stationlist.moc"
