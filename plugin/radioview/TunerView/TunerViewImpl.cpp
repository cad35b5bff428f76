#include "TunerViewImpl.h"
#include "ui_RadioMain.h"

#include "PtyNames.h"
#include "ProtocolComm.h"
#include "RadioEmptyView.h"
#include "RadioKeypad.h"
#include "TunerHandle.h"
#include "TunerView.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AuxinModule.h"
#include "BaseBar.h"
#include "BaseControl.h"
#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "ModuleManager.h"
#include "SetupEqView.h"
#include "SetupStrIdConst.h"
#include "UIManager.h"

#include <QCoreApplication>
#include <QDebug>
#include <QElapsedTimer>
#include <QPointer>
#include <QEvent>
#include <QTimerEvent>

#include <cstdio>
#include <cstring>

namespace {

// Start-up list request, repeated until the tuner has answered.
constexpr int RequestIntervalMs = 560;
// Longest run of waiting records handled between two paints: a frame.
constexpr int DrainFrameMs = 16;

// takeScreen() is skipped once per process: at the first construction that
// finds last-memory source 0.
bool s_bFirstStart = true;

// Copies text into a fixed, NUL-padded field, always leaving a terminator.
void copyField(char* field, int width, const QByteArray& text)
{
    std::memset(field, 0, size_t(width));
    std::memcpy(field, text.constData(), size_t(qMin(text.size(), width - 1)));
}

QObject* moduleImpl(const QString& name)
{
    QSharedPointer<hvappframework::Module> module = hvappframework::ModuleManager::self()->getModule(name);
    return module ? module->getModuleImpl() : nullptr;
}

void switchToHome()
{
    hvappframework::ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
}

} // namespace

TunerViewImpl::TunerViewImpl(QWidget* parent) : BaseView(QStringLiteral("radioview"), parent)
{
    m_pTuner = this;
    std::memset(&m_lastMsg, 0, sizeof m_lastMsg);
    std::memset(&m_radioInfo, 0, sizeof m_radioInfo);

    if (BaseControl* control = BaseControl::getInstance())
        control->setRadioRegion(m_radioRegion);

    m_pEmptyView = new RadioEmptyView(this);

    m_pTunerView = new TunerView(this);
    m_pTunerView->hide();
    m_pTunerView->SetRadioRegion(m_radioRegion);

    const QVariant scanDefault(DataDefault::getDefault(SetupStrIdConst::setupRadioScanType).toBool());
    m_bScanType = DataSaveControl::readSettingData(SetupStrIdConst::setupRadioScanType, scanDefault, QString()).toBool();
    m_pTunerView->ScanTypeSetting(m_bScanType);

    m_pBaseBar = new BaseBar(hvappframework::UIManager::getSystemBarRect(), this, 0xFFFF);
    m_pBaseBar->setCurrentTitle(tr("Radio"), 0);
    m_pBaseBar->hide();

    m_pProtocolComm = ProtocolComm::GetInstance();
    if (m_pProtocolComm) {
        m_pProtocolComm->Start();
        m_pProtocolComm->Tuner_Request_list();
    }

    qRegisterMetaType<RadioCmdFromMCU_T>("RadioCmdFromMCU_T");
    qRegisterMetaType<RadioInfo_t_>("RadioInfo_t_");

    connect(this, SIGNAL(sglRecvedTunerMsg(RadioCmdFromMCU_T)), this, SLOT(HandleTunerMsgSlot(RadioCmdFromMCU_T)),
            Qt::QueuedConnection);
    m_bHandOverWired = true;
    connect(this, SIGNAL(sigRadioInfoOK()), this, SLOT(showRadioViewSlot()));
    connect(m_pBaseBar, SIGNAL(btnClickedSig(QString)), this, SLOT(controlBarPressed(QString)));
    if (BaseControl* control = BaseControl::getInstance()) {
        connect(control, SIGNAL(sigRadioRegionChanged(int)), this, SLOT(RadioRegionChangedSlot(int)));
        connect(control, SIGNAL(FMAMChangedSig(int)), this, SLOT(FMAMChangedSlot(int)));
    }

    QSharedPointer<hvappframework::Module> auxin = hvappframework::ModuleManager::self()->getModule(QStringLiteral("auxin"));
    if (QSharedPointer<AuxinModulePlugin> plugin = qSharedPointerDynamicCast<AuxinModulePlugin>(auxin))
        auxinModule = plugin->getAuxinModule();
    auxin.reset();
    if (auxinModule) {
        AppData* appData = AppData::GetInstance();
        const int src = appData ? appData->getLastMemSrc() : -1;
        if (s_bFirstStart && src == 0)
            s_bFirstStart = false;
        else
            auxinModule->takeScreen();
        auxinModule->setVideoOnly(false);
        auxinModule->setAVInMode(AuxinModule::AVInMode(0));
        auxinModule->setAudioOnly(true);
        auxinModule->setAudioInChannel(AuxinModule::AudioChannel(1));
        auxinModule->streamOn();
    }

    if (QObject* radio = moduleImpl(QStringLiteral("radio"))) {
        connect(this, SIGNAL(sigRadioInfoChanged(RadioInfo_t_)), radio, SLOT(radioInfoChangeSlot(RadioInfo_t_)));
        connect(this, SIGNAL(sigRadioFlagChanged(unsigned int)), radio, SLOT(radioFlagChangeSlot(unsigned int)));
    }

    initWidget();

    m_requestTimerId = startTimer(RequestIntervalMs, Qt::CoarseTimer);
    puts("=============>>>>into radio view");
    fflush(stdout);
}

TunerViewImpl::~TunerViewImpl()
{
    // Waits for a record hand-over in progress on the reader thread.
    m_pTuner = nullptr;
    QWidget* children[] = {m_pBaseBar, m_pTunerView, m_pEmptyView, m_pEqView, m_pKeypad};
    for (QWidget* child : children)
        if (child)
            child->deleteLater();
    m_pBaseBar = nullptr;
    m_pTunerView = nullptr;
    m_pEmptyView = nullptr;
    m_pEqView = nullptr;
    m_pKeypad = nullptr;
}

void TunerViewImpl::initWidget()
{
    QList<HvIconButton*>& presets = m_pTunerView->m_presetBtnList;
    presets.clear();
    for (int n = 1; n <= 6; ++n) {
        HvIconButton* button = findChild<HvIconButton*>(QStringLiteral("PS%1").arg(n));
        if (!button)
            continue;
        connect(button, SIGNAL(btnClicked(QString)), this, SLOT(PresetButtonPressed(QString)));
        connect(button, SIGNAL(btnLongPress(QString)), this, SLOT(PresetButtonLongPressed(QString)));
        presets.append(button);
    }

    Ui_RadioMain* ui = m_pTunerView->m_pUi;
    connect(ui->DX_LOC, SIGNAL(btnClicked(QString)), this, SLOT(dxLocButtonPressed(QString)));
    connect(ui->Keyboard, SIGNAL(btnClicked(QString)), this, SLOT(KeypadButtonPressed(QString)));
    connect(ui->AutoSearch, SIGNAL(btnClicked(QString)), this, SLOT(AutoSearch(QString)));
    connect(ui->SeekUp, SIGNAL(btnClicked(QString)), this, SLOT(SeekUpPressed(QString)));
    connect(ui->SeekDown, SIGNAL(btnClicked(QString)), this, SLOT(SeekDownPressed(QString)));
    connect(ui->SeekUp, SIGNAL(btnLongPress(QString)), this, SLOT(SeekUpPressed(QString)));
    connect(ui->SeekDown, SIGNAL(btnLongPress(QString)), this, SLOT(SeekDownPressed(QString)));
    if (BaseControl* control = BaseControl::getInstance()) {
        connect(control, SIGNAL(handle_infopagenextbtn(QString)), this, SLOT(SeekUpPressed(QString)));
        connect(control, SIGNAL(handle_infopageprevbtn(QString)), this, SLOT(SeekDownPressed(QString)));
    }
    connect(ui->StepUp, SIGNAL(btnClicked(QString)), this, SLOT(StepUpPressed(QString)));
    connect(ui->StepDown, SIGNAL(btnClicked(QString)), this, SLOT(StepDownPressed(QString)));
    connect(ui->FMicon, SIGNAL(btnClicked(QString)), this, SLOT(bandButtonPressed(QString)));
    connect(ui->AMicon, SIGNAL(btnClicked(QString)), this, SLOT(bandButtonPressed(QString)));
    connect(ui->EQBtn, SIGNAL(btnClicked(QString)), this, SLOT(RadioEqBtnClickedSlot()));
    connect(ui->BandSwitch, SIGNAL(btnClicked(QString)), this, SLOT(bandButtonPressed(QString)));
    if (HvIconButton* dab = findChild<HvIconButton*>(QStringLiteral("dabBtn")))
        connect(dab, SIGNAL(btnClicked(QString)), this, SLOT(DABBtnClickedSlot(QString)));
    if (HvIconButton* asps = findChild<HvIconButton*>(QStringLiteral("ASPSBtn"))) {
        connect(asps, SIGNAL(btnClicked(QString)), this, SLOT(ScanPressed(QString)));
        connect(asps, SIGNAL(btnLongPress(QString)), this, SLOT(AutoSearch(QString)));
    }

    TunerView* view = m_pTunerView;
    connect(view, SIGNAL(sigFreqFromRadioSlider(unsigned short)), this, SLOT(FreqFromRadioSlider(unsigned short)));
    connect(view, SIGNAL(sigOnPowerBtnClicked(QString)), this, SLOT(OnPowerBtnClicked(QString)));
    connect(view, SIGNAL(sigAFStatusChange(QString, bool)), this, SLOT(AFStatusChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigTAStatusChange(QString, bool)), this, SLOT(TAStatusChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigAntPowerStatusChange(QString, bool)), this,
            SLOT(AntPowerStatusChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigRegStatusChange(QString, bool)), this, SLOT(REGStatusChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigScanStatusChange(QString, bool)), this, SLOT(ScanTypeChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigLocStatusChange(QString, bool)), this, SLOT(LocStatusChangedSlot(QString, bool)));
    connect(view, SIGNAL(sigSelectedPTYChanged(int)), this, SLOT(PTYSelectedChangedSlot(int)));
    connect(view, SIGNAL(sigPTYSeekClicked(QString)), this, SLOT(PTYSeekClickedSlot(QString)));
    connect(view, SIGNAL(changeBandSig(int)), this, SLOT(changeBandSlot(int)));
}

// ---- Status records ----

void TunerViewImpl::RecvedTunerMsg(tag_RadioCmdFromMCU msg)
{
    // Only a record that will reach HandleTunerMsgSlot counts against the
    // reader's limit; the ones emitted before the wiring are lost.
    if (m_bHandOverWired)
        m_pTuner.recordQueued(this);
    emit sglRecvedTunerMsg(msg);
}

void TunerViewImpl::HandleTunerMsgSlot(const RadioCmdFromMCU_T& record)
{
    // Qt made the copy that record refers to inside the reader's delivery;
    // ordered after that delivery, it is read here as a whole.
    m_pTuner.waitForDelivery();
    m_pTuner.recordHandled(this);
    ++m_recordsHandled;
    handleRecord(record);
    if (!m_bDraining)
        handleWaitingRecords();
}

// The records that came in meanwhile are handled before the screen is
// painted again, each as it would be on its own: under a flood the screen
// is painted once a frame instead of once per few records. Painting, input
// and snapshots wait at most a frame.
void TunerViewImpl::handleWaitingRecords()
{
    const QPointer<TunerViewImpl> self(this);
    m_bDraining = true;
    QElapsedTimer frame;
    frame.start();
    for (quint64 before = 0; before != m_recordsHandled && frame.elapsed() < DrainFrameMs;) {
        before = m_recordsHandled;
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
        if (!self)
            return;
    }
    m_bDraining = false;
}

void TunerViewImpl::handleRecord(const RadioCmdFromMCU_T& record)
{
    RadioCmdFromMCU_T msg = record;
    TunerView* view = m_pTunerView;
    if (!view)
        return;
    switch (msg.cmd) {
    case MCU_TUNE_INFO:
        handleTuneInfo(msg);
        break;
    case MCU_PRESET_FREQ:
        std::memcpy(m_lastMsg.presetFreq, msg.presetFreq, sizeof m_lastMsg.presetFreq);
        view->Tuner_UI_PresetDisp(m_lastMsg.presetFreq, &m_lastMsg.presetPsName[0][0], 0);
        m_bPresetReceived = true;
        if (m_bInfoReceived && !m_bViewShown)
            emit sigRadioInfoOK();
        break;
    case MCU_PTY:
        if (msg.pty > 31)
            return;
        m_lastMsg.pty = msg.pty;
        m_lastMsg.selectedPty = msg.selectedPty;
        copyField(m_radioInfo.ptyText, sizeof m_radioInfo.ptyText, PTY_NAMES[msg.pty].toLocal8Bit());
        emit sigRadioInfoChanged(m_radioInfo);
        view->PTYDisp(m_lastMsg.pty);
        view->SetSelectedPTY(m_lastMsg.selectedPty);
        break;
    case MCU_PS_NAME:
        std::memcpy(m_lastMsg.psName, msg.psName, sizeof m_lastMsg.psName);
        std::memset(m_radioInfo.psText, 0, sizeof m_radioInfo.psText);
        std::memcpy(m_radioInfo.psText, m_lastMsg.psName,
                    qstrnlen(reinterpret_cast<const char*>(m_lastMsg.psName), sizeof m_lastMsg.psName));
        emit sigRadioInfoChanged(m_radioInfo);
        view->PSDisp(m_lastMsg.psName);
        view->Tuner_UI_PlayInfoDisp(m_lastMsg.freq, m_lastMsg.psName);
        break;
    case MCU_RADIO_TEXT:
        std::memcpy(m_lastMsg.radioText, msg.radioText, sizeof m_lastMsg.radioText);
        view->RTDisp(m_lastMsg.radioText);
        break;
    case MCU_PRESET_PS:
        std::memcpy(m_lastMsg.presetPsName, msg.presetPsName, sizeof m_lastMsg.presetPsName);
        view->Tuner_UI_PresetDisp(m_lastMsg.presetFreq, &m_lastMsg.presetPsName[0][0], 0);
        break;
    case MCU_RDS_FLAGS:
        handleRdsFlags(msg);
        break;
    case MCU_STATION_PIC:
        m_lastMsg.stationPic = msg.stationPic;
        view->SetRadioStationPic(m_lastMsg.stationPic);
        break;
    case MCU_FAVOURITE:
        std::memcpy(m_lastMsg.favourite, msg.favourite, sizeof m_lastMsg.favourite);
        view->Tuner_UI_FavorDisp(m_lastMsg.favourite);
        updateFavorBtn(m_lastMsg.freq);
        break;
    case MCU_SIGNAL:
        view->SetRadioSignalDisp(msg.signal);
        break;
    case MCU_AUX_WORDS:
        std::memcpy(m_lastMsg.auxWords, msg.auxWords, sizeof m_lastMsg.auxWords);
        break;
    case MCU_AUX_BLOCKS:
        std::memcpy(m_lastMsg.auxBlocks, msg.auxBlocks, sizeof m_lastMsg.auxBlocks);
        break;
    default:
        break;
    }
}

void TunerViewImpl::handleTuneInfo(tag_RadioCmdFromMCU& msg)
{
    TunerView* view = m_pTunerView;
    const bool bandChanged = msg.band != m_lastMsg.band;
    if (bandChanged || msg.freq != m_lastMsg.freq || msg.preset != m_lastMsg.preset)
        std::memset(&m_radioInfo, 0, sizeof m_radioInfo);
    if (bandChanged) {
        std::memset(m_lastMsg.presetPsName, ' ', 6 * 8);
        std::memset(m_lastMsg.psName, ' ', sizeof m_lastMsg.psName);
        m_lastMsg.pty = 0;
        emit sigRadioBandChanged(msg.band);
        if (!isAmBand(m_lastMsg.band) && isAmBand(msg.band))
            view->ClearRDSDisp();
        view->checkFreqParam(msg.band);
    }
    if (msg.freq != m_lastMsg.freq) {
        view->Tuner_UI_PlayInfoDisp(msg.freq, msg.psName);
        emit view->sigRadioCurFreqChanged(float(msg.freq));
    }
    if (msg.asState != m_lastMsg.asState || msg.psState != m_lastMsg.psState) {
        if (msg.asState)
            view->StartAsPsDisp(0);
        else if (msg.psState)
            view->StartAsPsDisp(1);
        else
            view->StopAsPsDisp();
    }

    // Bytes 4-15: freq, band, preset, dxLoc, asState, byte 12, stereo,
    // psState, scanState.
    std::memcpy(reinterpret_cast<char*>(&m_lastMsg) + 4, reinterpret_cast<const char*>(&msg) + 4, 12);
    tag_RadioCmdFromMCU& s = m_lastMsg;
    if (isAmBand(s.band))
        s.stereo = 0;

    view->Tuner_UI_Freq(s.freq);
    view->Tuner_UI_CurBand(s.band);
    view->Tuner_UI_CurPreset(s.preset);
    view->Tuner_UI_DxLoc(s.dxLoc, s.band);
    view->Tuner_UI_ASPSState(s.asState, s.psState);
    view->Tuner_UI_ScanState(s.scanState);
    view->SetStDisp(s.stereo);

    if (!isAmBand(s.band))
        m_lastFmBand = s.band;
    else
        m_lastAmBand = s.band;

    if (AppData* appData = AppData::GetInstance()) {
        appData->setTunerBand(s.band);
        appData->setTunerPreset(s.preset);
    }

    const QString freqText = isFmFrequency(s.freq)
        ? QString::asprintf("FM%u  %u.%u%u MHz", unsigned(s.band) + 1, s.freq / 100, (s.freq % 100) / 10, s.freq % 10)
        : QString::asprintf("AM%u  %u kHz", unsigned(s.band) - 2, s.freq);
    copyField(m_radioInfo.freqText, sizeof m_radioInfo.freqText, freqText.toLocal8Bit());
    emit sigRadioInfoChanged(m_radioInfo);

    m_bInfoReceived = true;
    if (m_bPresetReceived && !m_bViewShown)
        emit sigRadioInfoOK();

    if (s.stereo)
        m_radioFlag |= RADIO_FLAG_STEREO;
    else
        m_radioFlag &= ~RADIO_FLAG_STEREO;
    emit sigRadioFlagChanged(m_radioFlag);
}

void TunerViewImpl::handleRdsFlags(const tag_RadioCmdFromMCU& msg)
{
    m_lastMsg.rdsWord = msg.rdsWord;
    const uint8_t f = msg.rdsFlags;
    const struct {
        uint8_t rds;
        unsigned int flag;
    } bits[] = {
        {RDS_FLAG_TA, RADIO_FLAG_TA_ON},
        {RDS_FLAG_TP, RADIO_FLAG_TP_IND},
        {RDS_FLAG_REG, RADIO_FLAG_REG_ON},
        {RDS_FLAG_TA_IND, RADIO_FLAG_TA_IND},
    };
    for (const auto& b : bits) {
        if (f & b.rds)
            m_radioFlag |= b.flag;
        else
            m_radioFlag &= ~b.flag;
    }
    TunerView* view = m_pTunerView;
    view->AFStatusSetting(f & RDS_FLAG_AF);
    view->AFStatusDisp(f & RDS_FLAG_AF);
    view->TAStatusSetting(f & RDS_FLAG_TA);
    view->TATPStatusDisp(f & RDS_FLAG_TA, f & RDS_FLAG_TA_IND, f & RDS_FLAG_TP);
    view->REGStatusSetting(f & RDS_FLAG_REG);
    emit sigRadioFlagChanged(m_radioFlag);
}

// ---- Commands to the tuner ----

void TunerViewImpl::SeekUpPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_SeekUp();
}

void TunerViewImpl::SeekDownPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_SeekDown();
}

void TunerViewImpl::StepUpPressed(QString)
{
    if (!m_pProtocolComm)
        return;
    if (m_bScanType)
        m_pProtocolComm->Tuner_SeekUp();
    else
        m_pProtocolComm->Tuner_StepUp();
}

void TunerViewImpl::StepDownPressed(QString)
{
    if (!m_pProtocolComm)
        return;
    if (m_bScanType)
        m_pProtocolComm->Tuner_SeekDown();
    else
        m_pProtocolComm->Tuner_StepDown();
}

void TunerViewImpl::AutoSearch(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_AutoSearch();
}

void TunerViewImpl::ScanPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_Scan();
}

void TunerViewImpl::PSPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_PS();
}

void TunerViewImpl::NextStationPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_PresetDown();
}

void TunerViewImpl::PrevStationPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_PresetUp();
}

void TunerViewImpl::favorButtonPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_Favor();
}

void TunerViewImpl::dxLocButtonPressed(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_DxLoc(m_lastMsg.dxLoc == 0);
}

void TunerViewImpl::LocStatusChangedSlot(QString, bool on)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_DxLoc(on);
}

void TunerViewImpl::AFStatusChangedSlot(QString, bool on)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_AFOnOff(on);
}

void TunerViewImpl::TAStatusChangedSlot(QString, bool on)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_TAOnOff(on);
}

void TunerViewImpl::REGStatusChangedSlot(QString, bool on)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_REGOnOff(on);
}

void TunerViewImpl::TABtnClickedSlot(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_TAOnOff(!(m_lastMsg.rdsFlags & RDS_FLAG_TA));
}

void TunerViewImpl::PTYSelectedChangedSlot(int pty)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_PTYSelected(pty);
}

void TunerViewImpl::PTYSeekClickedSlot(QString)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_PTYSeek();
}

void TunerViewImpl::FreqFromKeypad(unsigned short freq)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_SetFreq(freq);
}

void TunerViewImpl::FreqFromRadioSlider(unsigned short freq)
{
    FreqFromKeypad(freq);
}

void TunerViewImpl::FreqFromFavorList(unsigned int freq)
{
    FreqFromKeypad(static_cast<unsigned short>(freq & 0xFFFF));
}

// Key number plus six times the band's place within FM or AM.
int TunerViewImpl::presetNumber(const QString& id, bool* ok) const
{
    const int key = id.toInt(ok, 10);
    const int band = m_lastMsg.band;
    return isAmBand(band) ? (band - 3) * 6 + key : band * 6 + key;
}

void TunerViewImpl::PresetButtonPressed(QString id)
{
    bool ok = false;
    const int n = presetNumber(id, &ok);
    if (m_pProtocolComm && ok)
        m_pProtocolComm->Tuner_Preset(n, false);
}

void TunerViewImpl::PresetButtonLongPressed(QString id)
{
    bool ok = false;
    const int n = presetNumber(id, &ok);
    if (m_pProtocolComm && ok)
        m_pProtocolComm->Tuner_Preset(n, true);
}

void TunerViewImpl::ListRadioviewPresetButtonPressed(unsigned char index, bool longPress)
{
    if (!m_pProtocolComm)
        return;
    m_pProtocolComm->Tuner_Preset(index + 1, longPress);
    if (!longPress && m_pTunerView)
        m_pTunerView->Tuner_ChangeList(index);
}

void TunerViewImpl::ListKapadPresetButtonPressed(unsigned char index, bool longPress)
{
    if (!m_pProtocolComm)
        return;
    m_pProtocolComm->Tuner_Preset(index + 1, longPress);
    if (!longPress && m_pKeypad)
        m_pKeypad->ChangePresetList(index);
}

void TunerViewImpl::sendBand(unsigned char band)
{
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_Band(band);
}

void TunerViewImpl::bandButtonPressed(QString id)
{
    if (!m_pProtocolComm)
        return;
    bool ok = false;
    const int key = id.toInt(&ok, 10);
    if (!ok)
        return;
    const unsigned char b = m_lastMsg.band;
    const bool am = isAmBand(b);
    switch (key) {
    case 1:
        sendBand((am ? m_lastFmBand : (b + 1) % 3) + 1);
        break;
    case 2:
        sendBand((am ? (b == 3 ? 4 : 3) : m_lastAmBand) + 1);
        break;
    case 3:
        sendBand(0);
        break;
    case 4:
        sendBand(am ? 1 : 4);
        break;
    default:
        break;
    }
}

void TunerViewImpl::FMAMChangedSlot(int which)
{
    static unsigned char s_lastFmBand = 0;
    static unsigned char s_lastAmBand = 3;
    if (!m_pProtocolComm)
        return;
    const unsigned char b = m_lastMsg.band;
    const bool am = isAmBand(b);
    unsigned char band;
    if (which == 1) {
        if (!am)
            s_lastFmBand = (b + 1) % 3;
        band = s_lastFmBand;
    } else if (which == 2) {
        if (am)
            s_lastAmBand = b == 3 ? 4 : 3;
        band = s_lastAmBand;
    } else {
        return;
    }
    sendBand(band + 1);
}

void TunerViewImpl::bandIncDecButtonPressed(QString id)
{
    if (!m_pProtocolComm)
        return;
    const unsigned char b = m_lastMsg.band;
    const bool am = isAmBand(b);
    const unsigned char otherAm = b == 3 ? 4 : 3;
    if (id == QLatin1String("Add")) {
        sendBand((am ? otherAm : (b + 1) % 3) + 1);
    } else if (id == QLatin1String("Dec")) {
        sendBand((am ? otherAm : (b + 2) % 3) + 1);
    } else if (id.startsWith(QLatin1String("ID_band"))) {
        bool ok = false;
        const int band = QString(id).remove(QStringLiteral("ID_band")).toInt(&ok, 10);
        if (ok && band >= 0 && band <= 4)
            sendBand(band + 1);
    } else {
        sendBand(b + 1);
    }
}

void TunerViewImpl::bandIncDecButtonPressed2(QString) {}
void TunerViewImpl::StereoBtnClickedSlot(QString) {}

void TunerViewImpl::changeBandSlot(int band)
{
    if (band >= 0 && band <= 4)
        sendBand(band + 1);
}

void TunerViewImpl::speechCommandSlot_fromBase(int command)
{
    if (command == 1 && m_pProtocolComm)
        m_pProtocolComm->Tuner_AutoSearch();
}

// ---- Sub-views and host ----

void TunerViewImpl::KeypadButtonPressed(QString)
{
    if (!m_pKeypad) {
        m_pKeypad = new RadioKeypad(this);
        connect(m_pKeypad, SIGNAL(FreqInputOK(unsigned short)), this, SLOT(FreqFromKeypad(unsigned short)));
        connect(this, SIGNAL(sigRadioBandChanged(unsigned char)), m_pKeypad, SLOT(sltRadioBandChanged(unsigned char)));
        connect(this, SIGNAL(sigRadioRegionChanged(unsigned char, int)), m_pKeypad,
                SLOT(sltRadioRegionChanged(unsigned char, int)));
        emit sigRadioRegionChanged(m_lastMsg.band, m_radioRegion);
    }
    m_pKeypad->show();
    m_pKeypad->HandleKeypadInput(QString());
    m_pBaseBar->raise();
}

void TunerViewImpl::exitKeypadSlot()
{
    if (m_pKeypad && m_pKeypad->isVisible())
        m_pKeypad->hide();
}

void TunerViewImpl::RadioEqBtnClickedSlot()
{
    if (!m_pEqView) {
        m_pEqView = new SetupEqView(QRect(0, 0, width(), height()), this);
        connect(m_pEqView, SIGNAL(exitEqSig()), this, SLOT(RadioexitEqSlot()));
    }
    m_pEqView->show();
    emit sigStopStandbyTimer();
}

// A closed equaliser page is deleted rather than kept hidden: the next
// opening builds a new one anyway.
void TunerViewImpl::RadioexitEqSlot()
{
    if (m_pEqView) {
        m_pEqView->hide();
        m_pEqView->deleteLater();
        m_pEqView = nullptr;
    }
    emit sigResetStandbyTimer();
}

void TunerViewImpl::controlBarPressed(QString id)
{
    if (id == QLatin1String("home")) {
        switchToHome();
    } else if (id == QLatin1String("carplay")) {
        if (BaseControl* control = BaseControl::getInstance())
            control->sendUserEvent(QStringLiteral("carplay"), 7, QVariant(true), true, {});
    } else if (id == QLatin1String("AndroidAuto")) {
        if (BaseControl* control = BaseControl::getInstance()) {
            const int r = control->sendUserEvent(QStringLiteral("androidauto"), 6, QVariant(true), true, {});
            control->showDeviceSelectDialog(QStringLiteral("AndroidAuto"), r);
        }
    }
}

void TunerViewImpl::OnPowerBtnClicked(QString)
{
    m_bRadioStopped = true;
    if (auxinModule)
        auxinModule->streamOff();
    switchToHome();
}

void TunerViewImpl::DABBtnClickedSlot(QString)
{
    if (BaseControl* control = BaseControl::getInstance())
        control->sendMcuKeyPressedSignal(195, 0);
}

void TunerViewImpl::AntPowerStatusChangedSlot(QString, bool on)
{
    const int v = on ? 1 : 0;
    if (BaseControl* control = BaseControl::getInstance())
        control->SendDataToMcu(12, 182, unsigned(v));
    DataSaveControl::saveSettingData(SetupStrIdConst::setupRadioAntPower, QVariant(v), QString());
}

void TunerViewImpl::saveScanType()
{
    DataSaveControl::saveSettingData(SetupStrIdConst::setupRadioScanType, QVariant(m_bScanType), QString());
}

void TunerViewImpl::ScanTypeChangedSlot(QString, bool on)
{
    m_bScanType = on;
    saveScanType();
}

void TunerViewImpl::ScanTypeSwitchSlot(QString)
{
    m_bScanType = !m_bScanType;
    saveScanType();
}

// ---- Activation, audio and standby ----

void TunerViewImpl::onStop()
{
    m_bRadioStopped = true;
}

void TunerViewImpl::RadioOnStartSlot()
{
    if (m_bRadioStopped) {
        qDebug() << "RadioOnStartSlot auxinModule->streamOn";
        m_bRadioStopped = false;
        AppData* appData = AppData::GetInstance();
        if (auxinModule) {
            if (!(appData && appData->getIsReversing()))
                auxinModule->setAVInMode(AuxinModule::AVInMode(0));
            auxinModule->streamOn();
        }
    }
    exitRadioStandbySlot();
    emit sigResetStandbyTimer();
}

void TunerViewImpl::TunerAudioStreamOnOffSlot(int state)
{
    qDebug() << "TunerAudioStreamOnOffSlot" << 400 << state;
    const bool off = state == 1;
    const int playState = off ? 2 : 1;
    m_bRadioStopped = off;
    if (auxinModule) {
        if (off)
            auxinModule->streamOff();
        else
            auxinModule->streamOn();
    }
    if (AppData* appData = AppData::GetInstance())
        appData->setPlayState(playState);
    if (BaseControl* control = BaseControl::getInstance())
        emit control->playpausebtnChangeSig(playState);
    RadioPlaybtnStateSlot(playState);
}

void TunerViewImpl::showRadioViewSlot()
{
    TunerView* view = m_pTunerView;
    tag_RadioCmdFromMCU& s = m_lastMsg;
    view->Tuner_UI_CurBand(s.band);
    view->Tuner_UI_CurPreset(s.preset);
    view->Tuner_UI_PresetDisp(s.presetFreq, &s.presetPsName[0][0], 0);
    view->Tuner_UI_Freq(s.freq);
    view->Tuner_UI_DxLoc(s.dxLoc, s.band);
    view->Tuner_UI_FavorDisp(s.favourite);
    view->Tuner_UI_PlayInfoDisp(s.freq, s.psName);
    view->show();
    m_pBaseBar->show();
    m_bViewShown = true;
    view->checkFreqParam(s.band);
    emit view->sigRadioCurFreqChanged(float(s.freq));
}

void TunerViewImpl::RadioRegionChangedSlot(int region)
{
    m_radioRegion = region;
    m_pTunerView->SetRadioRegion(region);
    emit sigRadioRegionChanged(m_lastMsg.band, region);
}

void TunerViewImpl::timerEvent(QTimerEvent* e)
{
    if (e->timerId() != m_requestTimerId)
        return;
    if (m_bInfoReceived && m_bPresetReceived) {
        if (m_requestTimerId)
            killTimer(m_requestTimerId);
        m_requestTimerId = 0;
        return;
    }
    if (m_pTunerView)
        m_pTunerView->show();
    if (m_pBaseBar)
        m_pBaseBar->show();
    if (m_pProtocolComm)
        m_pProtocolComm->Tuner_Request_list();
}

void TunerViewImpl::hideEvent(QHideEvent* e)
{
    if (m_pKeypad && m_pKeypad->isVisible())
        m_pKeypad->hide();
    QWidget::hideEvent(e);
}

void TunerViewImpl::changeEvent(QEvent* e)
{
    if (e->type() != QEvent::LanguageChange) {
        QWidget::changeEvent(e);
        return;
    }
    if (m_pBaseBar)
        m_pBaseBar->setCurrentTitle(tr("Radio"), 0);
    if (m_pTunerView)
        m_pTunerView->SetStDisp(m_lastMsg.stereo);
}

void TunerViewImpl::ChangeList(unsigned char) {}
void TunerViewImpl::switchSource(QString) {}
void TunerViewImpl::exitRadioStandbySlot() {}
void TunerViewImpl::showRadioStandbySlot() {}
void TunerViewImpl::showFavorListSlot(QString) {}
void TunerViewImpl::hideFavorListSlot(QString) {}
void TunerViewImpl::showSmallSwitchView(QString) {}
void TunerViewImpl::showBigSwitchView() {}
void TunerViewImpl::updateFavorBtn(unsigned int) {}
void TunerViewImpl::updateFavorBtnStatus(unsigned int) {}
void TunerViewImpl::RadioPlaybtnStateSlot(int) {}
