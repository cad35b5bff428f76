// radio-headunit refusing to run: bad command lines and plugin folders
// without a "radio" activity. The shell at work, its snapshots and control
// channel, is driven in the end-to-end suites with the real radio.
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class TestHeadUnitShell : public QObject
{
    Q_OBJECT
private slots:
    void exitCodes_data();
    void exitCodes();
};

void TestHeadUnitShell::exitCodes_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");
    QTest::newRow("help") << QStringList{"--help"} << 0 << "--control-stdin";
    QTest::newRow("unknown option") << QStringList{"--nope"} << 64 << "nope";
    QTest::newRow("region out of range") << QStringList{"--region", "24"} << 64 << "--region";
    QTest::newRow("wrong interface id") << QStringList{"--plugins", QFileInfo(HU_FIXTURE_WRONGIID).path()} << 2
                                        << "rejecting " HU_FIXTURE_WRONGIID ": interface id \"activity/9.9\", expected \"activity/0.1\"";
    QTest::newRow("right id, no activity") << QStringList{"--plugins", QFileInfo(HU_FIXTURE_NOTACTIVITY).path()} << 2
                                           << "rejecting " HU_FIXTURE_NOTACTIVITY ": ";
    QTest::newRow("no plugins") << QStringList{"--plugins", "/nonexistent"} << 2 << "\"radio\"";
}

void TestHeadUnitShell::exitCodes()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, says);
    QTemporaryDir dir;
    QProcess shell;
    shell.start(HEADUNIT_BIN, args << "--settings" << dir.filePath("settings.ini"));
    QVERIFY(shell.waitForFinished(30000));
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QCOMPARE(shell.exitCode(), exitCode);
    const QString output = QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError());
    QVERIFY2(output.contains(says), qPrintable(output));
    // Turned away by its metadata: the plugin's object was never made.
    QVERIFY(!output.contains("WrongIidActivity constructed"));
}

QTEST_MAIN(TestHeadUnitShell)
#include "tst_headunitshell.moc"
