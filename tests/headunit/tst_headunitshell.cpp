// radio-headunit refusing to run (bad command lines, plugin folders
// without a "radio" activity) and standing snapshot requests from its first
// moment to its exit. The shell at work, its snapshots and control channel,
// is driven in the end-to-end suites with the real radio.
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

// A field of /proc/PID/status while PID runs the shell's code (after its
// exec, before it ends); empty otherwise.
QByteArray procStatus(qint64 pid, const QByteArray& field)
{
    QFile command(QStringLiteral("/proc/%1/cmdline").arg(pid));
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!command.open(QIODevice::ReadOnly) || !command.readAll().contains("radio-headunit")
        || !status.open(QIODevice::ReadOnly))
        return QByteArray();
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(field + ':'))
            return line.mid(field.size() + 1).trimmed();
    }
    return QByteArray();
}

// Polls /proc without pause until the shell catches sig, as a supervisor
// would tell: a shell with nothing to show lives a few milliseconds. False
// when it was gone before that could be seen.
bool waitUntilCaught(qint64 pid, int sig)
{
    QElapsedTimer clock;
    clock.start();
    while (!((procStatus(pid, "SigCgt").toULongLong(nullptr, 16) >> (sig - 1)) & 1)) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
        if (!stat.open(QIODevice::ReadOnly) || stat.readAll().contains(") Z ") || clock.elapsed() > 15000)
            return false;
    }
    return true;
}

} // namespace

class TestHeadUnitShell : public QObject
{
    Q_OBJECT
private slots:
    void exitCodes_data();
    void exitCodes();
    void snapshotSignal_data();
    void snapshotSignal();
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

// SIGUSR1 asks for a snapshot; from the moment the shell catches it,
// however early, it never ends the shell.
void TestHeadUnitShell::snapshotSignal_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<bool>("untilExit");  // signals without pause until the shell has quit
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");    // "dump": the snapshot is written
    QTest::newRow("at once, answered when the window stands") << QStringList{"--dump"} << false << 0 << "dump";
    QTest::newRow("at once, no --dump") << QStringList() << false << 0 << "SIGUSR1 ignored";
    QTest::newRow("at once, no radio to show") << QStringList{"--plugins", "/nonexistent"} << false << 2 << "\"radio\"";
    QTest::newRow("start-up to exit") << QStringList{"--dump"} << true << 0 << "dump";
}

void TestHeadUnitShell::snapshotSignal()
{
    QFETCH(QStringList, args);
    QFETCH(bool, untilExit);
    QFETCH(QString, says);
    QTemporaryDir dir;
    const QString file = dir.filePath("dump.json");
    if (args.contains("--dump"))
        args << file;
    args << "--control-stdin" << "--settings" << dir.filePath("settings.ini");
    QProcess shell;
    // One that ends before it is seen catching the signal is started again.
    for (int attempt = 1;; ++attempt) {
        shell.start(HEADUNIT_BIN, args);
        QVERIFY(shell.waitForStarted(15000));
        if (waitUntilCaught(shell.processId(), SIGUSR1))
            break;
        QVERIFY2(attempt < 5, "the shell was never seen catching SIGUSR1");
        QVERIFY(shell.waitForFinished(15000));
    }
    const auto pid = pid_t(shell.processId());
    if (QFileInfo(QStringLiteral("/proc/%1/exe").arg(pid)).symLinkTarget().contains("qemu"))
        QSKIP("under user-mode emulation /proc shows the emulator's signal dispositions");
    ::kill(pid, SIGUSR1);
    if (untilExit) {
        shell.write("quit\n");
        QVERIFY(shell.waitForBytesWritten(15000));
        while (!procStatus(pid, "State").startsWith('Z') && !procStatus(pid, "State").isEmpty())
            ::kill(pid, SIGUSR1);
    }
    QByteArray output;
    if (says == "dump")
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(file).size() > 0, 15000);
    else
        QTRY_VERIFY_WITH_TIMEOUT((output += shell.readAllStandardError()).contains(says.toUtf8()), 15000);
    if (shell.state() != QProcess::NotRunning) {
        shell.write("quit\n");
        QVERIFY(shell.waitForFinished(15000));
    }
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QTEST(shell.exitCode(), "exitCode");
}

QTEST_MAIN(TestHeadUnitShell)
#include "tst_headunitshell.moc"
