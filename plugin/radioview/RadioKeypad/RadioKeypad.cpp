#include "RadioKeypad.h"

#include "ui_RadioKeypad.h"

#include "AppData.h"
#include "HostEvents.h"
#include "HvIconButton.h"
#include "TunerRegionParam.h"

#include <QDebug>
#include <QEvent>
#include <QPixmap>
#include <QTimerEvent>

namespace {

constexpr int AllDigitsMask = 0x3FF;
// Digit 0 is the only one left: a complete entry unless the grid needs it.
constexpr int OnlyZeroMask = 0x3FE;
constexpr int AutoHideMs = 15000;

// Mask that leaves digits from..to enabled, and digit 1 too when asked.
int rangeMask(int from, int to, bool alsoOne)
{
    int mask = AllDigitsMask;
    for (int k = 0; k <= 9; ++k) {
        if ((k >= from && k <= to) || (alsoOne && k == 1))
            mask &= ~(1 << k);
    }
    return mask;
}

bool isDigitKey(const QString& key)
{
    return key.size() == 1 && key.at(0) >= QLatin1Char('0') && key.at(0) <= QLatin1Char('9');
}

} // namespace

RadioKeypad::RadioKeypad(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui_RadioKeypad)
    , m_nRegion(TUNER_DEFAULT_REGION)
{
    ui->setupUi(this);

    connect(ui->Keypad_Close, SIGNAL(btnClicked(QString)), this, SLOT(RadioCloseKeypad()));
    for (HvIconButton* key : {ui->Keypad_1, ui->Keypad_2, ui->Keypad_3, ui->Keypad_4, ui->Keypad_5,
                              ui->Keypad_6, ui->Keypad_7, ui->Keypad_8, ui->Keypad_9, ui->Keypad_0,
                              ui->Keypad_Clear}) {
        connect(key, SIGNAL(btnClicked(QString)), this, SLOT(RadioKeypadPressed(QString)));
    }
    // Holding the clear key wipes the whole entry; a tap removes one digit.
    ui->Keypad_Clear->setSupportLongPress(true);
    connect(ui->Keypad_Clear, SIGNAL(btnLongPress(QString)), this, SLOT(clearAllFreq(QString)));
    connect(ui->Keypad_OK, SIGNAL(btnClicked(QString)), this, SLOT(RadioKeypadPressed(QString)));

    // The layout gives the digit keys no image of their own for the disabled
    // state; dimming the normal one shows which digits can still follow.
    for (HvIconButton* key : digitKeys())
        key->setDisableMode(1);

    m_strFreqDigits.clear();
    m_strFreqDisp.clear();

    installEventFilter(this);
    loadWallPaper();
}

RadioKeypad::~RadioKeypad()
{
    delete ui;
}

void RadioKeypad::HandleKeypadInput(QString key)
{
    if (!key.isEmpty() && !isDigitKey(key)) {
        qWarning().noquote() << "RadioKeypad: ignoring key that is not one digit:" << key;
        return;
    }
    if (m_bFM)
        handleFmInput(key);
    else
        handleAmInput(key);
}

void RadioKeypad::handleFmInput(const QString& key)
{
    const TunerRegion row = tunerRegion(m_nRegion);
    const int fmMin = int(row.fmMin);
    const int fmMax = int(row.fmMax);

    m_nNextMin = 0;
    m_nBandMax = fmMax;
    m_nBandMin = fmMin;
    m_nNextMax = fmMax;

    const QString s = m_strFreqDigits + key;
    const int v = s.toInt();
    if (v > fmMax)
        return;

    // The point follows the integer MHz part: after two digits below 100 MHz,
    // after three from 100 MHz on.
    bool insertPoint = true;
    const bool leadingOne = s.startsWith(QLatin1Char('1'));
    switch (s.size()) {
    case 0:
        if (fmMax / 10000 == 1)
            DisableSpecificNums(rangeMask(fmMin / 1000, 9, true));
        else
            DisableSpecificNums(rangeMask(fmMin / 1000, fmMax / 1000, false));
        return;
    case 1:
        if (v < fmMin / 1000 && v != fmMax / 10000)
            return;
        insertPoint = false;
        if (leadingOne) {
            m_nNextMax = fmMax / 1000;
        } else {
            m_nNextMin = fmMin / 100;
            m_nNextMax = fmMax / 100;
        }
        break;
    case 2:
        if (v < fmMin / 100) {
            if (v > fmMax / 1000)
                return;
            insertPoint = false;
        }
        if (leadingOne) {
            m_nNextMax = fmMax / 100;
        } else {
            m_nNextMin = fmMin / 10;
            m_nNextMax = fmMax / 10;
        }
        break;
    case 3:
        if (v > fmMax / 100) {
            if (v < fmMin / 10)
                return;
            insertPoint = false;
        }
        if (leadingOne) {
            m_nNextMax = fmMax / 10;
        } else {
            m_nNextMax = fmMax;
            m_nNextMin = fmMin;
        }
        break;
    case 4:
        if (v < fmMin && v > fmMax / 10)
            return;
        if (leadingOne) {
            m_nNextMax = fmMax;
        } else {
            m_nNextMin = fmMin;
            m_nNextMax = fmMax;
        }
        insertPoint = false;
        break;
    case 5:
        if (v > fmMax || v < fmMin)
            return;
        insertPoint = false;
        break;
    default:
        insertPoint = false;
        break;
    }
    acceptKey(key, insertPoint, v);
}

void RadioKeypad::handleAmInput(const QString& key)
{
    const TunerRegion row = tunerRegion(m_nRegion);
    const int amMin = int(row.amMin);
    const int amMax = int(row.amMax);

    m_nBandMax = amMax;
    m_nBandMin = amMin;
    m_nNextMax = amMax;
    m_nNextMin = 0;

    const QString t = m_strFreqDisp + key;
    const int v = t.toInt();
    if (v > amMax)
        return;

    const bool leadingOne = t.startsWith(QLatin1Char('1'));
    switch (t.size()) {
    case 0:
        DisableSpecificNums(rangeMask(amMin / 100, 9, true));
        return;
    case 1:
        if (v != amMax / 1000 && v < amMin / 100)
            return;
        if (leadingOne)
            m_nNextMax = amMax / 100;
        else
            m_nNextMin = amMin / 10;
        break;
    case 2:
        if (v < amMin / 10 && v > amMax / 100)
            return;
        if (leadingOne)
            m_nNextMax = amMax / 10;
        else
            m_nNextMin = amMin;
        break;
    case 3:
        if (v < amMin && v > amMax / 10)
            return;
        if (!leadingOne)
            m_nNextMin = amMin;
        break;
    case 4:
        if (v < amMin)
            return;
        if (!leadingOne)
            m_nNextMin = amMin;
        break;
    default:
        break;
    }
    acceptKey(key, false, v);
}

void RadioKeypad::acceptKey(const QString& key, bool insertPoint, int value)
{
    m_strFreqDisp += key;
    m_strFreqDigits += key;
    if (insertPoint && m_strFreqDisp.indexOf(QLatin1Char('.'), 1) < 0)
        m_strFreqDisp += QLatin1Char('.');

    qDebug().noquote() << "================>" + m_strFreqDigits;
    ui->KeypadFreqDispTxt->setText(m_strFreqDisp);
    DisableSomeKeypadNums(value, m_nNextMax, m_nNextMin);
}

void RadioKeypad::DisableSomeKeypadNums(int value, int nextMax, int nextMin)
{
    EnableAllKeypadNums();

    const TunerRegion row = tunerRegion(m_nRegion);
    int mask = 0;
    for (int d = 0; d <= 9; ++d) {
        const int bit = 1 << d;
        // 64-bit so that any value a caller passes stays defined.
        const qint64 c = qint64(value) * 10 + d;
        if (c > nextMax || c < nextMin) {
            mask |= bit;
            continue;
        }
        if (!m_bFM) {
            const qint64 amMin = row.amMin;
            const qint64 amMax = row.amMax;
            const qint64 amStep = row.amStep;
            if (c >= amMin && c <= amMax && (c - amMin) % amStep != 0)
                mask |= bit;
            continue;
        }
        const qint64 fmMin = row.fmMin;
        const qint64 fmMax = row.fmMax;
        const qint64 fmStep = row.fmStep;
        if (c >= fmMin && c <= fmMax) {
            // A candidate inside the band is a hundredths digit, which a
            // 100 kHz grid never takes. Below the band's top the 0x3FE rule
            // would hide its absence; at the top nothing else catches it.
            if ((c - fmMin) % fmStep != 0 || fmStep == 10)
                mask |= bit;
        } else {
            // c still takes one more digit: rule it out only when c * 10 is
            // off the grid and the step is too wide for that digit to reach it.
            const qint64 c10 = c * 10;
            if (c10 >= fmMin && c10 <= fmMax && (c10 - fmMin) % fmStep != 0
                && fmStep - (c10 % fmStep) > 9)
                mask |= bit;
        }
        // A trailing 0 adds nothing on a grid of 100 kHz or coarser.
        if (mask == OnlyZeroMask && value > 199)
            mask = fmStep > 9 ? AllDigitsMask : OnlyZeroMask;
    }
    DisableSpecificNums(mask);
}

std::array<HvIconButton*, 10> RadioKeypad::digitKeys() const
{
    return {ui->Keypad_0, ui->Keypad_1, ui->Keypad_2, ui->Keypad_3, ui->Keypad_4,
            ui->Keypad_5, ui->Keypad_6, ui->Keypad_7, ui->Keypad_8, ui->Keypad_9};
}

void RadioKeypad::DisableSpecificNums(int mask)
{
    const std::array<HvIconButton*, 10> keys = digitKeys();
    for (int k = 0; k <= 9; ++k)
        keys[k]->setDisableState((mask & (1 << k)) != 0);
}

void RadioKeypad::EnableAllKeypadNums()
{
    DisableSpecificNums(0);
}

void RadioKeypad::ChangePresetList(unsigned char)
{
}

void RadioKeypad::enterPressed()
{
    RadioKeypadPressed(QStringLiteral("FreqOK"));
}

void RadioKeypad::RadioCloseKeypad()
{
    m_strFreqDigits.clear();
    m_strFreqDisp.clear();
    ui->KeypadFreqDispTxt->setText(m_strFreqDisp);
    EnableAllKeypadNums();
    hide();
}

void RadioKeypad::RadioKeypadPressed(QString id)
{
    if (id == QLatin1String("FreqClear")) {
        removeLastDigit();
        return;
    }
    if (id == QLatin1String("FreqOK")) {
        confirmEntry();
        return;
    }
    bool ok = false;
    id.toInt(&ok, 10);
    if (!ok) {
        qWarning().noquote() << "RadioKeypad: ignoring unknown key id" << id;
        return;
    }
    HandleKeypadInput(id);
}

void RadioKeypad::removeLastDigit()
{
    if (m_strFreqDigits.isEmpty())
        return;
    m_strFreqDigits.chop(1);
    if (m_strFreqDisp.endsWith(QLatin1Char('.')))
        m_strFreqDisp.chop(1);
    m_strFreqDisp.chop(1);
    if (m_strFreqDisp.endsWith(QLatin1Char('.')))
        m_strFreqDisp.chop(1);
    ui->KeypadFreqDispTxt->setText(m_strFreqDisp);
    // Puts the point back where the shorter entry needs it and re-masks.
    HandleKeypadInput(QString());
}

void RadioKeypad::confirmEntry()
{
    bool haveResult = false;
    const int typed = m_strFreqDigits.toInt(&haveResult, 10);
    quint16 v = quint16(typed);
    if (haveResult) {
        const int n = m_strFreqDigits.size();
        if (m_bFM) {
            // Scale the typed digits to 10 kHz units by where the point sits.
            const int p = m_strFreqDisp.indexOf(QLatin1Char('.'));
            if (p == 2) {
                if (n == 3)
                    v = quint16(v * 10);
                else if (n == 2)
                    v = quint16(v * 100);
            } else if (p == 3) {
                if (n == 4)
                    v = quint16(v * 10);
                else if (n == 3)
                    v = quint16(v * 100);
            } else {
                haveResult = false;
            }
        } else if (n <= 2) {
            haveResult = false;
        }
        if (haveResult && (v < m_nBandMin || v > m_nBandMax))
            haveResult = false;
    }
    if (haveResult)
        emit FreqInputOK(v);
    RadioCloseKeypad();
}

void RadioKeypad::clearAllFreq(QString id)
{
    qDebug().noquote() << "clearAllFreq" << "id =" << id;
    if (id != QLatin1String("FreqClear") || m_strFreqDigits.isEmpty())
        return;
    m_strFreqDigits.clear();
    m_strFreqDisp.clear();
    ui->KeypadFreqDispTxt->setText(QString());
    HandleKeypadInput(QString());
}

void RadioKeypad::sltRadioBandChanged(unsigned char ucBand)
{
    m_strFreqDigits.clear();
    m_strFreqDisp.clear();
    ui->KeypadFreqDispTxt->setText(m_strFreqDisp);
    // Bands 0-2 are FM1-FM3, above that AM.
    m_bFM = ucBand <= 2;
    ui->txtFAM->setText(m_bFM ? tr("FM:") : tr("AM:"));
    HandleKeypadInput(QString());
}

void RadioKeypad::sltRadioRegionChanged(unsigned char ucBand, int region)
{
    m_nRegion = region;
    sltRadioBandChanged(ucBand);
}

void RadioKeypad::loadWallPaper()
{
    AppData* appData = AppData::GetInstance();
    if (!appData) {
        qWarning() << "RadioKeypad: no host AppData, keeping the keypad mask image";
        return;
    }
    const QString path = appData->wallPaperPath();
    const QPixmap wallPaper(path);
    if (wallPaper.isNull()) {
        qWarning().noquote() << "RadioKeypad: wallpaper" << path << "not loadable, keeping the keypad mask image";
        return;
    }
    ui->KeypadMask->setPixmap(wallPaper);
}

void RadioKeypad::startAutoHideTimer()
{
    killAutoHideTimer();
    m_nAutoHideTimerId = startTimer(AutoHideMs, Qt::CoarseTimer);
}

void RadioKeypad::killAutoHideTimer()
{
    if (m_nAutoHideTimerId == 0)
        return;
    killTimer(m_nAutoHideTimerId);
    m_nAutoHideTimerId = 0;
}

void RadioKeypad::timerEvent(QTimerEvent* event)
{
    if (m_nAutoHideTimerId != 0 && event->timerId() == m_nAutoHideTimerId) {
        qDebug() << "timerEvent" << "hide keypad";
        RadioCloseKeypad();
        // hide() sends no hide event to a pad that is not on screen; without
        // this the timer would go on firing.
        killAutoHideTimer();
        return;
    }
    QWidget::timerEvent(event);
}

bool RadioKeypad::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
        if (m_nAutoHideTimerId != 0) {
            qDebug() << "eventFilter" << "kill autohide timer";
            killAutoHideTimer();
        }
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::KeyRelease:
        qDebug() << "eventFilter" << "start autohide timer";
        if (isVisible())
            startAutoHideTimer();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void RadioKeypad::showEvent(QShowEvent* event)
{
    qDebug() << "showEvent" << "start autohide timer";
    startAutoHideTimer();
    QWidget::showEvent(event);
}

void RadioKeypad::hideEvent(QHideEvent* event)
{
    qDebug() << "hideEvent";
    if (m_nAutoHideTimerId != 0) {
        qDebug() << "hideEvent" << "kill autohide timer";
        killAutoHideTimer();
    }
    QWidget::hideEvent(event);
}

void RadioKeypad::customEvent(QEvent* event)
{
    if (event->type() == WallPaperChange)
        loadWallPaper();
    QWidget::customEvent(event);
}

void RadioKeypad::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        // The band prefix is not one of the layout's texts.
        ui->txtFAM->setText(m_bFM ? tr("FM:") : tr("AM:"));
        return;
    }
    QWidget::changeEvent(event);
}
