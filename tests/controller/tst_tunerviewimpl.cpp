// The controller end to end: status records from a fake tuner service reach
// the display, the host and the audio module; user actions leave as frames.
#include "TunerView.h"
#include "TunerViewImpl.h"
#include "RadioKeypad.h"
#include "RadioSetting.h"

#include "FakeTunerService.h"
#include "ProtocolComm.h"
#include "TunerHandle.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseBar.h"
#include "BaseControl.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "HvRollingText.h"
#include "ModuleManager.h"
#include "MOnOffButton.h"
#include "PlatformControl.h"
#include "RadioModule.h"
#include "SetupEqView.h"
#include "SetupStrIdConst.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <cstring>
#include <thread>

namespace {

tag_RadioCmdFromMCU record(uint32_t kind)
{
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    r.cmd = kind;
    return r;
}

tag_RadioCmdFromMCU tuneInfo(uint32_t freq, uint8_t band, uint8_t preset = 0)
{
    tag_RadioCmdFromMCU r = record(MCU_TUNE_INFO);
    r.freq = freq;
    r.band = band;
    r.preset = preset;
    return r;
}

void setName(uint8_t* field, const char* text)
{
    std::memset(field, ' ', 8);
    std::memcpy(field, text, qMin<size_t>(8, std::strlen(text)));
}

struct Frame {
    int code;
    int param;
};

} // namespace

Q_DECLARE_METATYPE(Frame)

class tst_TunerViewImpl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    // Must run first: the screen-taking rule is once per process.
    void firstStartSkipsTakeScreenOnce();
    void construction();
    void audioSetUpOrder();

    void tuneInfoTexts_data();
    void tuneInfoTexts();
    void firstTuneInfoOnFmBand();
    void bandChangeToAm();
    void amToFmKeepsRds();
    void equalStateRefreshes();
    void stereoClearedOnAm();
    void rdsFlags_data();
    void rdsFlags();
    void pty_data();
    void pty();
    void psName();
    void presetsAndNames();
    void ignoredKinds();
    void handshake_data();
    void handshake();
    void requestTimerRepeatsUntilBothLists();
    void recordsArriveInOrderOverTheSocket();

    void audio_data();
    void audio();
    void languageChange();
    void regionChange();
    void destructionClearsTunerFirst();
    void createDestroyWhileRecordsStream();

    void commandFrames_data();
    void commandFrames();
    void fmAmKeyMemory();
    void scanTypeSwitchesStepToSeek();
    void barButtons_data();
    void barButtons();
    void powerKey();
    void antennaPower();
    void equaliser();
    void keypadCreatedOnce();
    void clicksReachTheTuner_data();
    void clicksReachTheTuner();
    void longPressesReachTheTuner_data();
    void longPressesReachTheTuner();
    void settingsSwitchesReachTheTuner_data();
    void settingsSwitchesReachTheTuner();
    void keypadEntryTunes();

    // Backpressure (definitions at the end of the file).
    void floodKeepsEveryRecordInOrder();

private:
    TunerViewImpl* create();
    void feed(const tag_RadioCmdFromMCU& r) { m_ctl->HandleTunerMsgSlot(r); }
    QList<Frame> framesSinceClear() const;
    // Frames reach the service in order: a marker frame (RC_RDS, which no
    // control of the screen sends) closes what came before it.
    void settle();
    QList<Frame> collect();
    // Exactly one frame (code, param) since settle(), or none for code < 0.
    void expectFrame(int code, int param);
    template <class T>
    T* child(const char* name) const
    {
        return m_ctl->findChild<T*>(QLatin1String(name));
    }
    void showScreen();

    QTemporaryDir m_settings;
    FakeTunerService m_service;
    RadioModule m_radioModule;
    QSharedPointer<AuxinModulePlugin> m_auxin;
    TunerViewImpl* m_ctl = nullptr;
};

void tst_TunerViewImpl::initTestCase()
{
    qRegisterMetaType<RadioCmdFromMCU_T>("RadioCmdFromMCU_T");
    qRegisterMetaType<RadioInfo_t_>("RadioInfo_t_");
    QVERIFY(m_settings.isValid());
    DataSaveControl::setStoreFile(m_settings.filePath(QStringLiteral("settings.ini")));
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();
    m_auxin = QSharedPointer<AuxinModulePlugin>::create();
    hvappframework::ModuleManager::self()->addModule(m_auxin);
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), &m_radioModule));
    QVERIFY(m_service.start());
    // Long enough not to interfere; the timer test shortens it.
    TunerViewImpl::s_requestIntervalMs = 60000;
}

void tst_TunerViewImpl::cleanupTestCase()
{
    ProtocolComm::GetInstance()->Stop();
    ProtocolComm::DeleteInstance();
    m_service.stop();
}

void tst_TunerViewImpl::init()
{
    AppData::GetInstance()->setLastMemSrc(3);
    AppData::GetInstance()->setIsReversing(false);
}

void tst_TunerViewImpl::cleanup()
{
    delete m_ctl;
    m_ctl = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    TunerViewImpl::s_requestIntervalMs = 60000;
}

TunerViewImpl* tst_TunerViewImpl::create()
{
    delete m_ctl;
    m_ctl = new TunerViewImpl(nullptr);
    [&] { QTRY_VERIFY_WITH_TIMEOUT(m_service.hasClient(), 5000); }();
    return m_ctl;
}

QList<Frame> tst_TunerViewImpl::framesSinceClear() const
{
    QList<Frame> out;
    for (const RadioCmdToMCU& f : m_service.frames())
        out.append(Frame{int(f.code), int(f.param)});
    return out;
}

void tst_TunerViewImpl::settle()
{
    ProtocolComm::GetInstance()->Tuner_RDSOnOff(true);
    QTRY_COMPARE(m_service.frameCount(RC_RDS), 1);
    m_service.clearFrames();
}

QList<Frame> tst_TunerViewImpl::collect()
{
    ProtocolComm::GetInstance()->Tuner_RDSOnOff(true);
    [&] { QTRY_COMPARE(m_service.frameCount(RC_RDS), 1); }();
    QList<Frame> frames = framesSinceClear();
    if (!frames.isEmpty())
        frames.removeLast();
    m_service.clearFrames();
    return frames;
}

void tst_TunerViewImpl::expectFrame(int code, int param)
{
    const QList<Frame> frames = collect();
    QCOMPARE(frames.size(), code < 0 ? 0 : 1);
    if (code < 0)
        return;
    QCOMPARE(frames.at(0).code, code);
    QCOMPARE(frames.at(0).param, param);
}

void tst_TunerViewImpl::showScreen()
{
    feed(record(MCU_PRESET_FREQ));
    QVERIFY(m_ctl->isViewShown());
    m_ctl->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_ctl));
}

// ---- Construction ----

void tst_TunerViewImpl::firstStartSkipsTakeScreenOnce()
{
    AuxinModule* audio = m_auxin->getAuxinModule();
    AppData::GetInstance()->setLastMemSrc(2);
    audio->clearCalls();
    create();
    QCOMPARE(audio->calls().first(), QStringLiteral("takeScreen()"));

    AppData::GetInstance()->setLastMemSrc(0);
    audio->clearCalls();
    create();
    QVERIFY(!audio->calls().contains(QStringLiteral("takeScreen()")));

    audio->clearCalls();
    create();
    QCOMPARE(audio->calls().first(), QStringLiteral("takeScreen()"));
}

void tst_TunerViewImpl::construction()
{
    BaseControl::getInstance()->clearCalls();
    create();
    [&] { QTRY_VERIFY(m_service.frameCount(RC_REQUEST_LIST) >= 1); }();
    m_service.clearFrames();
    QVERIFY(m_pTuner == m_ctl);
    QCOMPARE(m_ctl->radioRegion(), 12);
    QCOMPARE(m_ctl->tunerView()->radioRegion(), 12);
    QVERIFY(BaseControl::getInstance()->calls().contains(QStringLiteral("setRadioRegion(12)")));
    QVERIFY(m_ctl->tunerView()->isHidden());
    QVERIFY(m_ctl->baseBar()->isHidden());
    QCOMPARE(m_ctl->baseBar()->currentTitle(), QStringLiteral("Radio"));
    QVERIFY(m_ctl->isRequestTimerRunning());
    QVERIFY(!m_ctl->keypad());
    QVERIFY(!m_ctl->eqView());

    const QList<HvIconButton*> presets = m_ctl->tunerView()->presetButtons();
    QCOMPARE(presets.size(), 6);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(presets.at(i)->objectName(), QStringLiteral("PS%1").arg(i + 1));
    m_ctl->initWidget();
    QCOMPARE(m_ctl->tunerView()->presetButtons().size(), 6);
}

void tst_TunerViewImpl::audioSetUpOrder()
{
    AuxinModule* audio = m_auxin->getAuxinModule();
    audio->clearCalls();
    create();
    QCOMPARE(audio->calls(), (QStringList{"takeScreen()", "setVideoOnly(false)", "setAVInMode(0)",
                                          "setAudioOnly(true)", "setAudioInChannel(1)", "streamOn()"}));
}

// ---- Status dispatch ----

void tst_TunerViewImpl::tuneInfoTexts_data()
{
    QTest::addColumn<uint>("freq");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("infoText");
    QTest::addColumn<QString>("freqDisp");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("bandName");
    QTest::newRow("FM1 87.50") << 8750u << 0 << "FM1  87.50 MHz" << "87.50" << "MHz" << "FM1";
    QTest::newRow("FM3 87.50") << 8750u << 2 << "FM3  87.50 MHz" << "87.50" << "MHz" << "FM3";
    QTest::newRow("FM2 105.10") << 10510u << 1 << "FM2  105.10 MHz" << "105.10" << "MHz" << "FM2";
    QTest::newRow("FM1 100.05") << 10005u << 0 << "FM1  100.05 MHz" << "100.05" << "MHz" << "FM1";
    QTest::newRow("AM1 531") << 531u << 3 << "AM1  531 kHz" << "531" << "kHz" << "AM1";
    QTest::newRow("AM2 1602") << 1602u << 4 << "AM2  1602 kHz" << "1602" << "kHz" << "AM2";
    QTest::newRow("2000 is FM") << 2000u << 0 << "FM1  20.00 MHz" << "20.00" << "MHz" << "FM1";
}

void tst_TunerViewImpl::tuneInfoTexts()
{
    QFETCH(uint, freq);
    QFETCH(int, band);
    QFETCH(QString, infoText);
    QFETCH(QString, freqDisp);
    QFETCH(QString, unit);
    QFETCH(QString, bandName);
    create();
    QSignalSpy info(&m_radioModule, &RadioModule::radioInfoChanged);
    feed(tuneInfo(freq, uint8_t(band)));
    QCOMPARE(QString::fromLocal8Bit(m_ctl->radioInfo().freqText), infoText);
    QVERIFY(!info.isEmpty());
    QCOMPARE(QString::fromLocal8Bit(m_radioModule.radioInfo().freqText), infoText);
    QCOMPARE(child<QLabel>("FreqDisp")->text(), freqDisp);
    QCOMPARE(child<QLabel>("MKHz")->text(), unit);
    QCOMPARE(child<QLabel>("BandName")->text(), bandName);
    QCOMPARE(AppData::GetInstance()->tunerBand(), band);
}

void tst_TunerViewImpl::firstTuneInfoOnFmBand()
{
    create();
    QSignalSpy bandSpy(m_ctl, &TunerViewImpl::sigRadioBandChanged);
    QSignalSpy params(m_ctl->tunerView(), &TunerView::sigRadioFreqParamChanged);
    QSignalSpy freqSpy(m_ctl->tunerView(), &TunerView::sigRadioCurFreqChanged);
    feed(tuneInfo(9810, 0, 2));
    QCOMPARE(bandSpy.count(), 0);
    QCOMPARE(params.count(), 0);
    QCOMPARE(freqSpy.count(), 1);
    QCOMPARE(freqSpy.at(0).at(0).toFloat(), 9810.0f);
    QCOMPARE(AppData::GetInstance()->tunerPreset(), 2);
    QVERIFY(child<HvIconButton>("PS2")->isDown());
}

void tst_TunerViewImpl::bandChangeToAm()
{
    create();
    tag_RadioCmdFromMCU flags = record(MCU_RDS_FLAGS);
    flags.rdsFlags = RDS_FLAG_AF;
    feed(flags);
    tag_RadioCmdFromMCU ps = record(MCU_PS_NAME);
    setName(ps.psName, "ROCK FM");
    feed(ps);
    QVERIFY(!child<QLabel>("AFDisp")->isHidden());

    QSignalSpy bandSpy(m_ctl, &TunerViewImpl::sigRadioBandChanged);
    QSignalSpy params(m_ctl->tunerView(), &TunerView::sigRadioFreqParamChanged);
    feed(tuneInfo(531, 3));
    QCOMPARE(bandSpy.count(), 1);
    QCOMPARE(bandSpy.at(0).at(0).value<unsigned char>(), 3);
    QVERIFY(child<QLabel>("AFDisp")->isHidden());
    QCOMPARE(child<HvRollingText>("PSDisp")->text(), QString());
    QCOMPARE(params.count(), 1);
    QCOMPARE(params.at(0).at(0).toBool(), false);
    QCOMPARE(params.at(0).at(1).toFloat(), 531.0f);
    QCOMPARE(params.at(0).at(2).toFloat(), 1629.0f);
    QCOMPARE(params.at(0).at(3).toFloat(), 1.0f);
    // The band change blanks the stored names of the current band.
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(m_ctl->lastMsg().psName), 8), QByteArray(8, ' '));
    QCOMPARE(m_ctl->lastMsg().pty, uint8_t(0));
}

void tst_TunerViewImpl::amToFmKeepsRds()
{
    create();
    feed(tuneInfo(531, 3));
    tag_RadioCmdFromMCU flags = record(MCU_RDS_FLAGS);
    flags.rdsFlags = RDS_FLAG_AF;
    feed(flags);
    feed(tuneInfo(8750, 0));
    QVERIFY(!child<QLabel>("AFDisp")->isHidden());
}

void tst_TunerViewImpl::equalStateRefreshes()
{
    create();
    feed(tuneInfo(9000, 1));
    tag_RadioCmdFromMCU ps = record(MCU_PS_NAME);
    setName(ps.psName, "NEWS");
    feed(ps);
    QSignalSpy info(m_ctl, &TunerViewImpl::sigRadioInfoChanged);
    QSignalSpy flag(m_ctl, &TunerViewImpl::sigRadioFlagChanged);
    child<QLabel>("FreqDisp")->setText(QStringLiteral("stale"));
    feed(tuneInfo(9000, 1));
    QCOMPARE(child<QLabel>("FreqDisp")->text(), QStringLiteral("90.00"));
    QCOMPARE(info.count(), 1);
    QCOMPARE(flag.count(), 1);
    QCOMPARE(QByteArray(m_ctl->radioInfo().psText), QByteArray("NEWS    "));
}

void tst_TunerViewImpl::stereoClearedOnAm()
{
    create();
    tag_RadioCmdFromMCU fm = tuneInfo(9810, 0);
    fm.stereo = 1;
    feed(fm);
    QCOMPARE(m_ctl->radioFlag() & 1u, 1u);
    QCOMPARE(child<QLabel>("STDispLabel")->text(), QStringLiteral("ST"));
    tag_RadioCmdFromMCU am = tuneInfo(999, 3);
    am.stereo = 1;
    QSignalSpy flag(&m_radioModule, &RadioModule::radioFlagChanged);
    feed(am);
    QCOMPARE(m_ctl->lastMsg().stereo, uint8_t(0));
    QCOMPARE(child<QLabel>("STDispLabel")->text(), QString());
    QCOMPARE(flag.last().at(0).toUInt() & 1u, 0u);
}

void tst_TunerViewImpl::rdsFlags_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<uint>("flagWord");
    QTest::addColumn<bool>("afSwitch");
    QTest::addColumn<bool>("taSwitch");
    QTest::addColumn<bool>("regSwitch");
    QTest::addColumn<QColor>("ta");
    QTest::addColumn<QColor>("tp");
    const QColor grey(128, 128, 128), white(255, 255, 255), orange(255, 128, 0);
    QTest::newRow("TA+TP+TA flagged") << 0x8A << 0x0Eu << false << true << false << orange << orange;
    QTest::newRow("AF only") << 0x04 << 0x00u << true << false << false << grey << grey;
    QTest::newRow("REG") << 0x40 << 0x10u << false << false << true << grey << grey;
    QTest::newRow("TA on, quiet") << 0x08 << 0x08u << false << true << false << white << white;
    QTest::newRow("TP without TA") << 0x02 << 0x04u << false << false << false << grey << grey;
    QTest::newRow("ignored bits") << 0x31 << 0x00u << false << false << false << grey << grey;
    QTest::newRow("all") << 0xFF << 0x1Eu << true << true << true << orange << orange;
}

void tst_TunerViewImpl::rdsFlags()
{
    QFETCH(int, flags);
    QFETCH(uint, flagWord);
    QFETCH(bool, afSwitch);
    QFETCH(bool, taSwitch);
    QFETCH(bool, regSwitch);
    QFETCH(QColor, ta);
    QFETCH(QColor, tp);
    create();
    tag_RadioCmdFromMCU fm = tuneInfo(9810, 0);
    fm.stereo = 1;
    feed(fm);
    tag_RadioCmdFromMCU r = record(MCU_RDS_FLAGS);
    r.rdsFlags = uint8_t(flags);
    QSignalSpy flag(m_ctl, &TunerViewImpl::sigRadioFlagChanged);
    feed(r);
    QCOMPARE(flag.count(), 1);
    QCOMPARE(flag.at(0).at(0).toUInt(), flagWord | 1u);
    QCOMPARE(m_ctl->lastMsg().rdsFlags, uint8_t(flags));
    QCOMPARE(child<MOnOffButton>("AFBtn")->onoffStatus(), afSwitch);
    QCOMPARE(child<MOnOffButton>("TABtn")->onoffStatus(), taSwitch);
    QCOMPARE(child<MOnOffButton>("RegBtn")->onoffStatus(), regSwitch);
    QCOMPARE(child<QLabel>("TADisp")->palette().color(QPalette::WindowText), ta);
    QCOMPARE(child<QLabel>("TPDisp")->palette().color(QPalette::WindowText), tp);
    QCOMPARE(child<QLabel>("AFDisp")->palette().color(QPalette::WindowText),
             afSwitch ? QColor(255, 255, 255) : QColor(128, 128, 128));
}

void tst_TunerViewImpl::pty_data()
{
    QTest::addColumn<int>("pty");
    QTest::addColumn<QByteArray>("ptyText");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << 0 << QByteArray() << QString();
    QTest::newRow("pop") << 10 << QByteArray("Pop M") << QStringLiteral("Pop M");
    QTest::newRow("alarm") << 31 << QByteArray("Alarm") << QStringLiteral("Alarm");
    QTest::newRow("out of range") << 32 << QByteArray("News") << QStringLiteral("News");
    QTest::newRow("far out of range") << 255 << QByteArray("News") << QStringLiteral("News");
}

void tst_TunerViewImpl::pty()
{
    QFETCH(int, pty);
    QFETCH(QByteArray, ptyText);
    QFETCH(QString, shown);
    create();
    tag_RadioCmdFromMCU news = record(MCU_PTY);
    news.pty = 1;
    news.selectedPty = 5;
    feed(news);
    tag_RadioCmdFromMCU r = record(MCU_PTY);
    r.pty = uint8_t(pty);
    r.selectedPty = 9;
    feed(r);
    QCOMPARE(QByteArray(m_ctl->radioInfo().ptyText), ptyText);
    QCOMPARE(child<HvRollingText>("PTYDisp")->text(), shown);
    QCOMPARE(m_ctl->lastMsg().selectedPty, uint8_t(pty > 31 ? 5 : 9));
}

void tst_TunerViewImpl::psName()
{
    create();
    tag_RadioCmdFromMCU r = record(MCU_PS_NAME);
    std::memcpy(r.psName, "ABCDEFGH", 8);
    r.pty = 7;
    feed(r);
    QCOMPARE(QByteArray(m_ctl->radioInfo().psText), QByteArray("ABCDEFGH"));
    QCOMPARE(child<HvRollingText>("PSDisp")->text(), QStringLiteral("ABCDEFGH"));
    // Fields of other kinds in the same record are not taken.
    QCOMPARE(m_ctl->lastMsg().pty, uint8_t(0));
}

void tst_TunerViewImpl::presetsAndNames()
{
    create();
    tag_RadioCmdFromMCU freqs = record(MCU_PRESET_FREQ);
    const uint16_t values[6] = {8750, 9010, 9810, 10610, 10800, 8750};
    std::memcpy(freqs.presetFreq, values, sizeof values);
    feed(freqs);
    QCOMPARE(child<HvIconButton>("PS3")->displayText(), QStringLiteral("98.10 MHz"));
    tag_RadioCmdFromMCU names = record(MCU_PRESET_PS);
    setName(names.presetPsName[2], "  JAZZ");
    feed(names);
    QCOMPARE(child<HvIconButton>("PS3")->displayText(), QStringLiteral("JAZZ"));
    QCOMPARE(child<HvIconButton>("PS1")->displayText(), QStringLiteral("87.50 MHz"));
}

void tst_TunerViewImpl::ignoredKinds()
{
    create();
    feed(tuneInfo(9810, 0));
    const QByteArray before(reinterpret_cast<const char*>(&m_ctl->lastMsg()), sizeof(tag_RadioCmdFromMCU));
    const QString shown = child<QLabel>("FreqDisp")->text();
    for (uint32_t kind : {1u, 2u, 3u, 10u, 25u, 27u, 32u, 37u, 255u, 0xFFFFFFFFu}) {
        tag_RadioCmdFromMCU r = tuneInfo(12345, 4, 3);
        r.cmd = kind;
        feed(r);
    }
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(&m_ctl->lastMsg()), sizeof(tag_RadioCmdFromMCU)), before);
    QCOMPARE(child<QLabel>("FreqDisp")->text(), shown);
}

void tst_TunerViewImpl::handshake_data()
{
    QTest::addColumn<bool>("presetsFirst");
    QTest::newRow("tune info first") << false;
    QTest::newRow("presets first") << true;
}

void tst_TunerViewImpl::handshake()
{
    QFETCH(bool, presetsFirst);
    create();
    QSignalSpy ok(m_ctl, &TunerViewImpl::sigRadioInfoOK);
    feed(presetsFirst ? record(MCU_PRESET_FREQ) : tuneInfo(9810, 0));
    QCOMPARE(ok.count(), 0);
    QVERIFY(!m_ctl->isViewShown());
    feed(presetsFirst ? tuneInfo(9810, 0) : record(MCU_PRESET_FREQ));
    QCOMPARE(ok.count(), 1);
    QVERIFY(m_ctl->isViewShown());
    QVERIFY(!m_ctl->tunerView()->isHidden());
    QVERIFY(!m_ctl->baseBar()->isHidden());
    feed(tuneInfo(9830, 0));
    feed(record(MCU_PRESET_FREQ));
    QCOMPARE(ok.count(), 1);
}

void tst_TunerViewImpl::requestTimerRepeatsUntilBothLists()
{
    TunerViewImpl::s_requestIntervalMs = 20;
    m_service.setReading(true);
    create();
    m_service.clearFrames();
    QTRY_VERIFY(m_service.frameCount(RC_REQUEST_LIST) >= 3);
    QVERIFY(!m_ctl->tunerView()->isHidden());
    QVERIFY(!m_ctl->baseBar()->isHidden());
    feed(tuneInfo(9810, 0));
    QTRY_VERIFY(m_service.frameCount(RC_REQUEST_LIST) >= 4);
    QVERIFY(m_ctl->isRequestTimerRunning());
    feed(record(MCU_PRESET_FREQ));
    QTRY_VERIFY(!m_ctl->isRequestTimerRunning());
}

void tst_TunerViewImpl::recordsArriveInOrderOverTheSocket()
{
    create();
    tag_RadioCmdFromMCU presets = record(MCU_PRESET_FREQ);
    presets.presetFreq[0] = 9810;
    tag_RadioCmdFromMCU names = record(MCU_PRESET_PS);
    setName(names.presetPsName[0], "RADIO 1");
    tag_RadioCmdFromMCU ps = record(MCU_PS_NAME);
    setName(ps.psName, "RADIO 1");
    tag_RadioCmdFromMCU rt = record(MCU_RADIO_TEXT);
    std::strcpy(reinterpret_cast<char*>(rt.radioText), "Now playing: something");
    tag_RadioCmdFromMCU pty = record(MCU_PTY);
    pty.pty = 10;
    tag_RadioCmdFromMCU flags = record(MCU_RDS_FLAGS);
    flags.rdsFlags = RDS_FLAG_AF | RDS_FLAG_TA | RDS_FLAG_TP;
    tag_RadioCmdFromMCU first = tuneInfo(9810, 0, 1);
    first.stereo = 1;
    // Later records override earlier ones only when they arrive in order.
    tag_RadioCmdFromMCU second = tuneInfo(10510, 1, 0);
    for (const tag_RadioCmdFromMCU& r : {presets, names, first, ps, rt, pty, flags, second})
        QVERIFY(m_service.writeRecord(r));

    // The layout's own text is 105.10 too: wait for the last record.
    QTRY_COMPARE(m_ctl->lastMsg().freq, 10510u);
    QCOMPARE(child<QLabel>("FreqDisp")->text(), QStringLiteral("105.10"));
    QTRY_VERIFY(m_ctl->isViewShown());
    QCOMPARE(child<QLabel>("BandName")->text(), QStringLiteral("FM2"));
    QCOMPARE(child<HvIconButton>("PS1")->displayText(), QStringLiteral("RADIO 1"));
    QCOMPARE(child<HvRollingText>("RTDisp")->text(), QStringLiteral("Now playing: something"));
    QCOMPARE(child<HvRollingText>("PTYDisp")->text(), QStringLiteral("Pop M"));
    QCOMPARE(QByteArray(m_radioModule.radioInfo().freqText), QByteArray("FM2  105.10 MHz"));
    QCOMPARE(m_radioModule.radioFlag(), 0x0Cu);
    QVERIFY(!m_ctl->tunerView()->isHidden());
}

// ---- Audio, activation, standby ----

void tst_TunerViewImpl::audio_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<int>("playState");
    QTest::addColumn<bool>("stopped");
    QTest::newRow("start while playing") << "start" << QStringList() << 0 << false;
    QTest::newRow("stop then start") << "stop start" << QStringList{"setAVInMode(0)", "streamOn()"} << 0 << false;
    QTest::newRow("stream off") << "off" << QStringList{"streamOff()"} << 2 << true;
    QTest::newRow("stream off then start")
        << "off start" << QStringList{"streamOff()", "setAVInMode(0)", "streamOn()"} << 2 << false;
    QTest::newRow("reversing start") << "reverse off start" << QStringList{"streamOff()", "streamOn()"} << 2 << false;
    QTest::newRow("stream on 0") << "on0" << QStringList{"streamOn()"} << 1 << false;
    QTest::newRow("stream on 2") << "on2" << QStringList{"streamOn()"} << 1 << false;
    QTest::newRow("stop only") << "stop" << QStringList() << 0 << true;
}

void tst_TunerViewImpl::audio()
{
    QFETCH(QString, steps);
    QFETCH(QStringList, calls);
    QFETCH(int, playState);
    QFETCH(bool, stopped);
    create();
    AuxinModule* audio = m_auxin->getAuxinModule();
    audio->clearCalls();
    AppData::GetInstance()->setPlayState(0);
    QSignalSpy reset(m_ctl, &TunerViewImpl::sigResetStandbyTimer);
    QSignalSpy host(BaseControl::getInstance(), &BaseControl::playpausebtnChangeSig);
    for (const QString& step : steps.split(QLatin1Char(' '))) {
        if (step == QLatin1String("start"))
            m_ctl->RadioOnStartSlot();
        else if (step == QLatin1String("stop"))
            m_ctl->onStop();
        else if (step == QLatin1String("reverse"))
            AppData::GetInstance()->setIsReversing(true);
        else
            QMetaObject::invokeMethod(m_ctl, "TunerAudioStreamOnOffSlot",
                                      Q_ARG(int, step == QLatin1String("off") ? 1 : step.mid(2).toInt()));
    }
    QCOMPARE(audio->calls(), calls);
    QCOMPARE(AppData::GetInstance()->playState(), playState);
    QCOMPARE(m_ctl->isRadioStopped(), stopped);
    QCOMPARE(reset.count(), steps.count(QStringLiteral("start")));
    QCOMPARE(host.count(), playState ? 1 : 0);
    if (playState)
        QCOMPARE(host.at(0).at(0).toInt(), playState);
}

void tst_TunerViewImpl::languageChange()
{
    create();
    feed(tuneInfo(531, 3));
    m_ctl->baseBar()->setCurrentTitle(QStringLiteral("x"), 0);
    child<QLabel>("STDispLabel")->setText(QStringLiteral("ST"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_ctl, &change);
    QCOMPARE(m_ctl->baseBar()->currentTitle(), QStringLiteral("Radio"));
    // The display re-translates after its parent, so its stereo label reads
    // "ST" until the next stereo update, even on AM.
    QCOMPARE(child<QLabel>("STDispLabel")->text(), QStringLiteral("ST"));
    feed(tuneInfo(531, 3));
    QCOMPARE(child<QLabel>("STDispLabel")->text(), QString());
}

void tst_TunerViewImpl::regionChange()
{
    create();
    feed(tuneInfo(531, 3));
    QSignalSpy region(m_ctl, &TunerViewImpl::sigRadioRegionChanged);
    emit BaseControl::getInstance()->sigRadioRegionChanged(9);
    QCOMPARE(m_ctl->radioRegion(), 9);
    QCOMPARE(m_ctl->tunerView()->radioRegion(), 9);
    QCOMPARE(region.count(), 1);
    QCOMPARE(region.at(0).at(0).value<unsigned char>(), 3);
    QCOMPARE(region.at(0).at(1).toInt(), 9);
    // The scale takes the new row at the next band change.
    QSignalSpy params(m_ctl->tunerView(), &TunerView::sigRadioFreqParamChanged);
    feed(tuneInfo(6800, 0));
    QCOMPARE(params.count(), 1);
    QCOMPARE(params.at(0).at(1).toFloat(), 65.0f);
    QCOMPARE(params.at(0).at(2).toFloat(), 74.0f);
    // A region outside the table falls back to region 12's row.
    emit BaseControl::getInstance()->sigRadioRegionChanged(99);
    feed(tuneInfo(999, 3));
    QCOMPARE(params.last().at(1).toFloat(), 531.0f);
    QCOMPARE(params.last().at(2).toFloat(), 1629.0f);
}

void tst_TunerViewImpl::destructionClearsTunerFirst()
{
    create();
    QPointer<TunerView> view = m_ctl->tunerView();
    QPointer<BaseBar> bar = m_ctl->baseBar();
    int destroyedWhileTunerSet = 0;
    int destroyedChildren = 0;
    for (QObject* child : {static_cast<QObject*>(view.data()), static_cast<QObject*>(bar.data())})
        connect(child, &QObject::destroyed, [&] {
            ++destroyedChildren;
            if (m_pTuner)
                ++destroyedWhileTunerSet;
        });
    delete m_ctl;
    m_ctl = nullptr;
    QVERIFY(!m_pTuner);
    QVERIFY(view.isNull());
    QVERIFY(bar.isNull());
    QCOMPARE(destroyedChildren, 2);
    QCOMPARE(destroyedWhileTunerSet, 0);
}

// Controllers come and go while the service streams records: no record may
// reach a controller that is gone (AddressSanitizer catches the rest).
void tst_TunerViewImpl::createDestroyWhileRecordsStream()
{
    create();
    std::atomic<bool> streaming{true};
    std::atomic<int> written{0};
    std::thread feeder([&] {
        tag_RadioCmdFromMCU r = tuneInfo(8750, 0);
        while (streaming) {
            r.freq = 8750 + uint32_t(written % 400) * 5;
            if (!m_service.writeRecord(r))
                break;
            ++written;
        }
    });
    for (int i = 0; i < 60; ++i) {
        create();
        QCoreApplication::processEvents();
        delete m_ctl;
        m_ctl = nullptr;
        QCoreApplication::processEvents();
    }
    QTRY_VERIFY(m_radioModule.receivedCount() > 0);
    streaming = false;
    feeder.join();
    QVERIFY(written > 0);
}

// ---- Commands ----

void tst_TunerViewImpl::commandFrames_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVariant>("arg");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("param");

    const int none = -1;
    for (int band = 0; band <= 4; ++band) {
        const bool am = band > 2;
        const int place = am ? band - 3 : band;
        const QByteArray b = "band " + QByteArray::number(band) + ": ";
        auto row = [&](const char* name, const char* slot, const QVariant& arg, int code, int param) {
            QTest::newRow(b + name) << band << QByteArray(slot) << arg << code << param;
        };
        row("seek up", "SeekUpPressed", QString(), RC_SEEK_UP, 0);
        row("seek down", "SeekDownPressed", QString(), RC_SEEK_DOWN, 0);
        row("step up", "StepUpPressed", QString(), RC_STEP_UP, 0);
        row("step down", "StepDownPressed", QString(), RC_STEP_DOWN, 0);
        row("auto search", "AutoSearch", QString(), RC_AUTO_SEARCH, 0);
        row("scan", "ScanPressed", QString(), RC_SCAN, 0);
        row("preset scan", "PSPressed", QString(), RC_PS, 0);
        row("next station", "NextStationPressed", QString(), RC_PRESET_DOWN, 0);
        row("prev station", "PrevStationPressed", QString(), RC_PRESET_UP, 0);
        row("favourite", "favorButtonPressed", QString(), RC_FAVOR, 0);
        row("PTY seek", "PTYSeekClickedSlot", QString(), RC_PTY_SEEK, 0);
        row("PTY select", "PTYSelectedChangedSlot", 7, RC_PTY_SELECTED, 7);
        row("preset 1", "PresetButtonPressed", QStringLiteral("1"), RC_PRESET, place * 6 + 1);
        row("preset 3", "PresetButtonPressed", QStringLiteral("3"), RC_PRESET, place * 6 + 3);
        row("preset 6 long", "PresetButtonLongPressed", QStringLiteral("6"), RC_PRESET_LONG, place * 6 + 6);
        row("preset 9 (unbounded key)", "PresetButtonPressed", QStringLiteral("9"), RC_PRESET, place * 6 + 9);
        row("preset id not a number", "PresetButtonPressed", QStringLiteral("PS1"), none, 0);
        row("preset id empty", "PresetButtonLongPressed", QString(), none, 0);
        row("FM key", "bandButtonPressed", QStringLiteral("1"), RC_BAND, am ? 1 : (band + 1) % 3 + 1);
        row("AM key", "bandButtonPressed", QStringLiteral("2"), RC_BAND, am ? (band == 3 ? 5 : 4) : 4);
        row("band key 3", "bandButtonPressed", QStringLiteral("3"), RC_BAND, 0);
        row("band key 4", "bandButtonPressed", QStringLiteral("4"), RC_BAND, am ? 1 : 4);
        row("band key 5", "bandButtonPressed", QStringLiteral("5"), none, 0);
        row("band switch", "bandButtonPressed", QStringLiteral("ID_band"), none, 0);
        row("Add", "bandIncDecButtonPressed", QStringLiteral("Add"), RC_BAND,
            am ? (band == 3 ? 5 : 4) : (band + 1) % 3 + 1);
        row("Dec", "bandIncDecButtonPressed", QStringLiteral("Dec"), RC_BAND,
            am ? (band == 3 ? 5 : 4) : (band + 2) % 3 + 1);
        row("ID_band2", "bandIncDecButtonPressed", QStringLiteral("ID_band2"), RC_BAND, 3);
        row("ID_band7", "bandIncDecButtonPressed", QStringLiteral("ID_band7"), none, 0);
        row("ID_bandx", "bandIncDecButtonPressed", QStringLiteral("ID_bandx"), none, 0);
        row("add lower case", "bandIncDecButtonPressed", QStringLiteral("add"), RC_BAND, band + 1);
        row("changeBand 0", "changeBandSlot", 0, RC_BAND, 1);
        row("changeBand 4", "changeBandSlot", 4, RC_BAND, 5);
        row("changeBand -1", "changeBandSlot", -1, none, 0);
        row("changeBand 5", "changeBandSlot", 5, none, 0);
        row("keypad freq", "FreqFromKeypad", QVariant::fromValue<ushort>(8750), RC_SET_FREQ, 8750);
        row("slider freq", "FreqFromRadioSlider", QVariant::fromValue<ushort>(1602), RC_SET_FREQ, 1602);
        row("favourite freq", "FreqFromFavorList", QVariant::fromValue<uint>(0x12345), RC_SET_FREQ, 0x2345);
        row("speech 1", "speechCommandSlot_fromBase", 1, RC_AUTO_SEARCH, 0);
        row("speech 2", "speechCommandSlot_fromBase", 2, none, 0);
        row("stereo", "StereoBtnClickedSlot", QString(), none, 0);
        row("band inc 2", "bandIncDecButtonPressed2", QString(), none, 0);
    }
}

void tst_TunerViewImpl::commandFrames()
{
    QFETCH(int, band);
    QFETCH(QByteArray, slot);
    QFETCH(QVariant, arg);
    QFETCH(int, code);
    QFETCH(int, param);
    create();
    feed(tuneInfo(band > 2 ? 999 : 9810, uint8_t(band)));
    settle();

    bool invoked = false;
    switch (arg.userType()) {
    case QMetaType::QString:
        invoked = QMetaObject::invokeMethod(m_ctl, slot.constData(), Q_ARG(QString, arg.toString()));
        break;
    case QMetaType::Int:
        invoked = QMetaObject::invokeMethod(m_ctl, slot.constData(), Q_ARG(int, arg.toInt()));
        break;
    case QMetaType::UShort:
        invoked = QMetaObject::invokeMethod(m_ctl, slot.constData(), Q_ARG(unsigned short, arg.value<ushort>()));
        break;
    case QMetaType::UInt:
        invoked = QMetaObject::invokeMethod(m_ctl, slot.constData(), Q_ARG(unsigned int, arg.toUInt()));
        break;
    }
    QVERIFY(invoked);
    expectFrame(code, param);
}

void tst_TunerViewImpl::fmAmKeyMemory()
{
    create();
    const struct {
        uint8_t band;
        int which;
        int expected;
    } steps[] = {
        {0, 1, 2},   // FM1 -> FM2, remembered
        {3, 1, 2},   // from AM back to the remembered FM2
        {2, 1, 1},   // FM3 -> FM1, remembered
        {4, 1, 1},   // from AM2 to FM1
        {0, 2, 4},   // FM -> the remembered AM1
        {3, 2, 5},   // AM1 -> AM2, remembered
        {1, 2, 5},   // FM -> AM2
        {4, 2, 4},   // AM2 -> AM1
        {0, 3, -1},  // any other value: nothing
    };
    for (const auto& s : steps) {
        feed(tuneInfo(s.band > 2 ? 999 : 9000, s.band));
        settle();
        emit BaseControl::getInstance()->FMAMChangedSig(s.which);
        const QList<Frame> frames = collect();
        if (s.expected < 0) {
            QCOMPARE(frames.size(), 0);
            continue;
        }
        QCOMPARE(frames.size(), 1);
        QCOMPARE(frames.at(0).code, int(RC_BAND));
        QCOMPARE(frames.at(0).param, s.expected);
    }

    // The band keys of the screen keep their own memory: the last bands the
    // tuner reported.
    feed(tuneInfo(9000, 1));
    feed(tuneInfo(999, 4));
    settle();
    m_ctl->bandButtonPressed(QStringLiteral("1"));
    m_ctl->bandButtonPressed(QStringLiteral("2"));
    feed(tuneInfo(9000, 2));
    m_ctl->bandButtonPressed(QStringLiteral("2"));
    const QList<Frame> frames = collect();
    QCOMPARE(frames.size(), 3);
    QCOMPARE(frames.at(0).param, 2);
    QCOMPARE(frames.at(1).param, 4);
    QCOMPARE(frames.at(2).param, 5);
}

void tst_TunerViewImpl::scanTypeSwitchesStepToSeek()
{
    create();
    QVERIFY(!m_ctl->scanType());
    MOnOffButton* scan = child<MOnOffButton>("ScanBtn");
    QVERIFY(scan);
    emit scan->onoffStatusChanged(QStringLiteral("ScanBtn"), true);
    QVERIFY(m_ctl->scanType());
    QCOMPARE(DataSaveControl::readSettingData(SetupStrIdConst::setupRadioScanType, false, QString()).toBool(), true);
    settle();
    m_ctl->StepUpPressed(QString());
    m_ctl->StepDownPressed(QString());
    m_ctl->ScanTypeSwitchSlot(QString());
    m_ctl->StepUpPressed(QString());
    const QList<Frame> frames = collect();
    QCOMPARE(frames.size(), 3);
    QCOMPARE(frames.at(0).code, int(RC_SEEK_UP));
    QCOMPARE(frames.at(1).code, int(RC_SEEK_DOWN));
    QCOMPARE(frames.at(2).code, int(RC_STEP_UP));
    QCOMPARE(DataSaveControl::readSettingData(SetupStrIdConst::setupRadioScanType, true, QString()).toBool(), false);

    // A new controller reads the stored scan type.
    m_ctl->ScanTypeSwitchSlot(QString());
    create();
    QVERIFY(m_ctl->scanType());
    QVERIFY(child<MOnOffButton>("ScanBtn")->onoffStatus());
    m_ctl->ScanTypeSwitchSlot(QString());
}

void tst_TunerViewImpl::barButtons_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QStringList>("hostCalls");
    QTest::addColumn<QStringList>("switches");
    QTest::newRow("home") << "home" << QStringList() << QStringList{"home"};
    QTest::newRow("carplay") << "carplay" << QStringList{"sendUserEvent(carplay,7,true,true)"} << QStringList();
    QTest::newRow("AndroidAuto") << "AndroidAuto"
                                 << QStringList{"sendUserEvent(androidauto,6,true,true)",
                                                "showDeviceSelectDialog(AndroidAuto,1)"}
                                 << QStringList();
    QTest::newRow("Home") << "Home" << QStringList() << QStringList();
    QTest::newRow("CARPLAY") << "CARPLAY" << QStringList() << QStringList();
    QTest::newRow("androidauto") << "androidauto" << QStringList() << QStringList();
}

void tst_TunerViewImpl::barButtons()
{
    QFETCH(QString, id);
    QFETCH(QStringList, hostCalls);
    QFETCH(QStringList, switches);
    create();
    BaseControl::getInstance()->clearCalls();
    hvappframework::ActivityManager::self()->clearSwitchRequests();
    emit m_ctl->baseBar()->btnClickedSig(id);
    QCOMPARE(BaseControl::getInstance()->calls(), hostCalls);
    QCOMPARE(hvappframework::ActivityManager::self()->switchRequests(), switches);
}

void tst_TunerViewImpl::powerKey()
{
    create();
    AuxinModule* audio = m_auxin->getAuxinModule();
    audio->clearCalls();
    hvappframework::ActivityManager::self()->clearSwitchRequests();
    emit m_ctl->tunerView()->sigOnPowerBtnClicked(QStringLiteral("power"));
    QCOMPARE(audio->calls(), QStringList{"streamOff()"});
    QCOMPARE(hvappframework::ActivityManager::self()->switchRequests(), QStringList{"home"});
    QVERIFY(m_ctl->isRadioStopped());
    m_ctl->RadioOnStartSlot();
    QCOMPARE(audio->calls().last(), QStringLiteral("streamOn()"));
}

void tst_TunerViewImpl::antennaPower()
{
    create();
    BaseControl::getInstance()->clearCalls();
    settle();
    emit m_ctl->tunerView()->sigAntPowerStatusChange(QStringLiteral("ant"), false);
    QCOMPARE(BaseControl::getInstance()->calls(), QStringList{"SendDataToMcu(12,182,0)"});
    QCOMPARE(DataSaveControl::readSettingData(SetupStrIdConst::setupRadioAntPower, 7, QString()).toInt(), 0);
    emit m_ctl->tunerView()->sigAntPowerStatusChange(QStringLiteral("ant"), true);
    QCOMPARE(BaseControl::getInstance()->calls().last(), QStringLiteral("SendDataToMcu(12,182,1)"));
    QCOMPARE(DataSaveControl::readSettingData(SetupStrIdConst::setupRadioAntPower, 7, QString()).toInt(), 1);
    QCOMPARE(collect().size(), 0);
}

void tst_TunerViewImpl::equaliser()
{
    create();
    QSignalSpy stop(m_ctl, &TunerViewImpl::sigStopStandbyTimer);
    QSignalSpy reset(m_ctl, &TunerViewImpl::sigResetStandbyTimer);
    m_ctl->RadioexitEqSlot();
    QCOMPARE(reset.count(), 1);

    feed(tuneInfo(9810, 0));
    showScreen();
    QTest::mouseClick(child<HvIconButton>("EQBtn"), Qt::LeftButton);
    QPointer<SetupEqView> eq = m_ctl->eqView();
    QVERIFY(eq);
    QVERIFY(eq->isVisible());
    QCOMPARE(eq->geometry(), QRect(0, 0, 1280, 720));
    QCOMPARE(stop.count(), 1);
    emit eq->exitEqSig();
    QVERIFY(!m_ctl->eqView());
    QCOMPARE(reset.count(), 2);
    QTRY_VERIFY(eq.isNull());
    m_ctl->RadioEqBtnClickedSlot();
    QVERIFY(m_ctl->eqView());
    QVERIFY(m_ctl->eqView() != nullptr);
}

void tst_TunerViewImpl::keypadCreatedOnce()
{
    create();
    feed(tuneInfo(999, 4));
    showScreen();
    QSignalSpy region(m_ctl, &TunerViewImpl::sigRadioRegionChanged);
    m_ctl->KeypadButtonPressed(QString());
    RadioKeypad* keypad = m_ctl->keypad();
    QVERIFY(keypad);
    QCOMPARE(region.count(), 1);
    QCOMPARE(region.at(0).at(0).value<unsigned char>(), 4);
    QCOMPARE(region.at(0).at(1).toInt(), 12);
    QVERIFY(!keypad->isHidden());
    QCOMPARE(keypad->findChild<QLabel*>(QStringLiteral("txtFAM"))->text(), QStringLiteral("AM:"));

    m_ctl->exitKeypadSlot();
    QVERIFY(keypad->isHidden());
    m_ctl->KeypadButtonPressed(QString());
    QCOMPARE(m_ctl->keypad(), keypad);
    QCOMPARE(region.count(), 1);
    QVERIFY(!keypad->isHidden());
    // The bar stays above the keypad.
    const QObjectList kids = m_ctl->children();
    QVERIFY(kids.indexOf(m_ctl->baseBar()) > kids.indexOf(keypad));

    m_ctl->hide();
    QVERIFY(keypad->isHidden());
    m_ctl->show();
    QVERIFY(keypad->isHidden());
}

// ---- Real input on the real widgets ----

void tst_TunerViewImpl::clicksReachTheTuner_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("param");
    const struct {
        const char* widget;
        int code;
        int fmParam;
        int amParam;
    } buttons[] = {
        {"SeekUp", RC_SEEK_UP, 0, 0},
        {"SeekDown", RC_SEEK_DOWN, 0, 0},
        {"StepUp", RC_STEP_UP, 0, 0},
        {"StepDown", RC_STEP_DOWN, 0, 0},
        {"ASPSBtn", RC_SCAN, 0, 0},
        {"DX_LOC", RC_DX_LOC, 1, 1},
        {"PS1", RC_PRESET, 7, 1},
        {"PS4", RC_PRESET, 10, 4},
        {"PS6", RC_PRESET, 12, 6},
        {"FMicon", RC_BAND, 3, 2},
        {"AMicon", RC_BAND, 4, 5},
        {"BandSwitch", -1, 0, 0},
        {"Keyboard", -1, 0, 0},
    };
    for (int band : {1, 3}) {
        for (const auto& b : buttons)
            QTest::newRow(qPrintable(QStringLiteral("%1 band %2").arg(b.widget).arg(band)))
                << band << b.widget << b.code << (band > 2 ? b.amParam : b.fmParam);
    }
}

void tst_TunerViewImpl::clicksReachTheTuner()
{
    QFETCH(int, band);
    QFETCH(QString, widget);
    QFETCH(int, code);
    QFETCH(int, param);
    create();
    feed(tuneInfo(band > 2 ? 999 : 9810, uint8_t(band)));
    feed(tuneInfo(band > 2 ? 9000 : 999, band > 2 ? 1 : 3));
    feed(tuneInfo(band > 2 ? 999 : 9810, uint8_t(band)));
    showScreen();
    HvIconButton* button = m_ctl->findChild<HvIconButton*>(widget);
    QVERIFY(button);
    settle();
    QTest::mouseClick(button, Qt::LeftButton);
    expectFrame(code, param);
}

void tst_TunerViewImpl::longPressesReachTheTuner_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("param");
    QTest::newRow("store PS2 on FM3") << "PS2" << 2 << int(RC_PRESET_LONG) << 14;
    QTest::newRow("store PS6 on AM2") << "PS6" << 4 << int(RC_PRESET_LONG) << 12;
    QTest::newRow("store PS1 on FM1") << "PS1" << 0 << int(RC_PRESET_LONG) << 1;
    QTest::newRow("auto search") << "ASPSBtn" << 0 << int(RC_AUTO_SEARCH) << 0;
}

void tst_TunerViewImpl::longPressesReachTheTuner()
{
    QFETCH(QString, widget);
    QFETCH(int, band);
    QFETCH(int, code);
    QFETCH(int, param);
    create();
    feed(tuneInfo(band > 2 ? 999 : 9810, uint8_t(band)));
    showScreen();
    HvIconButton* button = m_ctl->findChild<HvIconButton*>(widget);
    QVERIFY(button);
    button->setLongPressThreshold(50);
    QSignalSpy longPress(button, &HvIconButton::btnLongPress);
    settle();
    QTest::mousePress(button, Qt::LeftButton);
    QTRY_COMPARE(longPress.count(), 1);
    QTest::mouseRelease(button, Qt::LeftButton);
    expectFrame(code, param);
}

void tst_TunerViewImpl::settingsSwitchesReachTheTuner_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<int>("code");
    QTest::newRow("AF") << "AFBtn" << int(RC_AF);
    QTest::newRow("TA") << "TABtn" << int(RC_TA);
    QTest::newRow("REG") << "RegBtn" << int(RC_REG);
    QTest::newRow("LOC") << "LocOnOff" << int(RC_DX_LOC);
}

void tst_TunerViewImpl::settingsSwitchesReachTheTuner()
{
    QFETCH(QString, widget);
    QFETCH(int, code);
    create();
    feed(tuneInfo(9810, 0));
    showScreen();
    QTest::mouseClick(child<HvIconButton>("setupBtn"), Qt::LeftButton);
    QVERIFY(m_ctl->tunerView()->settingPage()->isVisible());
    MOnOffButton* sw = m_ctl->findChild<MOnOffButton*>(widget);
    QVERIFY(sw);
    settle();
    QTest::mouseClick(sw, Qt::LeftButton);
    QTest::mouseClick(sw, Qt::LeftButton);
    const QList<Frame> frames = collect();
    QCOMPARE(frames.size(), 2);
    QCOMPARE(frames.at(0).code, code);
    QCOMPARE(frames.at(0).param, 1);
    QCOMPARE(frames.at(1).code, code);
    QCOMPARE(frames.at(1).param, 0);

    QTest::mouseClick(m_ctl->findChild<HvIconButton*>(QStringLiteral("setup_close")), Qt::LeftButton);
    QVERIFY(!m_ctl->tunerView()->settingPage()->isVisible());
}

void tst_TunerViewImpl::keypadEntryTunes()
{
    create();
    feed(tuneInfo(9810, 0));
    showScreen();
    QTest::mouseClick(child<HvIconButton>("Keyboard"), Qt::LeftButton);
    RadioKeypad* keypad = m_ctl->keypad();
    QVERIFY(keypad && keypad->isVisible());
    settle();
    for (const char* key : {"Keypad_1", "Keypad_0", "Keypad_5", "Keypad_1", "Keypad_OK"})
        QTest::mouseClick(keypad->findChild<HvIconButton*>(QLatin1String(key)), Qt::LeftButton);
    const QList<Frame> frames = collect();
    QCOMPARE(frames.size(), 1);
    QCOMPARE(frames.at(0).code, int(RC_SET_FREQ));
    QCOMPARE(frames.at(0).param, 10510);
    QVERIFY(keypad->isHidden());
}

// ---- Backpressure ----

// Tune-info records with new frequencies as fast as the link takes them:
// each one is handled, in order, and never more than 64 wait at a time.
// (Controllers coming and going under such a flood: above.)
void tst_TunerViewImpl::floodKeepsEveryRecordInOrder()
{
    create();
    QSignalSpy freqs(m_ctl->tunerView(), &TunerView::sigRadioCurFreqChanged);
    int maxQueued = 0;
    connect(m_ctl->tunerView(), &TunerView::sigRadioCurFreqChanged, m_ctl,
            [&] { maxQueued = qMax(maxQueued, m_pTuner.queuedCount()); });
    const int total = 3000;
    std::thread writer([&] {
        for (int i = 0; i < total && m_service.writeRecord(tuneInfo(9000 + uint32_t(i), 0)); ++i) {
        }
    });
    const bool all = QTest::qWaitFor([&] { return freqs.count() == total; }, 60000);
    writer.join();
    QVERIFY(all);
    for (int i = 0; i < total; ++i)
        QCOMPARE(freqs.at(i).at(0).toFloat(), float(9000 + i));
    QVERIFY(maxQueued > 0 && maxQueued <= TunerHandle::MaxQueued);
    QCOMPARE(m_pTuner.queuedCount(), 0);
}

QTEST_MAIN(tst_TunerViewImpl)
#include "tst_tunerviewimpl.moc"
