#include "FakeTunerService.h"
#include "ModuleManager.h"
#include "OutputCapture.h"
#include "ProtocolComm.h"
#include "RadioModule.h"
#include "RecordingController.h"
#include "RadioCmdMetaType.h"

#include <QElapsedTimer>
#include <QSharedPointer>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <deque>
#include <mutex>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <random>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

enum Op {
    OpPreset,
    OpBand,
    OpAutoSearch,
    OpPS,
    OpSeekUp,
    OpSeekDown,
    OpStepUp,
    OpStepDown,
    OpScan,
    OpAF,
    OpTA,
    OpDxLoc,
    OpPTYSelected,
    OpREG,
    OpRDS,
    OpSetFreq,
    OpPTYSeek,
    OpFavor,
    OpPresetUp,
    OpPresetDown,
    OpRequestList,
};

void runOp(ProtocolComm* link, int op, int arg, bool flag)
{
    switch (op) {
    case OpPreset: link->Tuner_Preset(arg, flag); break;
    case OpBand: link->Tuner_Band(static_cast<unsigned char>(arg)); break;
    case OpAutoSearch: link->Tuner_AutoSearch(); break;
    case OpPS: link->Tuner_PS(); break;
    case OpSeekUp: link->Tuner_SeekUp(); break;
    case OpSeekDown: link->Tuner_SeekDown(); break;
    case OpStepUp: link->Tuner_StepUp(); break;
    case OpStepDown: link->Tuner_StepDown(); break;
    case OpScan: link->Tuner_Scan(); break;
    case OpAF: link->Tuner_AFOnOff(flag); break;
    case OpTA: link->Tuner_TAOnOff(flag); break;
    case OpDxLoc: link->Tuner_DxLoc(flag); break;
    case OpPTYSelected: link->Tuner_PTYSelected(arg); break;
    case OpREG: link->Tuner_REGOnOff(flag); break;
    case OpRDS: link->Tuner_RDSOnOff(flag); break;
    case OpSetFreq: link->Tuner_SetFreq(static_cast<unsigned short>(arg)); break;
    case OpPTYSeek: link->Tuner_PTYSeek(); break;
    case OpFavor: link->Tuner_Favor(); break;
    case OpPresetUp: link->Tuner_PresetUp(); break;
    case OpPresetDown: link->Tuner_PresetDown(); break;
    case OpRequestList: link->Tuner_Request_list(); break;
    }
}

// A frame no command operation sends: marks the end of what a test sent.
const RadioCmdToMCU kSentinel{0xA5A5A5A5u, 0x5A5A5A5Au};

const QString kSendFail = QStringLiteral("Radio send data fail.");
const QString kLinkLost = QStringLiteral("Radio link lost, reconnecting");
const QString kLinkUp = QStringLiteral("Radio link connected");

// A record of the given kind with every other byte drawn from the seed.
tag_RadioCmdFromMCU makeRecord(uint32_t cmd, uint32_t seed)
{
    tag_RadioCmdFromMCU record;
    std::mt19937 rng(seed);
    unsigned char* bytes = reinterpret_cast<unsigned char*>(&record);
    for (size_t i = 0; i < sizeof record; ++i)
        bytes[i] = static_cast<unsigned char>(rng());
    record.cmd = cmd;
    return record;
}

bool sameRecord(const tag_RadioCmdFromMCU& a, const tag_RadioCmdFromMCU& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

int countEntries(const char* dir)
{
    DIR* d = opendir(dir);
    if (!d)
        return -1;
    int n = 0;
    while (dirent* entry = readdir(d)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            ++n;
    }
    closedir(d);
    return n;
}

int threadCount()
{
    return countEntries("/proc/self/task");
}

int fdCount()
{
    return countEntries("/proc/self/fd");
}

double cpuSeconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

QStringList newMsgLines(const QStringList& lines)
{
    return lines.filter(QRegularExpression(QStringLiteral("^New msg:")));
}

QString newMsgLine(uint32_t cmd)
{
    return QStringLiteral("New msg:0x%1 ").arg(cmd, 0, 16);
}

} // namespace

class tst_ProtocolComm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startOutput_data();
    void startOutput();
    void commandFrame_data();
    void commandFrame();
    void commandLog_data();
    void commandLog();
    void sendData_data();
    void sendData();
    void sendToClosedServiceSurvives();

    void routing_data();
    void routing();
    void reassemblesPieces_data();
    void reassemblesPieces();
    void splitsMergedWrites_data();
    void splitsMergedWrites();

    void closeDropsPartialAndReconnects_data();
    void closeDropsPartialAndReconnects();
    void readErrorIsLoggedAndRecovered();
    void recoversWhenServiceAppears();
    void noBusyLoopWhileServiceDown();
    void stopInterruptsBackoff();
    void startTwiceKeepsOneReader_data();
    void startTwiceKeepsOneReader();
    void restartsLeaveNoLeak();
    void deleteInstanceJoinsReader_data();
    void deleteInstanceJoinsReader();
    void controllerChurnWhileStreaming();

    // Backpressure and hardening (definitions at the end of the file).
    void queuedHandOver_data();
    void queuedHandOver();
    void recordWithoutSourceIsZero();
    void fullSocketFailsAtOnce();

private:
    void registerRadioModule();
    ProtocolComm* connectedLink();

    std::unique_ptr<FakeTunerService> m_service;
    std::unique_ptr<RecordingController> m_controller;
    RadioModule* m_module = nullptr;
};

void tst_ProtocolComm::init()
{
    m_service.reset(new FakeTunerService);
    m_controller.reset(new RecordingController);
}

void tst_ProtocolComm::cleanup()
{
    m_controller->setHold(false);
    m_pTuner = nullptr;
    ProtocolComm::DeleteInstance();
    hvappframework::ModuleManager::self()->removeModule(QStringLiteral("radio"));
    delete m_module;
    m_module = nullptr;
    m_service.reset();
    m_controller.reset();
}

// The link looks the module up when it is constructed.
void tst_ProtocolComm::registerRadioModule()
{
    m_module = new RadioModule;
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), m_module));
}

// Starts the service and the link and waits until the service has accepted
// it; null (after a failed check) otherwise.
ProtocolComm* tst_ProtocolComm::connectedLink()
{
    if (!m_service->isListening() && !m_service->start())
        return nullptr;
    ProtocolComm* link = ProtocolComm::GetInstance();
    link->Start();
    if (!QTest::qWaitFor([&] { return link->isConnected() && m_service->hasClient(); }, 5000))
        return nullptr;
    return link;
}

void tst_ProtocolComm::startOutput_data()
{
    QTest::addColumn<bool>("serviceUp");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("service listening") << true << QStringList{"Radio socket struct size: 110"};
    QTest::newRow("service absent") << false
                                    << QStringList{"Radio socket struct size: 110",
                                                   "=====>>>Radio ProtocolComm Start Error!"};
}

void tst_ProtocolComm::startOutput()
{
    QFETCH(bool, serviceUp);
    QFETCH(QStringList, expected);

    if (serviceUp)
        QVERIFY(m_service->start());
    ProtocolComm* link = ProtocolComm::GetInstance();
    OutputCapture out;
    QVERIFY(out.isActive());
    link->Start();
    QCOMPARE(out.lines(), expected);
    QCOMPARE(link->isConnected(), serviceUp);
    QCOMPARE(link->getRun_Flag(), 1);
}

void tst_ProtocolComm::commandFrame_data()
{
    QTest::addColumn<int>("op");
    QTest::addColumn<int>("arg");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<uint>("code");
    QTest::addColumn<uint>("param");

    QTest::newRow("Tuner_Preset(7, false)") << int(OpPreset) << 7 << false << 0u << 7u;
    QTest::newRow("Tuner_Preset(7, true)") << int(OpPreset) << 7 << true << 1u << 7u;
    QTest::newRow("Tuner_Band(255) zero-extended") << int(OpBand) << 255 << false << 2u << 255u;
    QTest::newRow("Tuner_AutoSearch") << int(OpAutoSearch) << 0 << false << 3u << 0u;
    QTest::newRow("Tuner_PS") << int(OpPS) << 0 << false << 4u << 0u;
    QTest::newRow("Tuner_SeekUp") << int(OpSeekUp) << 0 << false << 5u << 0u;
    QTest::newRow("Tuner_SeekDown") << int(OpSeekDown) << 0 << false << 6u << 0u;
    QTest::newRow("Tuner_StepUp") << int(OpStepUp) << 0 << false << 7u << 0u;
    QTest::newRow("Tuner_StepDown") << int(OpStepDown) << 0 << false << 8u << 0u;
    QTest::newRow("Tuner_Scan") << int(OpScan) << 0 << false << 9u << 0u;
    QTest::newRow("Tuner_AFOnOff(true)") << int(OpAF) << 0 << true << 10u << 1u;
    QTest::newRow("Tuner_AFOnOff(false)") << int(OpAF) << 0 << false << 10u << 0u;
    QTest::newRow("Tuner_TAOnOff(true)") << int(OpTA) << 0 << true << 11u << 1u;
    QTest::newRow("Tuner_TAOnOff(false)") << int(OpTA) << 0 << false << 11u << 0u;
    QTest::newRow("Tuner_DxLoc(true) LOC") << int(OpDxLoc) << 0 << true << 12u << 1u;
    QTest::newRow("Tuner_DxLoc(false) DX") << int(OpDxLoc) << 0 << false << 12u << 0u;
    QTest::newRow("Tuner_PTYSelected(31)") << int(OpPTYSelected) << 31 << false << 13u << 31u;
    QTest::newRow("Tuner_REGOnOff(true)") << int(OpREG) << 0 << true << 14u << 1u;
    QTest::newRow("Tuner_REGOnOff(false)") << int(OpREG) << 0 << false << 14u << 0u;
    QTest::newRow("Tuner_RDSOnOff(true)") << int(OpRDS) << 0 << true << 15u << 1u;
    QTest::newRow("Tuner_RDSOnOff(false)") << int(OpRDS) << 0 << false << 15u << 0u;
    QTest::newRow("Tuner_SetFreq(65535) zero-extended") << int(OpSetFreq) << 65535 << false << 17u << 65535u;
    QTest::newRow("Tuner_PTYSeek") << int(OpPTYSeek) << 0 << false << 18u << 0u;
    QTest::newRow("Tuner_Favor") << int(OpFavor) << 0 << false << 20u << 0u;
    QTest::newRow("Tuner_PresetUp") << int(OpPresetUp) << 0 << false << 21u << 0u;
    QTest::newRow("Tuner_PresetDown") << int(OpPresetDown) << 0 << false << 22u << 0u;
    QTest::newRow("Tuner_Request_list") << int(OpRequestList) << 0 << false << 255u << 0u;
}

// Each operation sends exactly one frame: the sentinel sent after it must
// be the second frame the service sees.
void tst_ProtocolComm::commandFrame()
{
    QFETCH(int, op);
    QFETCH(int, arg);
    QFETCH(bool, flag);
    QFETCH(uint, code);
    QFETCH(uint, param);

    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    {
        OutputCapture out;
        QVERIFY(out.isActive());
        runOp(link, op, arg, flag);
        // Of the operations sent, only a seek up logs.
        const QStringList expected = op == OpSeekUp ? QStringList{"RC_SEEK_UP", "RC_SEEK_UP success"} : QStringList();
        QCOMPARE(out.lines(), expected);
    }
    RadioCmdToMCU sentinel = kSentinel;
    QCOMPARE(link->SendData(&sentinel, sizeof sentinel), 0);

    QTRY_COMPARE(m_service->frameCount(), 2);
    const std::vector<RadioCmdToMCU> frames = m_service->frames();
    QCOMPARE(frames[0].code, code);
    QCOMPARE(frames[0].param, param);
    QCOMPARE(frames[1].code, kSentinel.code);
    QCOMPARE(frames[1].param, kSentinel.param);
}

// With the service absent: the operations that log say so, the others
// fail silently.
void tst_ProtocolComm::commandLog_data()
{
    QTest::addColumn<int>("op");
    QTest::addColumn<int>("arg");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QStringList>("expected");

    const QStringList fail{kSendFail};
    QTest::newRow("SeekUp") << int(OpSeekUp) << 0 << false << QStringList{"RC_SEEK_UP", kSendFail};
    QTest::newRow("AutoSearch") << int(OpAutoSearch) << 0 << false << fail;
    QTest::newRow("PS") << int(OpPS) << 0 << false << fail;
    QTest::newRow("SeekDown") << int(OpSeekDown) << 0 << false << fail;
    QTest::newRow("Scan") << int(OpScan) << 0 << false << fail;
    QTest::newRow("Preset") << int(OpPreset) << 3 << false << QStringList();
    QTest::newRow("StepUp") << int(OpStepUp) << 0 << false << QStringList();
    QTest::newRow("SetFreq") << int(OpSetFreq) << 8750 << false << QStringList();
    QTest::newRow("Request_list") << int(OpRequestList) << 0 << false << QStringList();
}

void tst_ProtocolComm::commandLog()
{
    QFETCH(int, op);
    QFETCH(int, arg);
    QFETCH(bool, flag);
    QFETCH(QStringList, expected);

    ProtocolComm* link = ProtocolComm::GetInstance();
    link->Start();
    QVERIFY(!link->isConnected());
    OutputCapture out;
    QVERIFY(out.isActive());
    runOp(link, op, arg, flag);
    QCOMPARE(out.lines(), expected);
}

void tst_ProtocolComm::sendData_data()
{
    QTest::addColumn<int>("len");
    QTest::addColumn<int>("frames");

    QTest::newRow("zero length") << 0 << 0;
    QTest::newRow("negative length") << -8 << 0;
    QTest::newRow("one frame") << 8 << 1;
    QTest::newRow("three frames in one call") << 24 << 3;
}

void tst_ProtocolComm::sendData()
{
    QFETCH(int, len);
    QFETCH(int, frames);

    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    RadioCmdToMCU data[3] = {{100, 1}, {101, 2}, {102, 3}};
    QCOMPARE(link->SendData(data, len), 0);
    RadioCmdToMCU sentinel = kSentinel;
    QCOMPARE(link->SendData(&sentinel, sizeof sentinel), 0);

    QTRY_COMPARE(m_service->frameCount(), frames + 1);
    const std::vector<RadioCmdToMCU> got = m_service->frames();
    for (int i = 0; i < frames; ++i) {
        QCOMPARE(got[i].code, data[i].code);
        QCOMPARE(got[i].param, data[i].param);
    }
    QCOMPARE(got[frames].code, kSentinel.code);
}

// The service is gone while the reader is still busy handing over a record,
// so the command hits a socket whose peer has closed: the send fails with
// EPIPE, which must not raise SIGPIPE (the test process would die).
void tst_ProtocolComm::sendToClosedServiceSurvives()
{
    m_pTuner = m_controller.get();
    m_controller->setHold(true);
    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    QVERIFY(m_service->writeRecord(makeRecord(0, 1)));
    QTRY_VERIFY(m_controller->isHolding());

    m_service->stop();
    {
        OutputCapture out;
        QVERIFY(out.isActive());
        link->Tuner_SeekUp();
        QCOMPARE(out.lines(), (QStringList{"RC_SEEK_UP", kSendFail}));
        RadioCmdToMCU frame{RC_STEP_UP, 0};
        QVERIFY(link->SendData(&frame, sizeof frame) < 0);
    }
    m_controller->setHold(false);
    QTRY_VERIFY(!link->isConnected());
    QCOMPARE(m_controller->count(), 1);
}

void tst_ProtocolComm::routing_data()
{
    QTest::addColumn<bool>("withController");
    QTest::addColumn<bool>("withModule");

    QTest::newRow("controller and module: controller") << true << true;
    QTest::newRow("controller only") << true << false;
    QTest::newRow("module only: module") << false << true;
    QTest::newRow("neither: logged and dropped") << false << false;
}

void tst_ProtocolComm::routing()
{
    QFETCH(bool, withController);
    QFETCH(bool, withModule);

    if (withModule)
        registerRadioModule();
    if (withController)
        m_pTuner = m_controller.get();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    // Kinds the screen decodes, ignores, and does not know: all are passed on.
    const QList<tag_RadioCmdFromMCU> sent{makeRecord(MCU_TUNE_INFO, 1), makeRecord(MCU_PRESET_FREQ, 2),
                                          makeRecord(1, 3), makeRecord(37, 4), makeRecord(0xDEADBEEFu, 5)};
    QStringList expectedLog;
    OutputCapture out;
    QVERIFY(out.isActive());
    for (const tag_RadioCmdFromMCU& record : sent) {
        QVERIFY(m_service->writeRecord(record));
        expectedLog << newMsgLine(record.cmd);
    }
    QTRY_COMPARE(newMsgLines(out.lines()), expectedLog);

    QList<tag_RadioCmdFromMCU> received;
    if (withController) {
        QTRY_COMPARE(m_controller->count(), sent.size());
        received = m_controller->records();
    } else if (withModule) {
        QTRY_COMPARE(m_module->receivedCount(), sent.size());
        received = m_module->receivedMsgs();
    }
    if (withModule && withController)
        QCOMPARE(m_module->receivedCount(), 0);
    if (withModule || withController) {
        for (int i = 0; i < sent.size(); ++i)
            QVERIFY2(sameRecord(received[i], sent[i]), qPrintable(QStringLiteral("record %1 differs").arg(i)));
    }
    // The link reads on after dropping: a controller set now gets the next record.
    if (!withController) {
        m_pTuner = m_controller.get();
        QVERIFY(m_service->writeRecord(makeRecord(9, 6)));
        QTRY_COMPARE(m_controller->count(), 1);
        QVERIFY(sameRecord(m_controller->records().first(), makeRecord(9, 6)));
    }
}

void tst_ProtocolComm::reassemblesPieces_data()
{
    QTest::addColumn<uint>("seed");
    QTest::addColumn<int>("maxPiece");
    QTest::addColumn<int>("records");

    QTest::newRow("single bytes") << 1u << 1 << 2;
    QTest::newRow("up to 700 bytes, straddling") << 5u << 700 << 10;
    QTest::newRow("up to 2000 bytes, straddling") << 6u << 2000 << 12;
}

// Every piece is read by the link before the next one is written, so a
// record reaches it in several reads, and reads also end inside records.
void tst_ProtocolComm::reassemblesPieces()
{
    QFETCH(uint, seed);
    QFETCH(int, maxPiece);
    QFETCH(int, records);

    m_pTuner = m_controller.get();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    QByteArray stream;
    QList<tag_RadioCmdFromMCU> sent;
    for (int i = 0; i < records; ++i) {
        sent << makeRecord(static_cast<uint32_t>(i % 40), seed * 1000 + static_cast<uint32_t>(i));
        stream.append(reinterpret_cast<const char*>(&sent.last()), sizeof(tag_RadioCmdFromMCU));
    }
    std::mt19937 rng(seed);
    std::vector<size_t> pieces;
    for (int total = 0; total < stream.size();) {
        const int piece = 1 + static_cast<int>(rng() % static_cast<unsigned>(maxPiece));
        pieces.push_back(static_cast<size_t>(piece));
        total += piece;
    }

    OutputCapture out;
    QVERIFY(out.isActive());
    QVERIFY(m_service->writeSeparately(stream.constData(), static_cast<size_t>(stream.size()), pieces));
    QTRY_COMPARE(m_controller->count(), records);

    // A last whole record proves nothing more was handed on before it.
    const tag_RadioCmdFromMCU last = makeRecord(MCU_SIGNAL, 4242);
    QVERIFY(m_service->writeRecord(last));
    QTRY_COMPARE(m_controller->count(), records + 1);

    const QList<tag_RadioCmdFromMCU> got = m_controller->records();
    for (int i = 0; i < records; ++i)
        QVERIFY2(sameRecord(got[i], sent[i]), qPrintable(QStringLiteral("record %1 differs").arg(i)));
    QVERIFY(sameRecord(got.last(), last));
    QCOMPARE(newMsgLines(out.lines()).size(), records + 1);
}

void tst_ProtocolComm::splitsMergedWrites_data()
{
    QTest::addColumn<int>("records");

    QTest::newRow("2 in one write") << 2;
    QTest::newRow("64 in one write") << 64;
}

void tst_ProtocolComm::splitsMergedWrites()
{
    QFETCH(int, records);

    m_pTuner = m_controller.get();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    QByteArray stream;
    QStringList expectedLog;
    QList<tag_RadioCmdFromMCU> sent;
    for (int i = 0; i < records; ++i) {
        sent << makeRecord(static_cast<uint32_t>(i), 500 + static_cast<uint32_t>(i));
        stream.append(reinterpret_cast<const char*>(&sent.last()), sizeof(tag_RadioCmdFromMCU));
        expectedLog << newMsgLine(static_cast<uint32_t>(i));
    }
    OutputCapture out;
    QVERIFY(out.isActive());
    QVERIFY(m_service->write(stream.constData(), static_cast<size_t>(stream.size())));

    QTRY_COMPARE(m_controller->count(), records);
    const QList<tag_RadioCmdFromMCU> got = m_controller->records();
    for (int i = 0; i < records; ++i)
        QVERIFY2(sameRecord(got[i], sent[i]), qPrintable(QStringLiteral("record %1 differs").arg(i)));
    QTRY_COMPARE(newMsgLines(out.lines()), expectedLog);
}

void tst_ProtocolComm::closeDropsPartialAndReconnects_data()
{
    QTest::addColumn<int>("bytes");

    const int record = static_cast<int>(sizeof(tag_RadioCmdFromMCU));
    QTest::newRow("nothing sent") << 0;
    QTest::newRow("one byte short") << record - 1;
    QTest::newRow("one and a half records") << record + record / 2;
}

void tst_ProtocolComm::closeDropsPartialAndReconnects()
{
    QFETCH(int, bytes);

    m_pTuner = m_controller.get();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    QByteArray stream;
    for (uint32_t i = 0; stream.size() < bytes; ++i) {
        const tag_RadioCmdFromMCU record = makeRecord(i, 900 + i);
        stream.append(reinterpret_cast<const char*>(&record), sizeof record);
    }
    stream.truncate(bytes);
    const int whole = bytes / static_cast<int>(sizeof(tag_RadioCmdFromMCU));

    OutputCapture out;
    QVERIFY(out.isActive());
    if (bytes > 0) {
        QVERIFY(m_service->write(stream.constData(), static_cast<size_t>(bytes)));
        QVERIFY(m_service->waitUntilConsumed());
    }
    m_service->clearFrames();
    m_service->closeClient();

    QTRY_COMPARE_WITH_TIMEOUT(m_service->acceptedCount(), 2, 10000);
    QTRY_COMPARE(m_service->frameCount(RC_REQUEST_LIST), 1);
    QVERIFY(link->isConnected());
    QCOMPARE(m_controller->count(), whole);
    QCOMPARE(newMsgLines(out.lines()).size(), whole);
    QCOMPARE(out.count(kLinkLost), 1);
    QCOMPARE(out.count(kLinkUp), 1);

    // Nothing of the old connection's partial record is left over.
    const tag_RadioCmdFromMCU fresh = makeRecord(MCU_PS_NAME, 77);
    QVERIFY(m_service->writeRecord(fresh));
    QTRY_COMPARE(m_controller->count(), whole + 1);
    QVERIFY(sameRecord(m_controller->records().last(), fresh));
}

// The service goes away with a frame of the link still unread, which makes
// the link's read fail with ECONNRESET.
void tst_ProtocolComm::readErrorIsLoggedAndRecovered()
{
    m_pTuner = m_controller.get();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    OutputCapture out;
    QVERIFY(out.isActive());
    m_service->setReading(false);
    link->Tuner_StepUp();
    m_service->closeClient();
    m_service->setReading(true);

    const QString error = QStringLiteral("-radio socket read failed with error: %1").arg(ECONNRESET);
    QTRY_COMPARE(out.count(error), 1);
    QTRY_COMPARE_WITH_TIMEOUT(m_service->acceptedCount(), 2, 10000);
    QTRY_COMPARE(m_service->frameCount(RC_REQUEST_LIST), 1);
    QCOMPARE(out.count(error), 1);
    QCOMPARE(out.count(kLinkLost), 1);
    QCOMPARE(out.count(kLinkUp), 1);
    QCOMPARE(m_controller->count(), 0);
    QVERIFY(newMsgLines(out.lines()).isEmpty());
}

// No service at Start: the start error is printed, commands fail, and the
// link connects on its own once the service is there.
void tst_ProtocolComm::recoversWhenServiceAppears()
{
    m_pTuner = m_controller.get();
    OutputCapture out;
    QVERIFY(out.isActive());
    ProtocolComm* link = ProtocolComm::GetInstance();
    link->Start();
    QCOMPARE(out.count(QStringLiteral("=====>>>Radio ProtocolComm Start Error!")), 1);
    QVERIFY(!link->isConnected());
    out.mark();
    link->Tuner_SeekUp();
    QCOMPARE(out.linesSinceMark(), (QStringList{"RC_SEEK_UP", kSendFail}));

    QVERIFY(m_service->start());
    QTRY_VERIFY_WITH_TIMEOUT(link->isConnected(), 15000);
    QTRY_COMPARE(m_service->frameCount(RC_REQUEST_LIST), 1);
    QCOMPARE(m_service->frameCount(RC_SEEK_UP), 0);
    QCOMPARE(out.count(kLinkUp), 1);
    QCOMPARE(out.count(kLinkLost), 0);

    const tag_RadioCmdFromMCU record = makeRecord(MCU_TUNE_INFO, 31);
    QVERIFY(m_service->writeRecord(record));
    QTRY_COMPARE(m_controller->count(), 1);
    QVERIFY(sameRecord(m_controller->records().first(), record));
    QCOMPARE(m_service->acceptedCount(), 1);
}

// While the service is down the reader waits between attempts instead of
// spinning; each change of state is logged once, not once per attempt.
void tst_ProtocolComm::noBusyLoopWhileServiceDown()
{
    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    OutputCapture out;
    QVERIFY(out.isActive());

    m_service->stop();
    QTRY_VERIFY(!link->isConnected());
    QElapsedTimer wall;
    wall.start();
    const double cpuBefore = cpuSeconds();
    QTRY_VERIFY_WITH_TIMEOUT(wall.elapsed() >= 3000, 6000);
    const double cpu = cpuSeconds() - cpuBefore;
    const double share = cpu / (wall.elapsed() / 1000.0);
    qInfo("CPU while the service was down: %.3f s over %.3f s (%.1f %%)", cpu, wall.elapsed() / 1000.0,
          share * 100);
    QVERIFY2(share < 0.2, qPrintable(QStringLiteral("%1 % CPU while disconnected").arg(share * 100)));

    m_service->clearFrames();
    QVERIFY(m_service->start());
    QTRY_VERIFY_WITH_TIMEOUT(link->isConnected(), 15000);
    QTRY_COMPARE(m_service->frameCount(RC_REQUEST_LIST), 1);
    QCOMPARE(out.count(kLinkLost), 1);
    QCOMPARE(out.count(kLinkUp), 1);
}

// Stop() comes back at once even when the reader is in a long wait between
// reconnect attempts; a Start() after it works again.
void tst_ProtocolComm::stopInterruptsBackoff()
{
    ProtocolComm* link = ProtocolComm::GetInstance();
    link->Start();
    QVERIFY(!link->isConnected());
    QElapsedTimer down;
    down.start();
    // By now the reader is in a wait of 1.6 s (+-20 %) with at least half a
    // second left.
    QTRY_VERIFY_WITH_TIMEOUT(down.elapsed() >= 2000, 5000);

    QElapsedTimer stopping;
    stopping.start();
    {
        OutputCapture out;
        QVERIFY(out.isActive());
        link->Stop();
        QCOMPARE(out.lines(), QStringList{"Radio ProtocolComm Stop"});
    }
    const qint64 stopMs = stopping.elapsed();
    qInfo("Stop() during backoff took %lld ms", stopMs);
    QVERIFY2(stopMs < 200, qPrintable(QStringLiteral("Stop() took %1 ms").arg(stopMs)));
    QCOMPARE(link->getRun_Flag(), 0);
    QVERIFY(!link->isConnected());

    QVERIFY(m_service->start());
    link->Start();
    QVERIFY(link->isConnected());
    QCOMPARE(link->getRun_Flag(), 1);
    link->Tuner_StepDown();
    QTRY_COMPARE(m_service->frameCount(RC_STEP_DOWN), 1);
}

void tst_ProtocolComm::startTwiceKeepsOneReader_data()
{
    QTest::addColumn<bool>("serviceUp");

    QTest::newRow("connected") << true;
    QTest::newRow("reconnecting") << false;
}

void tst_ProtocolComm::startTwiceKeepsOneReader()
{
    QFETCH(bool, serviceUp);

    m_pTuner = m_controller.get();
    ProtocolComm* link = nullptr;
    if (serviceUp) {
        link = connectedLink();
        QVERIFY(link);
    } else {
        link = ProtocolComm::GetInstance();
        link->Start();
    }
    const int threads = threadCount();
    const int fds = fdCount();

    link->Start();
    QCOMPARE(threadCount(), threads);
    // Without a service the reader opens a socket for each attempt, so
    // descriptors are compared only while connected.
    if (serviceUp)
        QCOMPARE(fdCount(), fds);

    if (!serviceUp) {
        QVERIFY(m_service->start());
        QTRY_VERIFY_WITH_TIMEOUT(link->isConnected() && m_service->hasClient(), 15000);
    }
    link->Tuner_StepUp();
    QTRY_COMPARE(m_service->frameCount(RC_STEP_UP), 1);
    const tag_RadioCmdFromMCU record = makeRecord(MCU_PTY, 5);
    QVERIFY(m_service->writeRecord(record));
    QTRY_COMPARE(m_controller->count(), 1);

    QCOMPARE(m_service->acceptedCount(), 1);
    QCOMPARE(m_service->openClientCount(), 1);
    // Started late, the service adds its own thread.
    QCOMPARE(threadCount(), threads + (serviceUp ? 0 : 1));
}

// Start and stop the link 100 times against a service that is killed and
// restarted each time: descriptors and threads stay where they were.
void tst_ProtocolComm::restartsLeaveNoLeak()
{
    m_pTuner = m_controller.get();
    QVERIFY(m_service->start());
    ProtocolComm* link = ProtocolComm::GetInstance();
    OutputCapture out;
    QVERIFY(out.isActive());
    const int threads = threadCount();
    const int fds = fdCount();
    int maxThreads = threads;
    int maxFds = fds;

    for (int i = 0; i < 100; ++i) {
        link->Start();
        QTRY_VERIFY(link->isConnected() && m_service->hasClient());
        QVERIFY(m_service->writeRecord(makeRecord(0, static_cast<uint32_t>(i))));
        QTRY_COMPARE(m_controller->count(), i + 1);
        maxThreads = std::max(maxThreads, threadCount());

        m_service->stop();
        QTRY_VERIFY(!link->isConnected());
        QVERIFY(m_service->start());
        if (i % 2) {
            // Every other round the link finds the new service by itself.
            QTRY_VERIFY_WITH_TIMEOUT(link->isConnected() && m_service->hasClient(), 10000);
        }
        link->Stop();
        QTRY_COMPARE(m_service->openClientCount(), 0);
        maxFds = std::max(maxFds, fdCount());
        // A joined thread can linger in /proc for a moment until the kernel
        // has reaped it.
        QTRY_COMPARE(threadCount(), threads);
        QCOMPARE(fdCount(), fds);
    }
    qInfo("100 restarts: threads %d -> %d (max %d while running), fds %d -> %d (max %d after each stop)", threads,
          threadCount(), maxThreads, fds, fdCount(), maxFds);
    QCOMPARE(maxThreads, threads + 1);
    QCOMPARE(out.count(QStringLiteral("Radio ProtocolComm Stop")), 100);
}

void tst_ProtocolComm::deleteInstanceJoinsReader_data()
{
    QTest::addColumn<bool>("serviceUp");

    QTest::newRow("connected") << true;
    QTest::newRow("between reconnect attempts") << false;
}

// DeleteInstance() without Stop() still stops and joins the reader: when it
// returns no thread of the link is left.
void tst_ProtocolComm::deleteInstanceJoinsReader()
{
    QFETCH(bool, serviceUp);

    const int threads = threadCount();
    if (serviceUp) {
        QVERIFY(m_service->start());
        QVERIFY(connectedLink());
    } else {
        ProtocolComm::GetInstance()->Start();
    }
    QCOMPARE(threadCount(), threads + (serviceUp ? 2 : 1));

    QElapsedTimer timer;
    timer.start();
    ProtocolComm::DeleteInstance();
    QVERIFY(timer.elapsed() < 500);
    QTRY_COMPARE(threadCount(), threads + (serviceUp ? 1 : 0));
    if (serviceUp)
        QTRY_COMPARE(m_service->openClientCount(), 0);
}

// Controllers are created, stored, cleared and deleted over and over while
// records stream in. Every record reaches exactly one receiver, in order,
// and none reaches a controller after it was cleared (under AddressSanitizer
// a hand-over to a deleted controller is reported as well).
void tst_ProtocolComm::controllerChurnWhileStreaming()
{
    registerRadioModule();
    ProtocolComm* link = connectedLink();
    QVERIFY(link);

    const int total = 20000;
    std::atomic<bool> writerOk{true};
    std::atomic<bool> writerDone{false};
    std::thread writer([&] {
        std::mt19937 rng(2024);
        std::vector<tag_RadioCmdFromMCU> batch;
        for (int next = 0; next < total && writerOk;) {
            batch.clear();
            const int n = std::min(total - next, 1 + static_cast<int>(rng() % 8));
            for (int i = 0; i < n; ++i, ++next) {
                batch.push_back(makeRecord(MCU_SIGNAL, static_cast<uint32_t>(next)));
                batch.back().freq = static_cast<uint32_t>(next);
            }
            writerOk = m_service->write(batch.data(), batch.size() * sizeof(tag_RadioCmdFromMCU));
        }
        writerDone = true;
    });

    OutputCapture out;
    QList<tag_RadioCmdFromMCU> viaControllers;
    QList<QList<tag_RadioCmdFromMCU>> perController;
    int late = 0;
    int starved = 0;
    int rounds = 0;
    QElapsedTimer timer;
    timer.start();
    while ((!writerDone || (writerOk && viaControllers.size() + m_module->receivedCount() < total))
           && timer.elapsed() < 60000) {
        auto* controller = new RecordingController;
        m_pTuner = controller;
        // Every other controller lives until it has had a record. The wait
        // yields instead of sleeping so that controllers change many times
        // within the stream.
        if (rounds % 2 == 0) {
            QElapsedTimer waiting;
            waiting.start();
            while (controller->count() == 0 && !writerDone && waiting.elapsed() < 5000)
                std::this_thread::yield();
            if (controller->count() == 0 && !writerDone)
                ++starved;
        }
        m_pTuner = nullptr;
        controller->detach();
        late += controller->lateDeliveries();
        perController << controller->records();
        viaControllers << perController.last();
        delete controller;
        ++rounds;
    }
    writer.join();
    QVERIFY(writerOk);

    const QList<tag_RadioCmdFromMCU> viaModule = m_module->receivedMsgs();
    qInfo("%d controllers; %d records via controllers, %d via the module", rounds, viaControllers.size(),
          viaModule.size());
    QCOMPARE(late, 0);
    QCOMPARE(starved, 0);
    QCOMPARE(viaControllers.size() + viaModule.size(), total);

    // Each receiver saw its records in stream order, and together they saw
    // every record exactly once, unchanged.
    QList<QList<tag_RadioCmdFromMCU>> receivers = perController;
    receivers << viaModule;
    std::vector<int> seen(total, 0);
    for (const QList<tag_RadioCmdFromMCU>& list : receivers) {
        for (int i = 0; i < list.size(); ++i) {
            const uint32_t seq = list[i].freq;
            QVERIFY(seq < static_cast<uint32_t>(total));
            if (i > 0)
                QVERIFY(seq > list[i - 1].freq);
            tag_RadioCmdFromMCU expected = makeRecord(MCU_SIGNAL, seq);
            expected.freq = seq;
            QVERIFY(sameRecord(list[i], expected));
            ++seen[seq];
        }
    }
    QVERIFY(std::all_of(seen.begin(), seen.end(), [](int n) { return n == 1; }));
    QCOMPARE(newMsgLines(out.lines()).size(), total);
}

// ---- Backpressure and hardening ----

namespace {

// Hands records on to another thread as the real controller does through its
// queued signal; the test takes them up.
struct QueueingController {
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg)
    {
        std::lock_guard<std::mutex> guard(lock);
        m_pTuner.recordQueued(this);
        queue.push_back(msg);
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
              for (uint32_t i = 0; i < count && service->writeRecord(makeRecord(MCU_SIGNAL, i)); ++i) {
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
    registerRadioModule();
    QueueingController controller;
    m_pTuner = &controller;
    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    const uint32_t total = 1000;
    Flood flood(m_service.get(), total);
    QTRY_COMPARE(m_pTuner.queuedCount(), TunerHandle::MaxQueued);
    QCOMPARE(int(controller.queue.size()), TunerHandle::MaxQueued);
    if (end == LinkStopped)
        link->Stop();
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
        QVERIFY(sameRecord(rest[i], makeRecord(MCU_SIGNAL, first + uint32_t(i))));
    QCOMPARE(m_pTuner.queuedCount(), 0);
}

void tst_ProtocolComm::recordWithoutSourceIsZero()
{
    const int id = qRegisterMetaType<RadioCmdFromMCU_T>("RadioCmdFromMCU_T");
    const QByteArray zeros(sizeof(tag_RadioCmdFromMCU), '\0');
    QByteArray storage(sizeof(tag_RadioCmdFromMCU), '\xA5');
    QMetaType::destruct(id, QMetaType::construct(id, storage.data(), nullptr));
    QCOMPARE(storage, zeros);
    void* made = QMetaType::create(id);
    QCOMPARE(QByteArray(static_cast<const char*>(made), zeros.size()), zeros);
    QMetaType::destroy(id, made);
}

// The service stops reading: once its socket is full a command fails with
// the log line at once instead of waiting for room.
void tst_ProtocolComm::fullSocketFailsAtOnce()
{
    ProtocolComm* link = connectedLink();
    QVERIFY(link);
    m_service->setReading(false);
    OutputCapture out;
    QElapsedTimer clock;
    qint64 slowest = 0;
    for (int sent = 0; sent < 100000 && out.count(kSendFail) == 0; ++sent) {
        clock.start();
        link->Tuner_Scan();
        slowest = std::max(slowest, clock.elapsed());
    }
    QCOMPARE(out.count(kSendFail), 1);
    QVERIFY2(slowest < 500, qPrintable(QString::number(slowest)));
}

QTEST_GUILESS_MAIN(tst_ProtocolComm)
#include "tst_protocolcomm.moc"
