#include "TunerView.h"
#include "ui_RadioMain.h"

#include "PtyNames.h"
#include "RadioCmdFromMCU.h"
#include "RadioSetting.h"
#include "TunerRegionParam.h"

#include "AppData.h"
#include "AudioControl.h"
#include "BaseControl.h"
#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HostEvents.h"
#include "HvIconButton.h"
#include "HvRollingText.h"
#include "MRadioSlider.h"
#include "PlatformControl.h"
#include "SetupStrIdConst.h"
#include "UIManager.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEvent>
#include <QLabel>
#include <QTimerEvent>

#include <cmath>
#include <cstring>

namespace {

constexpr int StartupMuteMs = 2000;  // start-up hard mute
constexpr int StandbyMs = 15000;     // standby countdown
constexpr int AsPsBlinkMs = 1000;    // AS/PS blink half period

const QColor IndicatorOn(255, 255, 255);
const QColor IndicatorOff(128, 128, 128);
const QColor IndicatorFlagged(255, 128, 0);
const QString HomeBgKey = QStringLiteral("homeBg");
const QString DefaultWallPaper = QStringLiteral(":/images/wallpaper/default.jpg");

// "87.50" for 8750: FM frequencies in 10 kHz units.
QString fmDigits(unsigned int freq)
{
    return QString::asprintf("%u.%u%u", freq / 100, (freq % 100) / 10, freq % 10);
}

// The programme-type name in the current language (code 0: empty).
QString ptyName(unsigned int pty)
{
    return QCoreApplication::translate("QObject", PTY_NAMES[pty].toUtf8().constData());
}

// Bytes outside space .. 'z' are shown as spaces.
void filterRdsBytes(char* buf, int len)
{
    for (int i = 0; i < len; ++i) {
        const unsigned char c = static_cast<unsigned char>(buf[i]);
        if (c < 0x20 || c > 0x7A)
            buf[i] = ' ';
    }
}

} // namespace

TunerView::TunerView(QWidget* parent) : QWidget(parent), m_pUi(new Ui_RadioMain)
{
    setGeometry(hvappframework::UIManager::getSystemViewRect());
    m_pUi->setupUi(this);

    m_muteTimerId = startTimer(StartupMuteMs, Qt::CoarseTimer);
    m_bHardMute = 0;
    if (PlatformControl* platform = PlatformControl::getInstance()) {
        platform->setHardMute(true);
        m_bHardMute = 1;
    }

    if (MRadioSlider* slider = findChild<MRadioSlider*>(QStringLiteral("radioSlider"))) {
        connect(slider, SIGNAL(freqChangedSgl(float)), this, SLOT(FreqFromRadioSlider(float)));
        connect(this, SIGNAL(sigRadioCurFreqChanged(float)), slider, SLOT(curFreqChangedSlot(float)));
        connect(this, SIGNAL(sigRadioFreqParamChanged(bool, float, float, float)), slider,
                SLOT(freqParamChangedSlot(bool, float, float, float)));
    }
    if (HvIconButton* power = findChild<HvIconButton*>(QStringLiteral("PowerBtn")))
        connect(power, SIGNAL(btnClicked(QString)), this, SLOT(OnPowerBtnClicked(QString)));
    m_pSetupBtn = findChild<HvIconButton*>(QStringLiteral("setupBtn"));
    if (m_pSetupBtn)
        connect(m_pSetupBtn, SIGNAL(btnClicked(QString)), this, SLOT(SetupBtnClickedSlot(QString)));

    m_pRadioSetting = new RadioSetting(this);
    qDebug() << "RadioSetting================>created";
    m_pRadioSetting->hide();
    connect(m_pRadioSetting, SIGNAL(sigReqExitRadioSetting(QString)), this, SLOT(ExitRadioSettingSlot(QString)));
    connect(m_pRadioSetting, SIGNAL(sigAFStatusChange(QString, bool)), this, SIGNAL(sigAFStatusChange(QString, bool)));
    connect(m_pRadioSetting, SIGNAL(sigTAStatusChange(QString, bool)), this, SIGNAL(sigTAStatusChange(QString, bool)));
    connect(m_pRadioSetting, SIGNAL(sigRegStatusChange(QString, bool)), this,
            SIGNAL(sigRegStatusChange(QString, bool)));
    connect(m_pRadioSetting, SIGNAL(sigScanStatusChange(QString, bool)), this,
            SIGNAL(sigScanStatusChange(QString, bool)));
    connect(m_pRadioSetting, SIGNAL(sigLocStatusChange(QString, bool)), this,
            SIGNAL(sigLocStatusChange(QString, bool)));
    connect(m_pRadioSetting, SIGNAL(sigPTYSeekBtnClicked(QString)), this, SIGNAL(sigPTYSeekClicked(QString)));
    connect(m_pRadioSetting, SIGNAL(sigAsBtnClicked(QString)), this, SIGNAL(sigAsBtnClicked(QString)));
    connect(m_pRadioSetting, SIGNAL(sigAntPowerStatusChange(QString, bool)), this,
            SIGNAL(sigAntPowerStatusChange(QString, bool)));

    m_pAFDisp = findChild<QLabel*>(QStringLiteral("AFDisp"));
    m_pTADisp = findChild<QLabel*>(QStringLiteral("TADisp"));
    m_pTPDisp = findChild<QLabel*>(QStringLiteral("TPDisp"));
    m_pPSDisp = findChild<HvRollingText*>(QStringLiteral("PSDisp"));
    m_pPTYDisp = findChild<HvRollingText*>(QStringLiteral("PTYDisp"));
    m_pRTDisp = findChild<HvRollingText*>(QStringLiteral("RTDisp"));
    m_pAsPsLabel = findChild<QLabel*>(QStringLiteral("AS_PS_DispLabel"));
    m_pStLabel = findChild<QLabel*>(QStringLiteral("STDispLabel"));

    for (QLabel* indicator : {m_pAFDisp, m_pTADisp, m_pTPDisp})
        if (indicator)
            indicator->hide();
    for (HvRollingText* text : {m_pPTYDisp, m_pPSDisp, m_pRTDisp})
        if (text)
            text->setText(QString());
    for (QLabel* label : {m_pAsPsLabel, m_pStLabel})
        if (label)
            label->setText(QString());

    m_asPsTimerId = 0;
    m_bPsBlink = false;
    installEventFilter(this);

    AppData* appData = AppData::GetInstance();
    QString wallPaper = appData ? appData->wallPaperPath() : QString();
    if (wallPaper.isEmpty()) {
        const QVariant fallback(DataDefault::getDefault(SetupStrIdConst::setupWallPaper).toString());
        wallPaper = DataSaveControl::readSettingData(SetupStrIdConst::setupWallPaper, fallback, QString()).toString();
        if (wallPaper.isEmpty())
            wallPaper = DefaultWallPaper;
        if (appData)
            appData->setWallPaperPath(wallPaper);
    }

    // The background is loaded from disk once per process and shared
    // through the host's pixmap cache.
    if (BaseControl* control = BaseControl::getInstance()) {
        if (!control->getBackupPixmap(HomeBgKey))
            control->setBackupPixmap(QSharedPointer<QPixmap>::create(wallPaper), HomeBgKey);
        if (QSharedPointer<QPixmap> bg = control->getBackupPixmap(HomeBgKey))
            setBackground(*bg);
    } else {
        setBackground(QPixmap(wallPaper));
    }
}

TunerView::~TunerView()
{
    if (m_bAsMute) {
        m_bAsMute = 0;
        if (AudioControl* audio = AudioControl::getInstance())
            audio->setMute(false, false);
    }
    delete m_pRadioSetting;
    m_pRadioSetting = nullptr;
    if (m_muteTimerId) {
        stopTimer(m_muteTimerId);
        releaseHardMute();
    }
    delete m_pUi;
}

void TunerView::setBackground(const QPixmap& pixmap)
{
    QLabel* bkg = m_pUi->bkg;
    bkg->setPixmap(pixmap);
    // A wallpaper without transparency that covers the view hides all
    // below it: the empty view and the window under it are not painted
    // again for every update of the screen.
    const QRect shown(bkg->pos(), pixmap.size() / pixmap.devicePixelRatio());
    setAttribute(Qt::WA_OpaquePaintEvent, !pixmap.isNull() && !pixmap.hasAlphaChannel()
                                              && bkg->geometry().contains(rect()) && shown.contains(rect()));
}

void TunerView::restartTimer(int& id, int ms)
{
    stopTimer(id);
    id = startTimer(ms, Qt::CoarseTimer);
}

void TunerView::stopTimer(int& id)
{
    if (id) {
        killTimer(id);
        id = 0;
    }
}

// The hard mute stays on while the user's own mute is on, or when there is
// no audio control to ask.
void TunerView::releaseHardMute()
{
    AudioControl* audio = AudioControl::getInstance();
    PlatformControl* platform = PlatformControl::getInstance();
    if (audio && !audio->isMute() && platform)
        platform->setHardMute(false);
}

// ---- Frequency, band and scale ----

void TunerView::Tuner_UI_Freq(unsigned int freq)
{
    QString text;
    if (isFmFrequency(freq)) {
        text = fmDigits(freq);
        m_pUi->MKHz->setText(QStringLiteral("MHz"));
    } else {
        text = QString::number(freq);
        m_pUi->MKHz->setText(QStringLiteral("kHz"));
    }
    m_pUi->FreqDisp->setText(text);
}

void TunerView::Tuner_UI_CurBand(unsigned char band)
{
    Tuner_UI_CurBand_Generally(band);
}

void TunerView::Tuner_UI_CurBand_Generally(unsigned char band)
{
    QLabel* bandName = findChild<QLabel*>(QStringLiteral("BandName"));
    QString name;
    if (band <= 2) {
        name = QStringLiteral("FM%1").arg(band + 1);
        m_pUi->BandSwitch->setIsDown(false);
        m_pUi->FMicon->setDisplayText(name);
    } else if (band <= 4) {
        name = QStringLiteral("AM%1").arg(band - 2);
        m_pUi->BandSwitch->setIsDown(true);
        m_pUi->AMicon->setDisplayText(name);
    } else {
        name = QStringLiteral("FM1");
        m_pUi->AMicon->setIsDown(false);
        m_pUi->FMicon->setIsDown(true);
        m_pUi->FMicon->setDisplayText(name);
    }
    if (bandName)
        bandName->setText(name);
}

void TunerView::checkFreqParam(unsigned char band)
{
    const TunerRegion r = tunerRegion(m_regionIndex);
    if (!isAmBand(band))
        emit sigRadioFreqParamChanged(true, float(r.fmMin) / 100.0f, float(r.fmMax) / 100.0f,
                                      float(r.fmStep) / 100.0f);
    else
        emit sigRadioFreqParamChanged(false, float(r.amMin), float(r.amMax), 1.0f);
}

void TunerView::FreqFromRadioSlider(float freq)
{
    // Truncation toward zero; only the low 16 bits travel on.
    const double whole = std::trunc(double(freq));
    const quint64 value = (whole > 0.0 && whole < 1.8e19) ? quint64(whole) : 0;
    emit sigFreqFromRadioSlider(static_cast<unsigned short>(value & 0xFFFF));
    resetStandbyTimetSlot();
}

void TunerView::Tuner_UI_DxLoc(unsigned char dxLoc, unsigned char)
{
    m_pUi->DX_LOC->setDisplayText(dxLoc ? QStringLiteral("LOC") : QStringLiteral("DX"));
    if (m_pRadioSetting)
        m_pRadioSetting->LocStatusSetting(dxLoc != 0);
}

void TunerView::SetStDisp(unsigned char stereo)
{
    if (m_pStLabel)
        m_pStLabel->setText(stereo ? QStringLiteral("ST") : QString());
}

void TunerView::Tuner_UI_ASPSState(unsigned char asState, unsigned char)
{
    AudioControl* audio = AudioControl::getInstance();
    if (asState && audio && !audio->isMute()) {
        m_bAsMute = 1;
        audio->setMute(true, false);
    }
    m_pUi->AutoSearch->setIsDown(asState != 0);
}

void TunerView::StartAsPsDisp(unsigned char isPS)
{
    m_bPsBlink = isPS != 0;
    if (m_pAsPsLabel)
        m_pAsPsLabel->setText(isPS ? QStringLiteral("PS") : QStringLiteral("AS"));
    restartTimer(m_asPsTimerId, AsPsBlinkMs);
}

void TunerView::StopAsPsDisp()
{
    if (m_pAsPsLabel)
        m_pAsPsLabel->setText(QString());
    stopTimer(m_asPsTimerId);
    if (m_bAsMute) {
        m_bAsMute = 0;
        if (AudioControl* audio = AudioControl::getInstance())
            audio->setMute(false, false);
    }
}

void TunerView::Tuner_UI_ScanState(unsigned char) {}

// ---- Presets ----

void TunerView::Tuner_UI_PresetDisp(unsigned short* freqs, unsigned char* names, int)
{
    if (!freqs || !names) {
        qWarning() << "Tuner_UI_PresetDisp: no preset data, labels kept";
        return;
    }
    for (int i = 0; i < 6 && i < m_presetBtnList.size(); ++i) {
        const unsigned int f = freqs[i];
        const QString freqText = (isFmFrequency(f) ? fmDigits(f) + QStringLiteral(" MHz")
                                                   : QStringLiteral("%1 kHz").arg(f))
                                     .trimmed();
        char buf[9];
        std::memcpy(buf, names + 8 * i, 8);
        filterRdsBytes(buf, 8);
        buf[8] = 0;
        QString name;
        if (std::strncmp(buf, "        ", 8) != 0)
            name = QString::fromLocal8Bit(buf).trimmed();
        if (HvIconButton* button = m_presetBtnList.at(i))
            button->setDisplayText(name.isEmpty() ? freqText : name);
    }
}

void TunerView::Tuner_UI_CurPreset(unsigned char curPreset)
{
    qDebug() << "Tuner_UI_CurPreset" << __LINE__ << "=========>curPreset" << curPreset;
    if (curPreset > 6)
        return;
    // Each key goes straight to its state, so a key that stays down is not
    // released and pressed (and repainted twice) on every tune-info record.
    for (int i = 0; i < 6 && i < m_presetBtnList.size(); ++i) {
        HvIconButton* button = m_presetBtnList.at(i);
        if (!button)
            continue;
        const bool current = i == curPreset - 1;
        button->setIsDown(current);
        if (current)
            button->setIsLock(true);
    }
}

void TunerView::Tuner_UI_CurPreset(unsigned char curBand, unsigned char curPreset)
{
    qDebug() << "Tuner_UI_CurPreset" << __LINE__ << "curBand" << curBand << "=========>curPreset" << curPreset;
}

// Labels for an 18-button preset list; buttons the list does not have are
// skipped, so the six-button main screen is left alone past its end.
void TunerView::Tuner_UI_PresetListDisp(unsigned char band, unsigned short* freqs, unsigned char*)
{
    if (!freqs) {
        qWarning() << "Tuner_UI_PresetListDisp: no preset frequencies, labels kept";
        return;
    }
    const bool am = isAmBand(band);
    for (int i = 0; i < 18 && i < m_presetBtnList.size(); ++i) {
        const unsigned int f = freqs[am ? 18 + i : i];
        QString text = isFmFrequency(f) ? fmDigits(f) : QString::number(f);
        if (am && i >= 12)
            text.clear();
        if (HvIconButton* button = m_presetBtnList.at(i))
            button->setDisplayText(text);
    }
}

// ---- RDS ----

void TunerView::PSDisp(unsigned char* ps)
{
    if (!ps) {
        qWarning() << "PSDisp: no programme service name, text kept";
        return;
    }
    if (!m_pPSDisp)
        return;
    char buf[8];
    std::memcpy(buf, ps, 8);
    filterRdsBytes(buf, 8);
    m_pPSDisp->setText(QString::fromLatin1(buf, 8));
    if (m_pPSDisp->isHidden())
        m_pPSDisp->show();
}

void TunerView::RTDisp(unsigned char* rt)
{
    if (!rt) {
        qWarning() << "RTDisp: no radio text, text kept";
        return;
    }
    // The record holds at most 64 characters and a NUL; never read past it.
    const char* text = reinterpret_cast<const char*>(rt);
    const QString radioText = QString::fromUtf8(text, int(qstrnlen(text, 65)));
    if (radioText == m_strRadioText)
        return;
    m_strRadioText = radioText;
    if (m_pRTDisp)
        m_pRTDisp->setText(radioText);
}

void TunerView::PTYDisp(unsigned int pty)
{
    qDebug() << "========================pty:" << pty;
    if (!m_pPTYDisp || pty > 31)
        return;
    m_ptyShown = pty;
    m_pPTYDisp->setText(ptyName(pty));
    if (m_pPTYDisp->isHidden())
        m_pPTYDisp->show();
}

void TunerView::setIndicator(QLabel* label, const QColor& colour)
{
    if (!label)
        return;
    // Most RDS flag records repeat the indicators' colours.
    if (label->palette().color(QPalette::WindowText) != colour) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, colour);
        label->setPalette(palette);
    }
    if (label->isHidden())
        label->show();
}

void TunerView::AFStatusDisp(bool afOn)
{
    setIndicator(m_pAFDisp, afOn ? IndicatorOn : IndicatorOff);
}

void TunerView::TATPStatusDisp(bool ta, bool taIndicator, bool tpIndicator)
{
    setIndicator(m_pTADisp, !ta ? IndicatorOff : (taIndicator ? IndicatorFlagged : IndicatorOn));
    setIndicator(m_pTPDisp, !ta ? IndicatorOff : (tpIndicator ? IndicatorFlagged : IndicatorOn));
}

void TunerView::ClearAFDisp()
{
    if (m_pAFDisp)
        m_pAFDisp->hide();
}

void TunerView::ClearTADisp()
{
    if (m_pTADisp)
        m_pTADisp->hide();
}

void TunerView::ClearTPDisp()
{
    if (m_pTPDisp)
        m_pTPDisp->hide();
}

void TunerView::ClearPTYDisp()
{
    m_ptyShown = 0;
    if (m_pPTYDisp)
        m_pPTYDisp->setText(QString());
}

void TunerView::ClearPSDisp()
{
    if (m_pPSDisp)
        m_pPSDisp->setText(QString());
}

void TunerView::ClearRTDisp()
{
    if (m_pRTDisp)
        m_pRTDisp->setText(QString());
}

void TunerView::ClearRDSDisp()
{
    ClearAFDisp();
    ClearTADisp();
    ClearTPDisp();
    ClearPTYDisp();
    ClearPSDisp();
    ClearRTDisp();
}

// ---- Settings page, standby and the rest of the view ----

void TunerView::InitBottomWidget()
{
    HvIconButton* closeScreen = new HvIconButton(this);
    closeScreen->setGeometry(925, 534, 90, 66);
    closeScreen->setNormalImage(QStringLiteral(":/images/closeScreen.png"));
    closeScreen->setPressImage(QStringLiteral(":/images/closeScreen.png"));
    closeScreen->setButtonID(QStringLiteral("closescreen_ID"));
    closeScreen->setWindowFlags(Qt::WindowStaysOnTopHint);
    connect(closeScreen, SIGNAL(btnClicked(QString)), this, SLOT(btnClickedSlot(QString)));

    m_pTemperBtn = new HvIconButton(this);
    m_pTemperBtn->setGeometry(0, 535, 111, 60);
    m_pTemperBtn->setFontSize(30);
    m_pTemperBtn->setDisableTextColor(QColor(255, 255, 255, 255));
    m_pTemperBtn->setDisableState(true);
    updateTemperSlot();
}

void TunerView::updateTemperSlot()
{
    if (!m_pTemperBtn)
        return;
    const QVariant fallback(DataDefault::getDefault(SetupStrIdConst::setupTemperature).toBool());
    const bool celsius = DataSaveControl::readSettingData(SetupStrIdConst::setupTemperature, fallback, QString()).toBool();
    AppData* appData = AppData::GetInstance();
    const float t = appData ? appData->getCurTemperature() : AppData::NoTemperature;
    QString text;
    if (t == AppData::NoTemperature)
        text = celsius ? QStringLiteral("---°C") : QStringLiteral("---°F");
    else if (celsius)
        text = QString::asprintf("%.1f°C", double(t));
    else
        text = QString::asprintf("%.1f°F", double(float(std::fma(double(t), 1.8, 32.0))));
    m_pTemperBtn->setDisplayText(text);
}

void TunerView::SetRadioRegion(int region)
{
    m_regionIndex = region;
}

void TunerView::SetRadioSignalDisp(unsigned char level)
{
    m_signalLevel = level;
}

void TunerView::AFStatusSetting(bool on)
{
    if (m_pRadioSetting)
        m_pRadioSetting->AFStatusSetting(on);
}

void TunerView::TAStatusSetting(bool on)
{
    if (m_pRadioSetting)
        m_pRadioSetting->TAStatusSetting(on);
}

void TunerView::REGStatusSetting(bool on)
{
    if (m_pRadioSetting)
        m_pRadioSetting->REGStatusSetting(on);
}

void TunerView::ScanTypeSetting(bool on)
{
    if (m_pRadioSetting)
        m_pRadioSetting->ScanStatusSetting(on);
}

void TunerView::Tuner_UI_FavorDisp(unsigned char*) {}
void TunerView::Tuner_UI_PlayInfoDisp(unsigned int, unsigned char*) {}
void TunerView::Tuner_UI_PresetListPSNameDisp(unsigned char, unsigned short*, RDS_PS_LIST const*) {}
void TunerView::Tuner_UI_PresetListviewDisp(unsigned char, unsigned short*, unsigned char*, unsigned int) {}
void TunerView::Tuner_ChangeList(unsigned char) {}
void TunerView::Tuner_UI_CurBand2(unsigned char) {}
void TunerView::Tuner_UI_SwitchScaleCurBand(unsigned char) {}
void TunerView::setPTYseekTip(unsigned char) {}
void TunerView::EnableBtn() {}
void TunerView::DisableBtn() {}
void TunerView::setScanType(bool) {}
void TunerView::PTYBtnStatusDisp(unsigned int) {}
void TunerView::hideRDSBtn() {}
void TunerView::showRDSBtn() {}
void TunerView::SetSelectedPTY(int) {}
void TunerView::SetRadioStationPic(unsigned int) {}

void TunerView::OnPowerBtnClicked(QString id)
{
    emit sigOnPowerBtnClicked(id);
}

void TunerView::reqExitStandbySlot()
{
    restartTimer(m_standbyTimerId, StandbyMs);
    emit sigReqExitStandby();
}

void TunerView::resetStandbyTimetSlot()
{
    restartTimer(m_standbyTimerId, StandbyMs);
}

void TunerView::stopStandbyTimetSlot()
{
    stopTimer(m_standbyTimerId);
}

void TunerView::SetupBtnClickedSlot(QString)
{
    if (!m_pRadioSetting)
        return;
    if (m_pRadioSetting->isVisible())
        m_pRadioSetting->hide();
    else
        m_pRadioSetting->show();
}

void TunerView::hideSettingPage()
{
    if (m_pRadioSetting && m_pRadioSetting->isVisible())
        m_pRadioSetting->hide();
}

void TunerView::ExitRadioSettingSlot(QString)
{
    hideSettingPage();
}

void TunerView::InfoBtnClicked(QString)
{
    hideSettingPage();
}

void TunerView::PresetListBtnClicked(QString)
{
    hideSettingPage();
}

void TunerView::ScaleBtnClicked(QString)
{
    hideSettingPage();
}

void TunerView::FavorDispSlot(bool) {}
void TunerView::PresetListBtnLongClicked(QString) {}
void TunerView::SelectedPTYChangeSlot(int) {}
void TunerView::PTYBtnClicked(QString) {}
void TunerView::reqHidePTYListSlot() {}
void TunerView::PTYSelectBtnClickedSlot(QString) {}
void TunerView::hidePTYtableViewSlot() {}
void TunerView::TAbtnclickSlot(QString) {}
void TunerView::AFbtnclickSlot(QString) {}
void TunerView::btnClickedSlot(QString) {}

// ---- Events ----

void TunerView::timerEvent(QTimerEvent* e)
{
    const int id = e->timerId();
    if (id == m_standbyTimerId) {
        stopTimer(m_standbyTimerId);
        emit sigReqShowStandby();
    } else if (id == m_muteTimerId) {
        stopTimer(m_muteTimerId);
        if (m_bHardMute)
            releaseHardMute();
        m_bHardMute = 0;
    }
    if (id == m_asPsTimerId && m_asPsTimerId && m_pAsPsLabel) {
        if (!m_pAsPsLabel->text().isEmpty())
            m_pAsPsLabel->setText(QString());
        else
            m_pAsPsLabel->setText(m_bPsBlink ? QStringLiteral("PS") : QStringLiteral("AS"));
    }
}

// A finger or key held down keeps the standby off; the countdown starts
// again at the release.
bool TunerView::eventFilter(QObject* watched, QEvent* e)
{
    const int t = int(e->type()) & ~4;
    if (t == QEvent::MouseButtonPress)
        stopStandbyTimetSlot();
    else if (t == QEvent::MouseButtonRelease)
        resetStandbyTimetSlot();
    return QObject::eventFilter(watched, e);
}

void TunerView::showEvent(QShowEvent* e)
{
    resetStandbyTimetSlot();
    QWidget::showEvent(e);
}

void TunerView::changeEvent(QEvent* e)
{
    if (e->type() != QEvent::LanguageChange) {
        QWidget::changeEvent(e);
        return;
    }
    m_pUi->retranslateUi(this);
    if (m_pPTYDisp) {
        const QString name = ptyName(m_ptyShown);
        if (m_pPTYDisp->text() != name)
            m_pPTYDisp->setText(name);
    }
    if (m_pAsPsLabel) {
        if (!m_asPsTimerId)
            m_pAsPsLabel->setText(QString());
        else
            m_pAsPsLabel->setText(m_bPsBlink ? QStringLiteral("PS") : QStringLiteral("AS"));
    }
}

void TunerView::customEvent(QEvent* e)
{
    if (e && e->type() == WallPaperChange) {
        if (AppData* appData = AppData::GetInstance())
            setBackground(QPixmap(appData->wallPaperPath()));
    }
    QObject::customEvent(e);
}
