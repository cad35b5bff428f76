#include "RdsLog.h"

#include <QFile>
#include <QtTest>

namespace {

QString sharedLog(const QString& relative)
{
    const QByteArray root = qgetenv("RADIO_SHARED_DATA");
    if (root.isEmpty())
        return QString();
    const QString path = QString::fromLocal8Bit(root) + QStringLiteral("/rds/walczakp-rds-spy-logs/") + relative;
    return QFile::exists(path) ? path : QString();
}

} // namespace

class TestRdsLog : public QObject
{
    Q_OBJECT
private slots:
    void spyLines();
    void hexgroupSections();
    void rejectedLines_data();
    void rejectedLines();
    void unreadableFile();
    void realLogs_data();
    void realLogs();
};

void TestRdsLog::spyLines()
{
    RdsLog log;
    log.parse("<recorder=\"RDS Spy\" date=\"2020-08-21\" time=\"17-48-06\">\r\n"
              "210E 042A 6F88 6F20 @2020/08/21 17:47:59.47\r\n"
              "---- 042F ---- 5A20 @2020/08/21 17:47:59.57\r\n"
              "\r\n");
    QCOMPARE(log.groups().size(), 2);
    QCOMPARE(log.rejectedLines(), 0);
    const RdsGroup& a = log.groups().at(0);
    QCOMPARE(a.block[0], uint16_t(0x210E));
    QCOMPARE(a.block[3], uint16_t(0x6F20));
    QCOMPARE(a.valid, uint8_t(0x0F));
    const RdsGroup& b = log.groups().at(1);
    QVERIFY(!b.has(0));
    QVERIFY(b.has(1));
    QVERIFY(!b.has(2));
    QCOMPARE(b.block[3], uint16_t(0x5A20));
    QCOMPARE(b.tunedKHz, 0u);
    QVERIFY(log.sectionFrequencies().isEmpty());
}

void TestRdsLog::hexgroupSections()
{
    RdsLog log;
    log.parse("% RDS hexgroups\n"
              "% Freq 87500, date=2018/09/05 15:15:59.140\n"
              "6403 ---- ---- CD46 @0540\n"
              "% Freq 94000, date=2018/09/05 15:15:59.566\n"
              "6403 0441 4441 4520 @0748\n"
              "6403 0442 4441 4520 @0852\n");
    QCOMPARE(log.groups().size(), 3);
    QCOMPARE(log.sectionFrequencies(), (QVector<uint32_t>{87500, 94000}));
    QCOMPARE(log.groupsTunedTo(94000).size(), 2);
    QCOMPARE(log.groupsTunedTo(94000).first().block[1], uint16_t(0x0441));
    QCOMPARE(log.groupsTunedTo(87500).size(), 1);
    // A frequency the log never names: all of it.
    QCOMPARE(log.groupsTunedTo(101100).size(), 3);
}

void TestRdsLog::rejectedLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("three blocks") << QByteArray("210E 042A 6F88");
    QTest::newRow("not hex") << QByteArray("210E 04ZA 6F88 6F20");
    QTest::newRow("five digits") << QByteArray("210E 042A0 6F88 6F20");
    QTest::newRow("extra word") << QByteArray("210E 042A 6F88 6F20 junk");
    QTest::newRow("binary") << QByteArray("\x01\x02\xFF\xFE", 4);
    QTest::newRow("bad freq") << QByteArray("% Freq abc");
}

void TestRdsLog::rejectedLines()
{
    QFETCH(QByteArray, line);
    RdsLog log;
    log.parse("210E 042A 6F88 6F20\n" + line + "\n210E 042F 8AB5 5A20\n");
    QCOMPARE(log.groups().size(), 2);
    QCOMPARE(log.rejectedLines(), 1);
}

void TestRdsLog::unreadableFile()
{
    RdsLog log;
    QString error;
    QVERIFY(!log.load(QStringLiteral("/nonexistent/file.spy"), &error));
    QVERIFY(error.contains(QStringLiteral("/nonexistent/file.spy")));
}

// Group counts as the collection's manifest gives them.
void TestRdsLog::realLogs_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("groups");
    QTest::addColumn<uint>("section");
    QTest::newRow("spy") << QStringLiteral("Czech_Republic/210E_-_2020-08-21_17-48-06.spy") << 680 << 0u;
    QTest::newRow("rds with retune") << QStringLiteral("Finland/6403_-_2018-09-05_15-15-59_FI_HE_YLESUOMI.rds") << 4990 << 94000u;
}

void TestRdsLog::realLogs()
{
    QFETCH(QString, file);
    QFETCH(int, groups);
    QFETCH(uint, section);
    const QString path = sharedLog(file);
    if (path.isEmpty())
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    RdsLog log;
    QString error;
    QVERIFY2(log.load(path, &error), qPrintable(error));
    QCOMPARE(log.groups().size(), groups);
    QCOMPARE(log.rejectedLines(), 0);
    if (section != 0)
        QVERIFY(log.sectionFrequencies().contains(section));
}

QTEST_GUILESS_MAIN(TestRdsLog)
#include "tst_rdslog.moc"
