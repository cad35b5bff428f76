// radio-tunersim as an integrator runs it: options and exit codes; on the
// socket the whole state on connect and on a list request, afterwards only
// what changed, however the frames are cut; the trace; line-ups, regions,
// replayed RDS logs and replayed captures of the link.
#include "PcapngWriter.h"
#include "RadioCmdToMCU.h"
#include "SimClient.h"
#include "TunerSimProcess.h"

#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {

const QList<uint32_t> kWholeState = {MCU_TUNE_INFO, MCU_PRESET_FREQ, MCU_PRESET_PS, MCU_PTY, MCU_PS_NAME,
                                     MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_SIGNAL, MCU_FAVOURITE};
const QList<uint32_t> kNewFrequency = {MCU_TUNE_INFO, MCU_PTY, MCU_PS_NAME, MCU_SIGNAL};

QByteArray frame(uint32_t code, uint32_t param = 0)
{
    const RadioCmdToMCU f{code, param};
    return QByteArray(reinterpret_cast<const char*>(&f), sizeof f);
}

// Records (direction 0, 584 bytes) and frames (1, 8) of the given sizes, as
// the link writes them.
QString writeCapture(const QString& path, const QList<QPair<int, int>>& packets)
{
    PcapngWriter writer;
    writer.open(path.toStdString(), nullptr);
    const QByteArray bytes(584, '\0');
    for (const auto& p : packets)
        writer.writePacket(1700000000000000, PcapngWriter::Direction(p.first), bytes.constData(), size_t(p.second));
    writer.close(0, 0);
    return path;
}

QString uniqueName()
{
    static int counter = 0;
    return QStringLiteral("kestrelhub-sim-%1-%2").arg(::getpid()).arg(++counter);
}

} // namespace

class TestRadioTunerSim : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void commandLine_data();
    void commandLine();
    void answers_data();
    void answers();
    void startsAsConfigured_data();
    void startsAsConfigured();
    void replaysCapture();

private:
    QTemporaryDir m_dir;
    TunerSimProcess m_sim;
    QString m_name = uniqueName();
};

void TestRadioTunerSim::initTestCase()
{
    QFile csv(m_dir.filePath("lineup.csv"));
    QVERIFY(csv.open(QIODevice::WriteOnly));
    csv.write("88.0,ALPHA,10,0,Iltap\\x91iv\\x91 jazz,150\n123.4,NOWHERE,0,0,,100\n95.0,CHARLIE,3,1,,200\n603,,0,0,,150\n");
    csv.close();
    QVERIFY(m_sim.start({"--name", m_name, "--lineup", csv.fileName(), "--time-scale", "100"}));
    QVERIFY(!m_sim.lines.filter("line 2: 123.40 MHz").isEmpty());
}

void TestRadioTunerSim::commandLine_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");
    QTest::newRow("unknown option") << QStringList{"--bogus"} << 2 << "unknown option --bogus";
    QTest::newRow("region") << QStringList{"--region", "24"} << 2 << "--region must be 0-23";
    QTest::newRow("speed") << QStringList{"--rds-speed", "0"} << 2 << "--rds-speed must be a positive number";
    QTest::newRow("missing log") << QStringList{"--rds", "96.7=/nonexistent.spy"} << 1 << "cannot read /nonexistent.spy";
    QTest::newRow("log on AM") << QStringList{"--rds", "999=" RADIO_TUNERSIM_BIN} << 1 << "not an FM frequency";
    QTest::newRow("name taken") << QStringList{"--name", m_name} << 1 << m_name;
    QTest::newRow("no capture") << QStringList{"--replay", RADIO_TUNERSIM_BIN} << 1 << "not a pcap or pcapng capture";
    const auto capture = [this](const char* name, const QList<QPair<int, int>>& packets) {
        return QStringList{"--replay", writeCapture(m_dir.filePath(name), packets)};
    };
    QFile cut(capture("cut", {{0, 584}, {1, 8}}).last()), linkType(capture("link", {{0, 584}}).last());
    QVERIFY(cut.resize(cut.size() - 10) && linkType.open(QIODevice::ReadWrite));
    QByteArray bytes = linkType.readAll();
    bytes[qFromUnaligned<quint32>(bytes.constData() + 4) + 8] = 1;  // the interface block follows the header
    QVERIFY(linkType.seek(0) && linkType.write(bytes) == bytes.size());
    QTest::newRow("capture cut short") << QStringList{"--replay", cut.fileName()} << 1 << "truncated";
    QTest::newRow("capture of another link") << QStringList{"--replay", linkType.fileName()} << 1 << "link type 1, not 147";
    QTest::newRow("capture empty") << QStringList{"--replay", "/dev/null"} << 1 << "empty file";
    QTest::newRow("record size") << capture("record", {{0, 584}, {0, 583}}) << 1 << "packet 2: a status record of 583 bytes";
    QTest::newRow("frame size") << capture("frame", {{0, 584}, {1, 584}}) << 1 << "a command frame of 584 bytes";
    QTest::newRow("direction byte") << capture("direction", {{2, 8}, {0, 584}}) << 1 << "packet 1: direction byte 2";
    QTest::newRow("frames only") << capture("frames", {{1, 8}}) << 1 << "no status records";
    QTest::newRow("capture and line-up") << QStringList{"--replay", "x", "--lineup", "y"} << 2 << "--lineup does not go with --replay";
}

void TestRadioTunerSim::commandLine()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, says);
    QProcess sim;
    sim.start(RADIO_TUNERSIM_BIN, args.contains("--name") ? args : args << "--name" << uniqueName());
    QVERIFY(sim.waitForFinished(10000));
    QCOMPARE(sim.exitCode(), exitCode);
    const QString output = QString::fromUtf8(sim.readAllStandardOutput() + sim.readAllStandardError());
    QVERIFY2(output.contains(says), qPrintable(output));
}

// In order, each from a new connection, which takes over from the last:
// the writes, the trace of what came in, the kinds that came back and the
// frequency of the last tune info.
void TestRadioTunerSim::answers_data()
{
    QTest::addColumn<QList<QByteArray>>("writes");
    QTest::addColumn<QStringList>("trace");
    QTest::addColumn<QList<uint32_t>>("kinds");
    QTest::addColumn<uint32_t>("freq");
    const QByteArray steps = frame(RC_STEP_UP) + frame(RC_STEP_UP);
    QTest::newRow("AF already on, TA on") << QList<QByteArray>{frame(RC_AF, 1) + frame(RC_TA, 1)}
                                         << QStringList{"<- RC_AF(10) param=1", "<- RC_TA(11) param=1"}
                                         << QList<uint32_t>{MCU_RDS_FLAGS} << 0u;
    QTest::newRow("favourite") << QList<QByteArray>{frame(RC_FAVOR)} << QStringList{"<- RC_FAVOR(20) param=0"}
                               << QList<uint32_t>{MCU_FAVOURITE} << 0u;
    QTest::newRow("new frequency") << QList<QByteArray>{frame(RC_SET_FREQ, 9500)}
                                   << QStringList{"<- RC_SET_FREQ(17) param=9500 (95.00 MHz)"}
                                   << QList<uint32_t>{MCU_TUNE_INFO, MCU_PTY, MCU_PS_NAME, MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_SIGNAL} << 9500u;
    QTest::newRow("new band") << QList<QByteArray>{frame(RC_BAND, 4)} << QStringList{"<- RC_BAND(2) param=4 (AM1)"}
                              << kWholeState.mid(0, 8) << 603u;
    QTest::newRow("band remembers") << QList<QByteArray>{frame(RC_BAND, 1)} << QStringList{"<- RC_BAND(2) param=1 (FM1)"}
                                    << kWholeState.mid(0, 8) << 9500u;
    QTest::newRow("refused frequency") << QList<QByteArray>{frame(RC_SET_FREQ, 10810)}
                                       << QStringList{"<- RC_SET_FREQ(17) param=10810 (108.10 MHz)", "# !!"} << kWholeState << 9500u;
    QTest::newRow("unknown code") << QList<QByteArray>{frame(99, 1) + frame(RC_REQUEST_LIST)}
                                  << QStringList{"<- ?(99) param=1", "# !!", "<- RC_REQUEST_LIST(255) param=0"}
                                  << kWholeState << 9500u;
    QTest::newRow("cut 3+5") << QList<QByteArray>{steps.left(3), steps.mid(3)}
                             << QStringList{"<- RC_STEP_UP(7) param=0", "<- RC_STEP_UP(7) param=0"}
                             << QList<uint32_t>{MCU_TUNE_INFO, MCU_PTY, MCU_PS_NAME, MCU_RDS_FLAGS, MCU_SIGNAL} + kNewFrequency << 9510u;
    QTest::newRow("cut across frames") << QList<QByteArray>{steps.left(5), steps.mid(5, 6), steps.mid(11)}
                                       << QStringList{"<- RC_STEP_UP(7) param=0", "<- RC_STEP_UP(7) param=0"}
                                       << kNewFrequency + kNewFrequency << 9520u;
}

void TestRadioTunerSim::answers()
{
    QFETCH(QList<QByteArray>, writes);
    QFETCH(QStringList, trace);
    QFETCH(QList<uint32_t>, kinds);
    QFETCH(uint32_t, freq);
    const int before = m_sim.count("-> ");
    SimClient client;
    QVERIFY(client.connectTo(m_name));
    QTRY_COMPARE(client.kinds(), kWholeState);
    QVERIFY(m_sim.waitFor("-> ", before + kWholeState.size()));
    const int from = m_sim.lines.size();
    client.records.clear();
    for (const QByteArray& bytes : writes)
        QVERIFY(client.write(bytes) == bytes.size() && client.waitForBytesWritten(1000));
    QTRY_COMPARE(client.kinds(), kinds);
    const auto info = std::find_if(client.records.crbegin(), client.records.crend(),
                                   [](const tag_RadioCmdFromMCU& r) { return r.cmd == MCU_TUNE_INFO; });
    QCOMPARE(info == client.records.crend() ? 0u : info->freq, freq);
    QTRY_COMPARE(m_sim.lines.mid(from).filter(QRegularExpression("^-> ")).size(), kinds.size());
    // Lines of refused input only by their mark: their wording is free.
    const QStringList received = m_sim.lines.mid(from).filter(QRegularExpression("^(<- |# !!)")).replaceInStrings(QRegularExpression("^# !!.*"), "# !!");
    if (!trace.isEmpty())
        QCOMPARE(received, trace);
}

// A simulator of its own: what the screen gets on connect, or once tuned
// to a replayed log: "freq name|PTY|radio text".
void TestRadioTunerSim::startsAsConfigured_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<uint32_t>("tuneTo");
    QTest::addColumn<QString>("expected");
    const QString rds = qEnvironmentVariable("RADIO_SHARED_DATA") + "/rds/walczakp-rds-spy-logs/";
    QTest::newRow("line-up file") << QStringList{"--lineup", m_dir.filePath("lineup.csv")} << 0u
                                  << QString::fromUtf8("8800 ALPHA   |10|Iltapäivä jazz");
    QTest::newRow("region 9") << QStringList{"--region", "9"} << 7001u << "7001 ";
    QTest::newRow("spy log") << QStringList{"--rds", "93.4=" + rds + "Czech_Republic/2205_-_2020-08-21_17-36-12.spy"} << 9340u
                             << "9340 RADIO F1|10|KRYSTOF - Zustan tu se mnou (Za sny)";
    QTest::newRow("the 94.0 section of a log") << QStringList{"--rds", "94.0=" + rds + "Finland/6403_-_2018-09-05_15-15-59_FI_HE_YLESUOMI.rds"}
                                               << 9400u << QString::fromUtf8("9400 YLE HKI |2|Radio Suomen Iltapäivä");
}

void TestRadioTunerSim::startsAsConfigured()
{
    QFETCH(QStringList, args);
    QFETCH(uint32_t, tuneTo);
    QFETCH(QString, expected);
    if (args.first() == "--rds" && !QFile::exists(args.last().section('=', 1)))
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    const QString name = uniqueName();
    TunerSimProcess sim;
    QVERIFY(sim.start(args << "--name" << name << "--rds-speed" << "40"));
    SimClient client;
    QVERIFY(client.connectTo(name));
    QTRY_COMPARE(client.records.size(), kWholeState.size());
    if (tuneTo)
        QVERIFY(client.send(RC_SET_FREQ, tuneTo));
    const auto shown = [&] {
        tag_RadioCmdFromMCU last[MCU_RADIO_TEXT + 1] = {};
        for (const tag_RadioCmdFromMCU& r : client.records)
            last[r.cmd <= MCU_RADIO_TEXT ? r.cmd : MCU_PRESET_FREQ] = r;
        return QStringLiteral("%1 %2|%3|%4").arg(last[MCU_TUNE_INFO].freq)
            .arg(QString::fromLatin1(reinterpret_cast<const char*>(last[MCU_PS_NAME].psName), 8)).arg(last[MCU_PTY].pty)
            .arg(QString::fromUtf8(reinterpret_cast<const char*>(last[MCU_RADIO_TEXT].radioText)));
    };
    QTRY_COMPARE_WITH_TIMEOUT(shown().left(expected.size()), expected, 20000);
}

// Records 5 s and 3 s apart, frames between them, played ten times faster:
// a screen takes one and leaves, the next gets the rest at the capture's
// pace, then the simulator is done.
void TestRadioTunerSim::replaysCapture()
{
    const QString path = m_dir.filePath("session.pcapng");
    PcapngWriter writer;
    QVERIFY(writer.open(path.toStdString(), nullptr));
    for (const uint64_t at : {0, 5000000, 8000000}) {
        tag_RadioCmdFromMCU record{};
        record.freq = 9000 + uint32_t(at / 100000);
        const RadioCmdToMCU seek{RC_SEEK_UP, 0};
        QVERIFY(writer.writePacket(at, PcapngWriter::FromService, &record, sizeof record)
                && writer.writePacket(at, PcapngWriter::ToService, &seek, sizeof seek));
    }
    writer.close(0, 0);
    const QString name = uniqueName();
    TunerSimProcess sim;
    QVERIFY(sim.start({"--name", name, "--replay", path, "--replay-speed", "10"}));
    {
        SimClient first;
        QVERIFY(first.connectTo(name));
        QTRY_COMPARE(first.records.size(), 1);
        QCOMPARE(first.records.first().freq, 9000u);
    }
    SimClient client;
    QVERIFY(client.connectTo(name) && client.send(RC_SCAN));
    QTRY_COMPARE(client.records.size(), 1);
    QElapsedTimer clock;
    clock.start();
    QTRY_COMPARE(client.records.size(), 2);
    // 300 ms at ten times the pace; 3 s if the speed were lost.
    QVERIFY2(clock.elapsed() >= 200 && clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(client.records.at(0).freq == 9050u && client.records.at(1).freq == 9080u);
    QTRY_COMPARE(sim.process.state(), QProcess::NotRunning);
    QCOMPARE(sim.process.exitCode(), 0);
    QVERIFY(sim.lines.contains("<- RC_SCAN(9) param=0"));
}

QTEST_GUILESS_MAIN(TestRadioTunerSim)
#include "tst_radiotunersim.moc"
