#include "RadioCmdToMCU.h"
#include "SimClient.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <unistd.h>

namespace {

QString uniqueName(const char* what)
{
    static int counter = 0;
    return QStringLiteral("kestrelhub-proc-%1-%2-%3").arg(::getpid()).arg(QLatin1String(what)).arg(++counter);
}

QString sharedFile(const QString& relative)
{
    const QByteArray root = qgetenv("RADIO_SHARED_DATA");
    if (root.isEmpty())
        return QString();
    const QString path = QString::fromLocal8Bit(root) + QStringLiteral("/rds/") + relative;
    return QFile::exists(path) ? path : QString();
}

// radio-tunersim in a child process, its standard output kept line by
// line; started with --trace, it is ready once it reports listening.
struct Sim {
    QProcess process;
    QStringList lines;
    QByteArray partial;

    bool start(const QStringList& args)
    {
        QObject::connect(&process, &QProcess::readyReadStandardOutput, [this] {
            partial += process.readAllStandardOutput();
            int nl;
            while ((nl = partial.indexOf('\n')) >= 0) {
                lines << QString::fromUtf8(partial.left(nl));
                partial.remove(0, nl + 1);
            }
        });
        process.start(QStringLiteral(RADIO_TUNERSIM_BIN), args);
        return process.waitForStarted(5000)
            && QTest::qWaitFor([this] { return !lines.filter(QStringLiteral("# listening on")).isEmpty()
                                               || process.state() == QProcess::NotRunning; }, 10000)
            && process.state() == QProcess::Running;
    }
    ~Sim()
    {
        if (process.state() != QProcess::NotRunning) {
            process.terminate();
            process.waitForFinished(5000);
        }
    }
};

int runToEnd(const QStringList& args, QByteArray* out, QByteArray* err)
{
    QProcess p;
    p.start(QStringLiteral(RADIO_TUNERSIM_BIN), args);
    if (!p.waitForFinished(10000))
        return -1;
    *out = p.readAllStandardOutput();
    *err = p.readAllStandardError();
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

QByteArray ps(const tag_RadioCmdFromMCU& r)
{
    return QByteArray(reinterpret_cast<const char*>(r.psName), 8);
}

} // namespace

class TestRadioTunerSim : public QObject
{
    Q_OBJECT
private slots:
    void badArguments_data();
    void badArguments();
    void drivenByHandWithTrace();
    void lineupFile();
    void replayedLog();
};

void TestRadioTunerSim::badArguments_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--bogus")} << 2 << QStringLiteral("unknown option --bogus");
    QTest::newRow("region") << QStringList{QStringLiteral("--region"), QStringLiteral("30")} << 2 << QStringLiteral("--region must be 0-23");
    QTest::newRow("missing log") << QStringList{QStringLiteral("--rds"), QStringLiteral("96.7=/nonexistent.spy")} << 1 << QStringLiteral("cannot read /nonexistent.spy");
    QTest::newRow("log on AM") << QStringList{QStringLiteral("--rds"), QStringLiteral("999=") + QStringLiteral(RADIO_TUNERSIM_BIN)} << 1 << QStringLiteral("not an FM frequency");
}

void TestRadioTunerSim::badArguments()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    QByteArray out, err;
    args << QStringLiteral("--name") << uniqueName("bad");
    QCOMPARE(runToEnd(args, &out, &err), exitCode);
    QVERIFY2(QString::fromUtf8(err).contains(message), err.constData());
}

// What an integrator does: start it with --trace, connect, send a few
// frames, read the records and the decoded lines.
void TestRadioTunerSim::drivenByHandWithTrace()
{
    const QString name = uniqueName("trace");
    Sim sim;
    QVERIFY(sim.start({QStringLiteral("--trace"), QStringLiteral("--name"), name, QStringLiteral("--time-scale"), QStringLiteral("50")}));
    SimClient client;
    QVERIFY(client.connectTo(name));
    QTRY_COMPARE(client.records.size(), 9);
    QTRY_COMPARE(sim.lines.filter(QRegularExpression(QStringLiteral("^-> "))).size(), 9);
    QVERIFY(sim.lines.filter(QStringLiteral("-> MCU_TUNE_INFO freq=")).size() == 1);

    QVERIFY(client.send(RC_STEP_UP));
    QVERIFY(client.send(99, 1));
    QVERIFY(client.send(RC_BAND, 4));
    QTRY_COMPARE(client.lastOf(MCU_TUNE_INFO).band, uint8_t(3));
    QTRY_VERIFY(!sim.lines.filter(QStringLiteral("<- RC_BAND(2) param=4 (AM1)")).isEmpty());
    const int step = sim.lines.indexOf(QStringLiteral("<- RC_STEP_UP(7) param=0"));
    QVERIFY(step > 0);
    QVERIFY(sim.lines.at(step + 1).startsWith(QStringLiteral("-> MCU_TUNE_INFO")));
    QCOMPARE(sim.lines.filter(QStringLiteral("<- ?(99) param=1")).size(), 1);
    QCOMPARE(sim.lines.filter(QStringLiteral("# !! unknown command code 99")).size(), 1);

    client.close();
    QTRY_VERIFY(!sim.lines.filter(QStringLiteral("# screen gone")).isEmpty());
    QCOMPARE(sim.process.state(), QProcess::Running);
}

void TestRadioTunerSim::lineupFile()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString csv = dir.filePath(QStringLiteral("lineup.csv"));
    QFile file(csv);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("freq,ps,pty,tp,rt,signal\n"
               "89.5,ONLY ONE,24,1,Just jazz,210\n"
               "123.4,NOWHERE,0,0,,100\n");
    file.close();
    const QString name = uniqueName("lineup");
    Sim sim;
    QVERIFY(sim.start({QStringLiteral("--trace"), QStringLiteral("--name"), name, QStringLiteral("--lineup"), csv,
                       QStringLiteral("--time-scale"), QStringLiteral("100")}));
    QVERIFY(!sim.lines.filter(QStringLiteral("line 3: 123.40 MHz is outside the band plan")).isEmpty());
    SimClient client;
    QVERIFY(client.connectTo(name));
    QTRY_COMPARE(client.records.size(), 9);
    QCOMPARE(client.lastOf(MCU_TUNE_INFO).freq, 8950u);
    QCOMPARE(ps(client.lastOf(MCU_PS_NAME)), QByteArray("ONLY ONE"));
    QCOMPARE(int(client.lastOf(MCU_PTY).pty), 24);
    QCOMPARE(int(client.lastOf(MCU_SIGNAL).signal), 210);
    // The only station: seek goes round the band back to it.
    client.records.clear();
    QVERIFY(client.send(RC_SEEK_UP));
    QTRY_COMPARE(client.lastOf(MCU_PS_NAME).cmd, uint32_t(MCU_PS_NAME));
    QTRY_COMPARE(ps(client.lastOf(MCU_PS_NAME)), QByteArray("ONLY ONE"));
    QCOMPARE(client.lastOf(MCU_TUNE_INFO).freq, 8950u);
}

void TestRadioTunerSim::replayedLog()
{
    const QString log = sharedFile(QStringLiteral("walczakp-rds-spy-logs/Finland/6403_-_2018-09-05_15-15-59_FI_HE_YLESUOMI.rds"));
    if (log.isEmpty())
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    const QString name = uniqueName("rds");
    Sim sim;
    QVERIFY(sim.start({QStringLiteral("--trace"), QStringLiteral("--name"), name, QStringLiteral("--rds"),
                       QStringLiteral("94.0=") + log, QStringLiteral("--rds-speed"), QStringLiteral("40")}));
    QVERIFY(!sim.lines.filter(QStringLiteral("4990 groups on 94.00 MHz")).isEmpty());
    SimClient client;
    QVERIFY(client.connectTo(name));
    QVERIFY(client.send(RC_SET_FREQ, 9400));
    QTRY_COMPARE_WITH_TIMEOUT(ps(client.lastOf(MCU_PS_NAME)), QByteArray("YLE HKI "), 20000);
    // RDS 0x91 is ä: the radio text arrives as UTF-8.
    QTRY_VERIFY_WITH_TIMEOUT(QString::fromUtf8(reinterpret_cast<const char*>(client.lastOf(MCU_RADIO_TEXT).radioText))
                                 .startsWith(QString::fromUtf8("Radio Suomen Iltapäivä")), 20000);
    QCOMPARE(int(client.lastOf(MCU_PTY).pty), 2);
    QVERIFY(!sim.lines.filter(QString::fromUtf8("-> MCU_RADIO_TEXT text=\"Radio Suomen Iltapäivä")).isEmpty());
}

QTEST_GUILESS_MAIN(TestRadioTunerSim)
#include "tst_radiotunersim.moc"
