#include "FakeTunerService.h"
#include "ModuleManager.h"
#include "OutputCapture.h"
#include "ProtocolComm.h"
#include "RadioModule.h"
#include "RecordingController.h"
#include "RadioCmdMetaType.h"

#include <QtTest>

#include <fcntl.h>
#include <pcap/pcap.h>
#include <sys/stat.h>

#include <cerrno>
#include <deque>
#include <mutex>
#include <cstring>
#include <memory>
#include <random>

namespace {

struct Command {
    const char* name;
    void (*send)(ProtocolComm*);
    const char* frames;        // "code,param" separated by spaces
    const char* connectedLog;  // lines separated by '|'
    const char* failedLog;
};

const char kFail[] = "Radio send data fail.";
RadioCmdToMCU data[3] = {{100, 1}, {101, 2}, {102, 3}};

const Command kCommands[] = {
    {"Tuner_Preset(7, false)", [](ProtocolComm* l) { l->Tuner_Preset(7, false); }, "0,7", "", ""},
    {"Tuner_Preset(7, true)", [](ProtocolComm* l) { l->Tuner_Preset(7, true); }, "1,7", "", ""},
    {"Tuner_Band(255)", [](ProtocolComm* l) { l->Tuner_Band(255); }, "2,255", "", ""},
    {"Tuner_AutoSearch", [](ProtocolComm* l) { l->Tuner_AutoSearch(); }, "3,0", "", kFail},
    {"Tuner_PS", [](ProtocolComm* l) { l->Tuner_PS(); }, "4,0", "", kFail},
    {"Tuner_SeekUp", [](ProtocolComm* l) { l->Tuner_SeekUp(); }, "5,0", "RC_SEEK_UP|RC_SEEK_UP success",
     "RC_SEEK_UP|Radio send data fail."},
    {"Tuner_SeekDown", [](ProtocolComm* l) { l->Tuner_SeekDown(); }, "6,0", "", kFail},
    {"Tuner_StepUp", [](ProtocolComm* l) { l->Tuner_StepUp(); }, "7,0", "", ""},
    {"Tuner_StepDown", [](ProtocolComm* l) { l->Tuner_StepDown(); }, "8,0", "", ""},
    {"Tuner_Scan", [](ProtocolComm* l) { l->Tuner_Scan(); }, "9,0", "", kFail},
    {"Tuner_AFOnOff", [](ProtocolComm* l) { l->Tuner_AFOnOff(true), l->Tuner_AFOnOff(false); }, "10,1 10,0", "", ""},
    {"Tuner_TAOnOff", [](ProtocolComm* l) { l->Tuner_TAOnOff(true), l->Tuner_TAOnOff(false); }, "11,1 11,0", "", ""},
    {"Tuner_DxLoc", [](ProtocolComm* l) { l->Tuner_DxLoc(true), l->Tuner_DxLoc(false); }, "12,1 12,0", "", ""},
    {"Tuner_PTYSelected(31)", [](ProtocolComm* l) { l->Tuner_PTYSelected(31); }, "13,31", "", ""},
    {"Tuner_REGOnOff", [](ProtocolComm* l) { l->Tuner_REGOnOff(true), l->Tuner_REGOnOff(false); }, "14,1 14,0", "", ""},
    {"Tuner_RDSOnOff", [](ProtocolComm* l) { l->Tuner_RDSOnOff(true), l->Tuner_RDSOnOff(false); }, "15,1 15,0", "", ""},
    {"Tuner_SetFreq(65535)", [](ProtocolComm* l) { l->Tuner_SetFreq(65535); }, "17,65535", "", ""},
    {"Tuner_PTYSeek", [](ProtocolComm* l) { l->Tuner_PTYSeek(); }, "18,0", "", ""},
    {"Tuner_Favor", [](ProtocolComm* l) { l->Tuner_Favor(); }, "20,0", "", ""},
    {"Tuner_PresetUp", [](ProtocolComm* l) { l->Tuner_PresetUp(); }, "21,0", "", ""},
    {"Tuner_PresetDown", [](ProtocolComm* l) { l->Tuner_PresetDown(); }, "22,0", "", ""},
    {"Tuner_Request_list", [](ProtocolComm* l) { l->Tuner_Request_list(); }, "255,0", "", ""},
    {"SendData of nothing", [](ProtocolComm* l) { l->SendData(data, 0), l->SendData(data, -8); }, "", "", ""},
    {"SendData of three frames", [](ProtocolComm* l) { l->SendData(data, 24); }, "100,1 101,2 102,3", "", ""},
};

// No command sends this frame: it closes what a test sent before it.
const RadioCmdToMCU kMarker{0xA5A5A5A5u, 0x5A5A5A5Au};

QStringList lines(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

// A record of the given kind, every other byte drawn from the seed.
tag_RadioCmdFromMCU record(uint32_t cmd, uint32_t seed)
{
    tag_RadioCmdFromMCU r;
    std::mt19937 rng(seed);
    for (size_t i = 0; i < sizeof r; ++i)
        reinterpret_cast<unsigned char*>(&r)[i] = static_cast<unsigned char>(rng());
    r.cmd = cmd;
    return r;
}

bool same(const tag_RadioCmdFromMCU& a, const tag_RadioCmdFromMCU& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

class tst_ProtocolComm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void start_data();
    void start();
    void command_data();
    void command();
    void handOver_data();
    void handOver();
    void reconnect_data();
    void reconnect();
    void backoff();

    // Backpressure and hardening (definitions at the end of the file).
    void queuedHandOver_data();
    void queuedHandOver();
    void recordWithoutSourceIsZero();
    void fullSocketFailsAtOnce();

    // The capture of the link's traffic.
    void capture_data();
    void capture();

private:
    ProtocolComm* startLink(bool serviceUp);
    // Frames sent since the last call, up to the marker.
    std::vector<RadioCmdToMCU> sentFrames(ProtocolComm* link);

    std::unique_ptr<FakeTunerService> m_service;
    std::unique_ptr<RecordingController> m_controller;
    std::unique_ptr<RadioModule> m_module;
};

void tst_ProtocolComm::init()
{
    m_service.reset(new FakeTunerService);
    m_controller.reset(new RecordingController);
}

void tst_ProtocolComm::cleanup()
{
    m_pTuner = nullptr;
    ProtocolComm::DeleteInstance();
    hvappframework::ModuleManager::self()->removeModule(QStringLiteral("radio"));
    m_module.reset();
    m_service.reset();
}

ProtocolComm* tst_ProtocolComm::startLink(bool serviceUp)
{
    if (serviceUp && !m_service->start())
        return nullptr;
    ProtocolComm* link = ProtocolComm::GetInstance();
    link->Start();
    return !serviceUp || m_service->waitForClient() ? link : nullptr;
}

std::vector<RadioCmdToMCU> tst_ProtocolComm::sentFrames(ProtocolComm* link)
{
    RadioCmdToMCU marker = kMarker;
    link->SendData(&marker, sizeof marker);
    std::vector<RadioCmdToMCU> frames;
    for (size_t n = 1; m_service->waitForFrames(n); ++n) {
        frames = m_service->frames();
        if (frames.back().code == kMarker.code && frames.back().param == kMarker.param)
            break;
    }
    m_service->clearFrames();
    if (!frames.empty())
        frames.pop_back();
    return frames;
}

void tst_ProtocolComm::start_data()
{
    QTest::addColumn<bool>("serviceUp");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<int>("connections");

    const QString size = QStringLiteral("Radio socket struct size: 110");
    QTest::newRow("service listening") << true << "start" << QStringList{size} << 1;
    QTest::newRow("service absent") << false << "start"
                                    << QStringList{size, QStringLiteral("=====>>>Radio ProtocolComm Start Error!")} << 0;
    QTest::newRow("a second start keeps the connection") << true << "start start" << QStringList{size} << 1;
    QTest::newRow("stop, then start again") << true << "start stop start"
                                            << QStringList{size, QStringLiteral("Radio ProtocolComm Stop"), size} << 2;
}

// The service sees the link's connections come from "/tmp/_tnlk".
void tst_ProtocolComm::start()
{
    QFETCH(bool, serviceUp);
    QFETCH(QString, calls);
    QFETCH(QStringList, log);
    QFETCH(int, connections);

    if (serviceUp)
        QVERIFY(m_service->start());
    OutputCapture out;
    ProtocolComm* link = ProtocolComm::GetInstance();
    for (const QString& call : calls.split(QLatin1Char(' '))) {
        if (call == QLatin1String("stop")) {
            link->Stop();
            QCOMPARE(link->getRun_Flag(), 0);
        } else {
            link->Start();
            QCOMPARE(link->getRun_Flag(), 1);
        }
    }
    QCOMPARE(out.lines(), log);
    if (!serviceUp)
        return;
    QVERIFY(m_service->waitForClient(connections - 1));
    QCOMPARE(sentFrames(link).size(), size_t(0));
    QCOMPARE(m_service->acceptedCount(), connections);
    QCOMPARE(QString::fromStdString(m_service->peerPath()), QStringLiteral("/tmp/_tnlk"));
}

void tst_ProtocolComm::command_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < sizeof kCommands / sizeof kCommands[0]; ++i)
        QTest::newRow(kCommands[i].name) << int(i);
}

// One frame per command while connected; the log once the service is gone.
void tst_ProtocolComm::command()
{
    QFETCH(int, index);
    const Command& c = kCommands[index];

    ProtocolComm* link = startLink(true);
    QVERIFY(link);
    {
        OutputCapture out;
        c.send(link);
        QCOMPARE(out.lines(), lines(c.connectedLog));
    }
    QStringList frames;
    for (const RadioCmdToMCU& f : sentFrames(link))
        frames << QStringLiteral("%1,%2").arg(f.code).arg(f.param);
    QCOMPARE(frames.join(QLatin1Char(' ')), QLatin1String(c.frames));

    {
        // The reader's own line comes at its own pace; it must not land
        // among the command's.
        OutputCapture lost;
        m_service->stop();
        QTRY_VERIFY(lost.lines().contains(QStringLiteral("Radio link lost, reconnecting")));
    }
    OutputCapture out;
    c.send(link);
    QCOMPARE(out.lines(), lines(c.failedLog));
}

void tst_ProtocolComm::handOver_data()
{
    QTest::addColumn<bool>("controller");
    QTest::addColumn<bool>("module");
    QTest::addColumn<QList<int>>("pieces");
    const QList<int> whole{584, 584, 584, 584, 584};
    QTest::newRow("controller first") << true << true << whole;
    QTest::newRow("host module without controller") << false << true << whole;
    QTest::newRow("neither: logged and dropped") << false << false << whole;
    QTest::newRow("pieces across record ends") << true << false << QList<int>{300, 584, 868, 1168};
}

// Every kind, known or not, is logged and handed on unchanged, and only as
// a whole record however its bytes arrive.
void tst_ProtocolComm::handOver()
{
    QFETCH(bool, controller);
    QFETCH(bool, module);
    QFETCH(QList<int>, pieces);

    if (module) {
        m_module.reset(new RadioModule);
        hvappframework::ModuleManager::self()->addModule(
            QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), m_module.get()));
    }
    if (controller)
        m_pTuner = m_controller.get();
    QVERIFY(startLink(true));

    const tag_RadioCmdFromMCU sent[5] = {record(MCU_TUNE_INFO, 1), record(MCU_PRESET_FREQ, 2), record(1, 3),
                                         record(37, 4), record(0xDEADBEEFu, 5)};
    OutputCapture out;
    const char* bytes = reinterpret_cast<const char*>(sent);
    for (int piece : pieces) {
        QVERIFY(m_service->write(bytes, size_t(piece)) && m_service->waitUntilConsumed());
        bytes += piece;
    }
    QStringList log;
    for (const tag_RadioCmdFromMCU& r : sent)
        log << QStringLiteral("New msg:0x%1 ").arg(r.cmd, 0, 16);
    QTRY_COMPARE(out.lines(), log);
    QList<tag_RadioCmdFromMCU> got;
    for (const tag_RadioCmdFromMCU& r : m_controller->waitFor(controller ? 5 : 0))
        got << r;
    if (module)
        QTRY_COMPARE(m_module->receivedCount(), controller ? 0 : 5);
    got += module ? m_module->receivedMsgs() : QList<tag_RadioCmdFromMCU>();
    QCOMPARE(got.size(), module || controller ? 5 : 0);
    for (int i = 0; i < got.size(); ++i)
        QVERIFY(same(got[i], sent[i]));
}

void tst_ProtocolComm::reconnect_data()
{
    QTest::addColumn<QString>("loss");
    QTest::addColumn<QStringList>("errors");
    QTest::newRow("service closes after part of a record") << "partial" << QStringList();
    QTest::newRow("service resets with a frame unread")
        << "reset" << QStringList{QStringLiteral("-radio socket read failed with error: %1").arg(ECONNRESET)};
    QTest::newRow("service starts after the link") << "late" << QStringList();
}

// After a lost connection the link comes back by itself, asks once for the
// lists and hands on the new connection's records; a record cut short by
// the loss is dropped.
void tst_ProtocolComm::reconnect()
{
    QFETCH(QString, loss);
    QFETCH(QStringList, errors);

    m_pTuner = m_controller.get();
    OutputCapture out;
    ProtocolComm* link = startLink(loss != QLatin1String("late"));
    QVERIFY(link);
    const int accepted = m_service->acceptedCount();
    if (loss == QLatin1String("partial")) {
        const tag_RadioCmdFromMCU cut = record(MCU_TUNE_INFO, 11);
        QVERIFY(m_service->write(&cut, 300) && m_service->waitUntilConsumed());
        m_service->closeClient();
    } else if (loss == QLatin1String("reset")) {
        m_service->setReading(false);
        link->Tuner_StepUp();
        m_service->closeClient();
        m_service->setReading(true);
    } else {
        QVERIFY(m_service->start());
    }
    QVERIFY(m_service->waitForClient(accepted, 10000));
    QVERIFY(m_service->waitForFrames(1));
    const std::vector<RadioCmdToMCU> frames = sentFrames(link);
    QVERIFY(frames.size() == 1 && frames[0].code == RC_REQUEST_LIST);

    const tag_RadioCmdFromMCU fresh = record(MCU_RADIO_TEXT, 12);
    QVERIFY(m_service->writeRecord(fresh));
    const std::vector<tag_RadioCmdFromMCU> got = m_controller->waitFor(1);
    QVERIFY(got.size() == 1 && same(got[0], fresh));
    QCOMPARE(m_service->acceptedCount(), accepted + 1);
    QCOMPARE(out.lines().filter(QStringLiteral("-radio socket read failed")), errors);
}

// A service that hangs up at once is called back after pauses that double
// from 0.1 s (+-20 %), never in a spin.
void tst_ProtocolComm::backoff()
{
    QVERIFY(startLink(true));
    // Each lost connection's socket is closed: none piles up.
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
    const uint files = openFiles();
    QElapsedTimer clock;
    clock.start();
    for (int accepted = m_service->acceptedCount(), i = 0; i < 3; ++i, ++accepted) {
        m_service->closeClient();
        QVERIFY(m_service->waitForClient(accepted, 10000));
    }
    QVERIFY2(clock.elapsed() >= 500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(openFiles(), files);
}

// ---- Backpressure and hardening ----

namespace {

// Hands records on to another thread as the real controller does through its
// queued signal; the test takes them up.
struct QueueingController {
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg)
    {
        std::lock_guard<std::mutex> guard(lock);
        queue.push_back(msg);
        m_pTuner.recordQueued(this);
        maxQueued = std::max(maxQueued, int(queue.size()));
    }
    bool takeOne(tag_RadioCmdFromMCU* msg)
    {
        std::lock_guard<std::mutex> guard(lock);
        if (queue.empty())
            return false;
        *msg = queue.front();
        queue.pop_front();
        m_pTuner.recordHandled(this);
        return true;
    }
    std::mutex lock;
    std::deque<tag_RadioCmdFromMCU> queue;
    int maxQueued = 0;
};

// Writes records 0, 1, ... from a thread of its own; a write that finds the
// link gone for good fails and ends it.
struct Flood {
    Flood(FakeTunerService* service, uint32_t count)
        : writer([=] {
              for (uint32_t i = 0; i < count && service->writeRecord(record(MCU_SIGNAL, i)); ++i) {
              }
          })
    {
    }
    ~Flood() { writer.join(); }
    std::thread writer;
};

enum FloodEnd { TakenUp, ControllerGone, LinkStopped };

} // namespace

void tst_ProtocolComm::queuedHandOver_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("taken up one by one") << int(TakenUp);
    QTest::newRow("controller destroyed") << int(ControllerGone);
    QTest::newRow("link stopped") << int(LinkStopped);
}

// The reader stops at 64 records queued; it goes on as they are taken up,
// and a controller that goes away or a Stop() releases it.
void tst_ProtocolComm::queuedHandOver()
{
    QFETCH(int, end);
    m_module.reset(new RadioModule);
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), m_module.get()));
    QueueingController controller;
    m_pTuner = &controller;
    ProtocolComm* link = startLink(true);
    QVERIFY(link);
    const uint32_t total = 1000;
    Flood flood(m_service.get(), total);
    QTRY_COMPARE(m_pTuner.queuedCount(), TunerHandle::MaxQueued);
    QCOMPARE(int(controller.queue.size()), TunerHandle::MaxQueued);
    QVERIFY(link->isConnected());
    if (end == LinkStopped)
        link->Stop();
    QCOMPARE(link->isConnected(), end != LinkStopped);
    if (end != TakenUp)
        m_pTuner = nullptr;
    if (end == LinkStopped)
        return;

    QList<tag_RadioCmdFromMCU> rest;
    if (end == ControllerGone) {
        QTRY_COMPARE(uint32_t(m_module->receivedCount()), total - TunerHandle::MaxQueued);
        rest = m_module->receivedMsgs();
    } else {
        for (tag_RadioCmdFromMCU msg; uint32_t(rest.size()) < total; rest << msg)
            QVERIFY(QTest::qWaitFor([&] { return controller.takeOne(&msg); }));
        QCOMPARE(controller.maxQueued, TunerHandle::MaxQueued);
    }
    const uint32_t first = total - uint32_t(rest.size());
    for (int i = 0; i < rest.size(); ++i)
        QVERIFY(same(rest[i], record(MCU_SIGNAL, first + uint32_t(i))));
    QCOMPARE(m_pTuner.queuedCount(), 0);
}

void tst_ProtocolComm::recordWithoutSourceIsZero()
{
    const QMetaType type(qRegisterMetaType<RadioCmdFromMCU_T>("RadioCmdFromMCU_T"));
    const QByteArray zeros(sizeof(tag_RadioCmdFromMCU), '\0');
    QByteArray storage(sizeof(tag_RadioCmdFromMCU), '\xA5');
    type.destruct(type.construct(storage.data(), nullptr));
    QCOMPARE(storage, zeros);
    void* made = type.create();
    QCOMPARE(QByteArray(static_cast<const char*>(made), zeros.size()), zeros);
    type.destroy(made);
}

// The service stops reading: once its socket is full a command fails with
// the log line at once instead of waiting for room.
void tst_ProtocolComm::fullSocketFailsAtOnce()
{
    ProtocolComm* link = startLink(true);
    QVERIFY(link);
    m_service->setReading(false);
    OutputCapture out;
    QElapsedTimer clock;
    qint64 slowest = 0;
    for (int sent = 0; sent < 100000 && out.lines().count(QLatin1String(kFail)) == 0; ++sent) {
        clock.start();
        link->Tuner_Scan();
        slowest = std::max(slowest, clock.elapsed());
    }
    QCOMPARE(out.lines().count(QLatin1String(kFail)), 1);
    QVERIFY2(slowest < 500, qPrintable(QString::number(slowest)));
}

// ---- Capture ----

namespace {

// The packets of a capture file as hex, read by libpcap rather than by
// anything of ours; "error" when libpcap rejects the file.
QStringList packetsIn(const QString& path)
{
    char error[PCAP_ERRBUF_SIZE];
    pcap_t* file = pcap_open_offline(QFile::encodeName(path).constData(), error);
    if (!file || pcap_datalink(file) != 147)
        return {QStringLiteral("error")};
    QStringList packets;
    pcap_pkthdr* header;
    const u_char* data;
    while (pcap_next_ex(file, &header, &data) == 1)
        packets << QByteArray(reinterpret_cast<const char*>(data), int(header->caplen)).toHex();
    pcap_close(file);
    return packets;
}

// A packet as the capture holds it: the direction byte, then the bytes.
QString packet(char direction, const void* bytes, size_t len)
{
    return (QByteArray(1, direction) + QByteArray(static_cast<const char*>(bytes), int(len))).toHex();
}

} // namespace

void tst_ProtocolComm::capture_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QByteArray>("capMb");
    QTest::addColumn<QString>("log");  // %1: the capture file

    QTest::newRow("records, frames, a reconnection") << "file" << QByteArray() << "Radio capture to %1";
    QTest::newRow("size cap not a number: no cap")
        << "file" << QByteArray("1O") << "Radio capture: RADIO_CAPTURE_MAX_MB=\"1O\" is not a size in MB, no cap";
    QTest::newRow("size cap: a ring of four files")
        << "ring" << QByteArray("0.01") << "Radio capture to %1, rotating at 10485 bytes over 4 files";
    QTest::newRow("folder missing: no capture")
        << "missing" << QByteArray() << "Radio capture to %1 failed: No such file or directory";
    QTest::newRow("FIFO nobody reads: no capture")
        << "fifo" << QByteArray() << "Radio capture to %1 failed: No such device or address";
    QTest::newRow("writer stalled: drops counted") << "stalled" << QByteArray() << "Radio capture to %1";
    QTest::newRow("FIFO reader gone: logged, radio goes on")
        << "gone" << QByteArray() << "Radio capture write to %1 failed: Broken pipe";
}

// RADIO_CAPTURE records what the link reads and writes, and never costs the
// radio a record: a file that cannot be written is logged and skipped, a
// writer that falls behind drops from the capture and says how much, a
// capped capture keeps the newest packets in a ring of files.
void tst_ProtocolComm::capture()
{
    QFETCH(QString, mode);
    QFETCH(QByteArray, capMb);
    QFETCH(QString, log);

    QTemporaryDir dir;
    const QString path = dir.filePath(mode == "missing" ? "none/c.pcapng" : "c.pcapng");
    const QByteArray file = QFile::encodeName(path);
    if (mode == "fifo" || mode == "stalled" || mode == "gone")
        QCOMPARE(mkfifo(file.constData(), 0600), 0);
    int fifo = mode == "stalled" || mode == "gone" ? open(file.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC) : -1;
    qputenv("RADIO_CAPTURE", file);
    qputenv("RADIO_CAPTURE_MAX_MB", capMb);
    const auto unset = qScopeGuard([] { qunsetenv("RADIO_CAPTURE"), qunsetenv("RADIO_CAPTURE_MAX_MB"); });
    m_pTuner = m_controller.get();
    OutputCapture out;
    ProtocolComm* link = startLink(true);
    QVERIFY(link);
    if (mode == "gone")
        fifo = close(fifo) - 1;  // the capture's next write finds no reader
    const LinkCapture& capture = link->capture();
    const bool capturing = mode != "missing" && mode != "fifo";
    QCOMPARE(capture.isRunning(), capturing);

    // A stalled writer's queue overflows; a capped file rotates.
    const int count = fifo >= 0 ? LinkCapture::QueueSlots + 2000 : mode == "ring" ? 100 : 3;
    std::vector<tag_RadioCmdFromMCU> sent;
    QStringList expected;
    for (int i = 0; i < count; ++i) {
        sent.push_back(record(uint32_t(i % 40), uint32_t(i)));
        expected << packet(0, &sent.back(), sizeof sent.back());
    }
    QVERIFY(m_service->write(sent.data(), sent.size() * sizeof sent[0]));
    QCOMPARE(m_controller->waitFor(count).size(), size_t(count));
    QTRY_VERIFY2(out.lines().contains(log.arg(path)), qPrintable(out.lines().join('\n')));
    QByteArray bytes;
    std::thread drain;
    if (fifo >= 0) {
        // Read from now on: what follows is captured after a gap.
        fcntl(fifo, F_SETFL, 0);
        drain = std::thread([&] {
            char chunk[65536];
            for (ssize_t n; (n = read(fifo, chunk, sizeof chunk)) > 0;)
                bytes.append(chunk, int(n));
        });
        QTRY_COMPARE(capture.written() + capture.dropped(), uint64_t(count));
    }
    link->Tuner_SeekUp();
    link->Tuner_SetFreq(8750);
    QCOMPARE(sentFrames(link).size(), size_t(2));
    for (const RadioCmdToMCU& f : {RadioCmdToMCU{RC_SEEK_UP, 0}, {RC_SET_FREQ, 8750}, kMarker, {RC_REQUEST_LIST, 0}})
        expected << packet(1, &f, sizeof f);
    const int accepted = m_service->acceptedCount();
    m_service->closeClient();
    QVERIFY(m_service->waitForClient(accepted, 10000) && m_service->waitForFrames(1));

    if (mode == "file")  // on disk within a second, without a stop
        QTRY_COMPARE_WITH_TIMEOUT(packetsIn(path).size(), expected.size(), 2000);
    const int before = out.lines().size();
    link->stopCapture();
    if (!capturing) {
        QCOMPARE(out.lines().size(), before);
        return;
    }
    QCOMPARE(out.lines().mid(before), QStringList{QStringLiteral("Radio capture to %1 stopped: %2 packets, %3 dropped")
                                                      .arg(path).arg(capture.written()).arg(capture.dropped())});
    QCOMPARE(capture.written() + capture.dropped(), uint64_t(expected.size()));
    if (mode == "gone")
        return;
    QByteArray all;
    QStringList got;
    if (fifo >= 0) {
        drain.join();
        close(fifo);
        QFile copy(dir.filePath("copy"));
        QVERIFY(copy.open(QIODevice::WriteOnly) && copy.write(bytes) == bytes.size());
        copy.close();
        got = packetsIn(copy.fileName());
        all = bytes;
    }
    for (const char* suffix : {".3", ".2", ".1", ""}) {
        QFile part(path + suffix);
        if (fifo >= 0 || (mode != "ring" && *suffix))
            continue;
        QVERIFY2(part.open(QIODevice::ReadOnly) && (mode != "ring" || part.size() <= 10485), suffix);
        all += part.readAll();
        got += packetsIn(part.fileName());
    }
    // The ring has lost its oldest files.
    QVERIFY(mode == "ring" ? got.size() < expected.size() : uint64_t(got.size()) == capture.written());
    QVERIFY(!QFileInfo::exists(path + ".4"));
    if (fifo >= 0) {
        QVERIFY(capture.dropped() > 0);
        QVERIFY(all.contains("packets before this one not captured"));
        // As Wireshark reads them, the gaps' drop counters add up to the drops.
        if (!QStandardPaths::findExecutable("tshark").isEmpty()) {
            QProcess tshark;
            tshark.start("tshark", {"-r", dir.filePath("copy"), "-T", "fields", "-e", "frame.drop_count"});
            QVERIFY(tshark.waitForFinished(60000) && tshark.exitCode() == 0);
            uint64_t counted = 0;
            for (const QByteArray& n : tshark.readAllStandardOutput().split('\n'))
                counted += n.toULongLong();
            QCOMPARE(counted, capture.dropped());
        }
    } else {
        QVERIFY(all.contains("link connected again"));
        QCOMPARE(got, expected.mid(expected.size() - got.size()));
        QCOMPARE(capture.dropped(), uint64_t(0));
    }
}

QTEST_GUILESS_MAIN(tst_ProtocolComm)
#include "tst_protocolcomm.moc"
