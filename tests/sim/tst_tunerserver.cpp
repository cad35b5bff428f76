#include "RadioCmdToMCU.h"
#include "SimClient.h"
#include "TunerEngine.h"
#include "TunerServer.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

Station station(uint32_t freq, const char* ps, uint8_t pty, uint8_t signal)
{
    Station s;
    s.freq = freq;
    s.ps = QByteArray(ps, 8);
    s.pty = pty;
    s.signal = signal;
    s.radioText = QByteArray(ps).trimmed() + " on air";
    return s;
}

StationList lineup()
{
    StationList list(12);
    list.insert(station(8800, "ALPHA   ", 10, 150));
    list.insert(station(9500, "CHARLIE ", 3, 200));
    list.insert(station(10000, "ALPHA   ", 10, 120));   // same network, other frequency
    list.insert(station(603, "        ", 0, 140));
    return list;
}

const QList<uint32_t> kWholeState = {MCU_TUNE_INFO, MCU_PRESET_FREQ, MCU_PRESET_PS, MCU_PTY, MCU_PS_NAME,
                                     MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_SIGNAL, MCU_FAVOURITE};

QString socketName(const char* test)
{
    return QStringLiteral("kestrelhub-test-%1-%2").arg(::getpid()).arg(QLatin1String(test));
}

QByteArray frame(uint32_t code, uint32_t param = 0)
{
    const RadioCmdToMCU f{code, param};
    return QByteArray(reinterpret_cast<const char*>(&f), sizeof f);
}

QString sharedFile(const QString& relative)
{
    const QByteArray root = qgetenv("RADIO_SHARED_DATA");
    if (root.isEmpty())
        return QString();
    const QString path = QString::fromLocal8Bit(root) + QStringLiteral("/rds/") + relative;
    return QFile::exists(path) ? path : QString();
}

} // namespace

class TestTunerServer : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void wholeStateOnConnect();
    void afterwardsOnlyChanges();
    void commandResendsRecords_data();
    void commandResendsRecords();
    void framesSplitAcrossWrites_data();
    void framesSplitAcrossWrites();
    void junkFramesAreIgnored();
    void clientVanishingMidFrameLeavesNoTrace();
    void newConnectionReplacesOld();
    void seekOverTheSocket();
    void nameAlreadyTaken();
    void replayedLogOverTheSocket();

private:
    std::unique_ptr<TunerEngine> m_engine;
    std::unique_ptr<TunerServer> m_server;
    QStringList m_log;
    QString m_name;

    bool start(const StationList& list = lineup());
    bool connectClient(SimClient& client, int expectRecords = kWholeState.size());
};

void TestTunerServer::init()
{
    m_log.clear();
    m_name = socketName(QTest::currentTestFunction());
}

void TestTunerServer::cleanup()
{
    m_server.reset();
    m_engine.reset();
}

bool TestTunerServer::start(const StationList& list)
{
    m_engine = std::make_unique<TunerEngine>(list, 1);
    m_engine->setTimeScale(1000);
    m_server = std::make_unique<TunerServer>(m_engine.get());
    m_server->setLogSink([this](const QString& line) { m_log << line; });
    QString error;
    const bool ok = m_server->listen(m_name, &error);
    if (!ok)
        qWarning() << error;
    return ok;
}

bool TestTunerServer::connectClient(SimClient& client, int expectRecords)
{
    if (!client.connectTo(m_name))
        return false;
    return QTest::qWaitFor([&] { return client.records.size() >= expectRecords; }, 5000);
}

void TestTunerServer::wholeStateOnConnect()
{
    QVERIFY(start());
    SimClient client;
    QSignalSpy connected(m_server.get(), &TunerServer::clientConnected);
    QVERIFY(connectClient(client));
    QCOMPARE(connected.count(), 1);
    QCOMPARE(client.kinds(), kWholeState);
    for (const tag_RadioCmdFromMCU& r : client.records) {
        const tag_RadioCmdFromMCU expected = m_engine->record(r.cmd);
        QVERIFY2(std::memcmp(&r, &expected, sizeof r) == 0, qPrintable(QString::number(r.cmd)));
    }
    const tag_RadioCmdFromMCU info = client.lastOf(MCU_TUNE_INFO);
    QCOMPARE(info.freq, 8800u);
    QCOMPARE(info.preset, uint8_t(1));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(client.lastOf(MCU_PS_NAME).psName), 8), QByteArray("ALPHA   "));
    QCOMPARE(client.partialBytes(), 0);
}

void TestTunerServer::afterwardsOnlyChanges()
{
    QVERIFY(start());
    SimClient client;
    QVERIFY(connectClient(client));
    client.records.clear();
    // AF is on already: no record. Then TA on: one flags record.
    QVERIFY(client.send(RC_AF, 1));
    QVERIFY(client.send(RC_TA, 1));
    QTRY_COMPARE(client.records.size(), 1);
    QCOMPARE(client.records.first().cmd, uint32_t(MCU_RDS_FLAGS));
    QVERIFY(client.records.first().rdsFlags & RDS_FLAG_TA);
    QVERIFY(client.send(RC_FAVOR));
    QTRY_COMPARE(client.records.size(), 2);
    QCOMPARE(client.records.last().cmd, uint32_t(MCU_FAVOURITE));
}

// What a command makes the server send: a new frequency clears the name and
// PTY on the screen, so they come again even when equal; a new band adds
// its presets and RDS state; a refused frequency resends everything.
void TestTunerServer::commandResendsRecords_data()
{
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<uint32_t>("param");
    QTest::addColumn<QList<uint32_t>>("kinds");
    QTest::addColumn<uint32_t>("freq");
    QTest::newRow("new frequency") << uint32_t(RC_SET_FREQ) << 10000u
                                   << QList<uint32_t>{MCU_TUNE_INFO, MCU_PTY, MCU_PS_NAME, MCU_SIGNAL} << 10000u;
    QTest::newRow("new band") << uint32_t(RC_BAND) << 4u
                              << QList<uint32_t>{MCU_TUNE_INFO, MCU_PRESET_FREQ, MCU_PRESET_PS, MCU_PTY, MCU_PS_NAME,
                                                 MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_SIGNAL}
                              << 603u;
    QTest::newRow("refused frequency") << uint32_t(RC_SET_FREQ) << 10810u << kWholeState << 8800u;
}

void TestTunerServer::commandResendsRecords()
{
    QFETCH(uint32_t, code);
    QFETCH(uint32_t, param);
    QFETCH(QList<uint32_t>, kinds);
    QFETCH(uint32_t, freq);
    QVERIFY(start());
    SimClient client;
    QVERIFY(connectClient(client));
    client.records.clear();
    QVERIFY(client.send(code, param));
    QTRY_COMPARE(client.kinds(), kinds);
    QCOMPARE(client.records.first().freq, freq);
}

void TestTunerServer::framesSplitAcrossWrites_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::newRow("3+5") << QList<int>{3};
    QTest::newRow("byte by byte") << QList<int>{1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("7+1") << QList<int>{7};
    QTest::newRow("across two frames") << QList<int>{5, 11};
}

void TestTunerServer::framesSplitAcrossWrites()
{
    QFETCH(QList<int>, cuts);
    QVERIFY(start());
    SimClient client;
    QVERIFY(connectClient(client));
    client.records.clear();
    const QByteArray bytes = frame(RC_STEP_UP) + frame(RC_STEP_UP);
    int from = 0;
    for (int cut : cuts) {
        QVERIFY(client.sendRaw(bytes.mid(from, cut - from)));
        // The server holds the piece before the next one is written.
        QTRY_COMPARE(m_server->pendingFrameBytes(), cut % 8);
        from = cut;
    }
    QVERIFY(client.sendRaw(bytes.mid(from)));
    QTRY_COMPARE(client.lastOf(MCU_TUNE_INFO).freq, 8810u);
    QCOMPARE(m_engine->frequency(), 8810u);
}

void TestTunerServer::junkFramesAreIgnored()
{
    QVERIFY(start());
    SimClient client;
    QVERIFY(connectClient(client));
    client.records.clear();
    QRandomGenerator rng(42);
    QByteArray junk;
    for (int i = 0; i < 500; ++i) {
        // Codes the protocol leaves unused, with any argument.
        uint32_t code = rng.generate();
        if (code < 256)
            code = 23 + code % 200;
        junk += frame(code, rng.generate());
    }
    QVERIFY(client.sendRaw(junk));
    QVERIFY(client.send(RC_REQUEST_LIST));
    QTRY_COMPARE(client.kinds(), kWholeState);
    QCOMPARE(m_log.filter(QStringLiteral("unknown command code")).size(), 500);
    QCOMPARE(client.records.first().freq, 8800u);
}

void TestTunerServer::clientVanishingMidFrameLeavesNoTrace()
{
    QVERIFY(start());
    {
        SimClient first;
        QVERIFY(connectClient(first));
        QVERIFY(first.sendRaw(frame(RC_BAND, 4).left(5)));
        QSignalSpy gone(m_server.get(), &TunerServer::clientDisconnected);
        first.close();
        QVERIFY(gone.wait(5000));
    }
    QVERIFY(!m_server->hasClient());
    QCOMPARE(m_log.filter(QStringLiteral("5 bytes of an unfinished frame dropped")).size(), 1);
    SimClient second;
    QVERIFY(connectClient(second));
    QCOMPARE(second.kinds(), kWholeState);
    second.records.clear();
    QVERIFY(second.send(RC_STEP_UP));
    QTRY_COMPARE(second.lastOf(MCU_TUNE_INFO).freq, 8805u);
    QCOMPARE(m_engine->band(), uint8_t(0));
}

void TestTunerServer::newConnectionReplacesOld()
{
    QVERIFY(start());
    SimClient first;
    QVERIFY(connectClient(first));
    SimClient second;
    QVERIFY(connectClient(second));
    QTRY_VERIFY(first.isClosedByPeer());
    QCOMPARE(second.kinds(), kWholeState);
    second.records.clear();
    QVERIFY(second.send(RC_STEP_DOWN));
    QTRY_COMPARE(second.lastOf(MCU_TUNE_INFO).freq, 8795u);
    QVERIFY(!first.send(RC_STEP_DOWN) || first.isClosedByPeer());
    QCOMPARE(m_engine->frequency(), 8795u);
}

void TestTunerServer::seekOverTheSocket()
{
    QVERIFY(start());
    SimClient client;
    QVERIFY(connectClient(client));
    client.records.clear();
    QVERIFY(client.send(RC_SEEK_UP));
    QTRY_COMPARE(client.lastOf(MCU_TUNE_INFO).freq, 9500u);
    QList<uint32_t> freqs;
    for (const tag_RadioCmdFromMCU& r : client.records) {
        if (r.cmd == MCU_TUNE_INFO)
            freqs << r.freq;
    }
    // A few frequencies on the way up, then the station.
    QVERIFY(freqs.size() >= 3);
    for (int i = 1; i < freqs.size(); ++i)
        QVERIFY(freqs.at(i) > freqs.at(i - 1) && freqs.at(i) <= 9500u);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(client.lastOf(MCU_PS_NAME).psName), 8), QByteArray("CHARLIE "));
}

void TestTunerServer::nameAlreadyTaken()
{
    QVERIFY(start());
    TunerEngine engine(lineup(), 1);
    TunerServer second(&engine);
    QString error;
    QVERIFY(!second.listen(m_name, &error));
    QVERIFY(error.contains(m_name));
}

// A recorded log attached to a frequency: tuned there, the screen gets
// the PS and radio text RDS Spy reported for the same session.
void TestTunerServer::replayedLogOverTheSocket()
{
    const QString log = sharedFile(QStringLiteral("walczakp-rds-spy-logs/Czech_Republic/2205_-_2020-08-21_17-36-12.spy"));
    if (log.isEmpty())
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    auto groups = QSharedPointer<RdsLog>::create();
    QString error;
    QVERIFY2(groups->load(log, &error), qPrintable(error));
    StationList list = lineup();
    QVERIFY(list.attachRdsLog(9340, groups));
    QVERIFY(start(list));
    m_engine->setRdsSpeed(20);
    SimClient client;
    QVERIFY(connectClient(client));
    QVERIFY(client.send(RC_SET_FREQ, 9340));
    QTRY_COMPARE_WITH_TIMEOUT(QByteArray(reinterpret_cast<const char*>(client.lastOf(MCU_PS_NAME).psName), 8),
                              QByteArray("RADIO F1"), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(QByteArray(reinterpret_cast<const char*>(client.lastOf(MCU_RADIO_TEXT).radioText)),
                              QByteArray("KRYSTOF - Zustan tu se mnou (Za sny)"), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(int(client.lastOf(MCU_PTY).pty), 10, 10000);
    QVERIFY(client.lastOf(MCU_RDS_FLAGS).rdsFlags & RDS_FLAG_TP);
}

QTEST_GUILESS_MAIN(TestTunerServer)
#include "tst_tunerserver.moc"
